// quillmark::ReplaceInLine.
#include "search/ReplaceRule.h"

#include "runtime/VbStrings.h"

namespace quillmark {

std::u16string ReplaceInLine(std::u16string_view line, std::u16string_view searchText,
                             std::u16string_view replaceText, const LineMatcher& match) {
  std::u16string result(line);
  if (searchText.empty()) return result;  // it would insert the replacement forever
  auto searchLength = static_cast<std::int32_t>(searchText.size());
  auto replaceLength = static_cast<std::int32_t>(replaceText.size());
  for (std::int32_t at = match(result, 1); at != 0; at = match(result, at + replaceLength))
    result =
        vb::Left(result, at - 1) + std::u16string(replaceText) + vb::Mid(result, at + searchLength);
  return result;
}

}  // namespace quillmark
