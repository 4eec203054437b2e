// The matching rule: find, then match case, whole word and comments, in that fixed order.
#include "search/MatchRules.h"

#include "runtime/VbStrings.h"

namespace quillmark {

std::int32_t MatchLine(std::u16string_view line, std::int32_t start, std::u16string_view searchText,
                       std::u16string_view foldedSearch, const MatchOptions& options) {
  std::int32_t position = vb::InStrFolded(start, line, foldedSearch);
  if (position == 0) return 0;
  auto at = static_cast<std::size_t>(position - 1);
  std::u16string_view found = line.substr(at, searchText.size());
  if (options.matchCase && found != searchText) return 0;
  if (options.wholeWord) {
    if (at > 0 && IsWordCharacter(line[at - 1])) return 0;
    std::size_t after = at + found.size();
    if (after < line.size() && IsWordCharacter(line[after])) return 0;
  }
  if (options.excludeComments && IsCommentLine(line)) return 0;
  return position;
}

}  // namespace quillmark
