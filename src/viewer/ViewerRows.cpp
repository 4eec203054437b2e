// The Component Viewer's views, kind words and row keys.
#include "viewer/ViewerRows.h"

#include <algorithm>

#include "base/Fields.h"
#include "base/SettingsVocabulary.h"
#include "runtime/VbStrings.h"

namespace quillmark::viewer {
namespace {

constexpr std::u16string_view kSeparator = u"||";

}  // namespace

int ViewNumber(std::u16string_view caption) {
  auto it = std::find(kViewCaptions.begin(), kViewCaptions.end(), caption);
  return it == kViewCaptions.end() ? kCustomView : static_cast<int>(it - kViewCaptions.begin());
}

std::u16string_view SettingsCaption(std::u16string_view caption) {
  return ViewNumber(caption) == kCustomView ? options::ColumnWidths::kCustomView : caption;
}

std::u16string_view KindWord(int memberType) {
  switch (memberType) {
    case vbide::vbext_mt_Method:
      return u"Method";
    case vbide::vbext_mt_Property:
      return u"Property";
    case vbide::vbext_mt_Variable:
      return u"Variable";
    case vbide::vbext_mt_Event:
      return u"Event";
    case vbide::vbext_mt_Const:
      return u"Constant";
    default:
      return {};
  }
}

bool ViewLists(int view, vbide::vbext_MemberType memberType) {
  switch (view) {
    case 1:
      return memberType == vbide::vbext_mt_Method || memberType == vbide::vbext_mt_Property;
    case 2:
      return memberType == vbide::vbext_mt_Const || memberType == vbide::vbext_mt_Variable;
    case 3:
      return memberType == vbide::vbext_mt_Event;
    case kCustomView:
      return true;
    default:
      return false;
  }
}

RowKey RowKey::Parse(std::u16string_view key) {
  RowKey row;
  std::u16string tag = GetField(key, 0, kSeparator);
  if (tag == u"D") row.tag = Tag::Declarations;
  if (tag == u"M") row.tag = Tag::Member;
  if (tag == u"C") row.tag = Tag::Control;
  row.name = GetField(key, 1, kSeparator);
  std::u16string number = GetField(key, 2, kSeparator);
  // Val: a field that is not a number reads as 0, as the commands read it.
  row.number = static_cast<int>(vb::Val(number));
  return row;
}

std::u16string RowKey::Member(std::u16string_view name, int type) {
  std::u16string key = u"M||";
  key.append(name).append(kSeparator).append(vb::CStr(static_cast<std::int64_t>(type)));
  return key;
}

std::u16string RowKey::Control(std::u16string_view name, int index) {
  std::u16string key = u"C||";
  key.append(name).append(kSeparator).append(vb::CStr(static_cast<std::int64_t>(index)));
  return key;
}

std::u16string ControlRowText(std::u16string_view name, int index) {
  std::u16string text(name);
  if (index != -1)
    text.append(u" (").append(vb::CStr(static_cast<std::int64_t>(index))).append(u")");
  return text;
}

}  // namespace quillmark::viewer
