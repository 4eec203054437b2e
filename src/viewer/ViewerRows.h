// The Component Viewer's vocabulary: its four views, the icon key of a member kind, and the item
// key that each row carries so that the commands can find the row's subject again.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "vbide/Enums.h"

namespace quillmark::viewer {

// The selector's captions, in list order; their positions are the view numbers 0 to 3.
inline constexpr std::array<std::u16string_view, 4> kViewCaptions = {
    u"(Controls)", u"(Methods/Properties)", u"(Constants/Variables)", u"(Events)"};
inline constexpr int kControlsView = 0;
inline constexpr int kCustomView = 4;  // any other text, the empty one too: a name filter
inline constexpr std::u16string_view kDeclarationsText = u"(Declarations)";
inline constexpr std::u16string_view kControlIcon = u"Control";

// The view a selector text stands for: exact, case-sensitive match with a caption, else 4.
int ViewNumber(std::u16string_view caption);
// The caption under which a view's column widths are stored: every typed filter shares one.
std::u16string_view SettingsCaption(std::u16string_view caption);
// "Method", "Property", "Variable", "Event" or "Constant"; "" for any other type (no icon).
std::u16string_view KindWord(int memberType);
// Whether a member of `memberType` is listed in `view` (1 to 4).
bool ViewLists(int view, vbide::vbext_MemberType memberType);

// A row's item key: a one-letter tag and up to two fields, joined by "||":
//   "D||"                      the declarations row
//   "M||" name "||" type       a member, its type as a decimal number
//   "C||" name "||" index      a control, index -1 outside a control array
struct RowKey {
  enum class Tag { None, Declarations, Member, Control };
  Tag tag = Tag::None;
  std::u16string name;
  int number = 0;  // the member type or the control index

  static RowKey Parse(std::u16string_view key);
  static std::u16string Declarations() { return u"D||"; }
  static std::u16string Member(std::u16string_view name, int type);
  static std::u16string Control(std::u16string_view name, int index);
};

// A control row's text: the name, or "name (index)" for an element of a control array.
std::u16string ControlRowText(std::u16string_view name, int index);

}  // namespace quillmark::viewer
