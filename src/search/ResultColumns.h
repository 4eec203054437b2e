// The results list's column setting, the row values the columns name, and the status texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

// The names a column may carry; a row has one value for each.
inline constexpr std::u16string_view kColumnProject = u"Project";
inline constexpr std::u16string_view kColumnModule = u"Module";
inline constexpr std::u16string_view kColumnProcedure = u"Procedure";
inline constexpr std::u16string_view kColumnLine = u"Line";
inline constexpr std::u16string_view kColumnCode = u"Code";
inline constexpr std::u16string_view kDeclarations = u"(Declarations)";

// The captions of the shown columns, left to right, from a setting like
// "Project,1|Module,1|Line,0": entries split on "|", each "Name,Flag"; a flag whose numeric
// value is exactly 1 shows the column, any other value ("2", "yes", "") hides it.
std::vector<std::u16string> ShownColumns(std::u16string_view setting);

// One result's values, by column name. Views into the caller's strings.
struct RowValues {
  std::u16string_view project;
  std::u16string_view module;
  std::u16string_view procedure;
  std::u16string_view line;
  std::u16string_view code;
};

// Which value a column shows; the position in RowValues, or -1 for a caption that names none
// (such a column stays empty).
int ColumnValueIndex(std::u16string_view caption);
std::u16string_view ValueAt(const RowValues& row, int valueIndex);

// "Progress: 75%": the integer part of value / maximum x 100. A maximum of 0 raises error 11.
std::u16string ProgressText(std::int32_t value, std::int32_t maximum);
// "12 Matching Line(s)".
std::u16string MatchingLinesText(std::int32_t count);

// The icon of a result's row by component type: "Module", "Class", "Form" or "Document".
std::u16string_view RowIcon(int componentType);

}  // namespace quillmark
