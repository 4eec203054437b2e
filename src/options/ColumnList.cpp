// The column list's reading and writing rules.
#include "options/ColumnList.h"

#include <cstdint>

#include "base/Fields.h"
#include "runtime/VbStrings.h"

namespace quillmark::options {

std::vector<ColumnEntry> ParseColumnList(std::u16string_view setting) {
  std::vector<ColumnEntry> entries;
  int count = CountFields(setting, u"|");
  for (int i = 0; i < count; ++i) {
    std::u16string entry = GetField(setting, static_cast<std::int16_t>(i), u"|");
    entries.push_back({GetField(entry, 0, u","), vb::Val(GetField(entry, 1, u",")) == 1});
  }
  return entries;
}

std::u16string ColumnListText(const std::vector<ColumnEntry>& entries) {
  std::u16string text;
  for (const auto& entry : entries) {
    if (!text.empty()) text += u'|';
    text += entry.name + (entry.shown ? u",1" : u",0");
  }
  return text;
}

}  // namespace quillmark::options
