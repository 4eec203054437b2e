// Column-setting parsing, row values and status texts of the results window.
#include "search/ResultColumns.h"

#include <cmath>

#include "base/Fields.h"
#include "runtime/Error.h"
#include "runtime/VbStrings.h"
#include "vbide/Enums.h"

namespace quillmark {
namespace {

constexpr std::u16string_view kValueNames[] = {kColumnProject, kColumnModule, kColumnProcedure,
                                               kColumnLine, kColumnCode};

}  // namespace

std::vector<std::u16string> ShownColumns(std::u16string_view setting) {
  std::vector<std::u16string> shown;
  int entries = CountFields(setting, u"|");
  for (int i = 0; i < entries; ++i) {
    std::u16string entry = GetField(setting, static_cast<std::int16_t>(i), u"|");
    if (vb::Val(GetField(entry, 1, u",")) == 1) shown.push_back(GetField(entry, 0, u","));
  }
  return shown;
}

int ColumnValueIndex(std::u16string_view caption) {
  for (int i = 0; i < 5; ++i)
    if (kValueNames[i] == caption) return i;
  return -1;
}

std::u16string_view ValueAt(const RowValues& row, int valueIndex) {
  switch (valueIndex) {
    case 0:
      return row.project;
    case 1:
      return row.module;
    case 2:
      return row.procedure;
    case 3:
      return row.line;
    case 4:
      return row.code;
    default:
      return {};
  }
}

std::u16string ProgressText(std::int32_t value, std::int32_t maximum) {
  if (maximum == 0) throw vb::Error::Standard(11);
  double percent = static_cast<double>(value) / maximum * 100;
  return u"Progress: " + vb::CStr(static_cast<std::int64_t>(std::floor(percent))) + u"%";
}

std::u16string MatchingLinesText(std::int32_t count) {
  return vb::CStr(static_cast<std::int64_t>(count)) + u" Matching Line(s)";
}

std::u16string_view RowIcon(int componentType) {
  switch (componentType) {
    case vbide::vbext_ct_StdModule:
      return u"Module";
    case vbide::vbext_ct_ClassModule:
      return u"Class";
    case vbide::vbext_ct_MSForm:
    case vbide::vbext_ct_VBForm:
    case vbide::vbext_ct_VBMDIForm:
      return u"Form";
    default:
      return u"Document";
  }
}

}  // namespace quillmark
