// The line rewrites of the Component Viewer's rename.
#include "viewer/RenameRules.h"

#include <algorithm>

#include "runtime/VbStrings.h"

namespace quillmark::viewer {

bool RenameBefore(std::u16string& line, std::u16string_view oldName, std::u16string_view newName,
                  char16_t follow) {
  std::u16string needle(oldName);
  needle.push_back(follow);
  std::int32_t hit = vb::InStr(1, line, needle, vb::CompareMethod::Text);
  if (hit == 0) return false;
  line.replace(static_cast<std::size_t>(hit - 1), oldName.size(), newName);
  return true;
}

int RenameReferences(std::u16string& line, std::u16string_view oldName,
                     std::u16string_view newName) {
  if (oldName.empty()) return 0;
  int replaced = 0;
  std::size_t from = 0;  // where the next search starts, 0-based
  while (from < line.size()) {
    std::int32_t hit =
        vb::InStr(static_cast<std::int32_t>(from + 1), line, oldName, vb::CompareMethod::Text);
    if (hit == 0) break;
    std::size_t at = static_cast<std::size_t>(hit - 1);
    std::size_t end = at + oldName.size();
    auto quotes = std::count(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(at), u'"');
    bool outsideString = quotes % 2 == 0;
    bool startsWord = at == 0 || line[at - 1] == u' ' || line[at - 1] == u'\t';
    bool endsWord = end == line.size() || line[end] == u'.' || line[end] == u' ';
    if (outsideString && startsWord && endsWord) {
      line.replace(at, oldName.size(), newName);
      ++replaced;
      // Past the new name: a new name that holds the old one after a tab would match again.
      from = at + newName.size();
    } else {
      from = at + 1;
    }
  }
  return replaced;
}

}  // namespace quillmark::viewer
