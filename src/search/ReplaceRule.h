// quillmark::ReplaceInLine: how Replace rewrites one line of code, as a pure function.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace quillmark {

// Finds the occurrence at or after a 1-based start that passes the search's options, else 0
// (frmSearch::MatchText).
using LineMatcher = std::function<std::int32_t(std::u16string_view line, std::int32_t start)>;

// `line` with the occurrences of `searchText` that `match` finds replaced by `replaceText`.
// Each replacement resumes the search right after the inserted text, so a replacement that holds
// the search text is not replaced again; the first occurrence that fails the options ends the
// line, even when a later one would pass. Intended. An empty search text replaces nothing.
std::u16string ReplaceInLine(std::u16string_view line, std::u16string_view searchText,
                             std::u16string_view replaceText, const LineMatcher& match);

}  // namespace quillmark
