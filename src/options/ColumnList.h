// The search-results column list as the Options dialog edits it: every entry, shown or hidden,
// in display order, read from and written back to the "Columns" setting.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmark::options {

struct ColumnEntry {
  std::u16string name;
  bool shown = false;
  bool operator==(const ColumnEntry&) const = default;
};

// "Project,1|Line,0" -> {Project, shown}, {Line, hidden}: entries split on "|", each split on
// ","; a flag whose numeric value is exactly 1 shows the column ("2" and "yes" hide it).
std::vector<ColumnEntry> ParseColumnList(std::u16string_view setting);
// The setting's text: each name, "," and "1" or "0", joined by "|".
std::u16string ColumnListText(const std::vector<ColumnEntry>& entries);

}  // namespace quillmark::options
