// The rule that decides whether a line of code matches the search text, as a pure function.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

struct MatchOptions {
  bool matchCase = false;
  bool wholeWord = false;
  bool excludeComments = false;
};

// Only ASCII letters and digits join a word: the underscore, other punctuation and every
// character above 127 are delimiters. Intended.
constexpr bool IsWordCharacter(char16_t c) {
  return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

// A line is a comment only when its first character after leading spaces is an apostrophe:
// "Rem", trailing comments and lines indented with tabs are searched as code. Intended.
constexpr bool IsCommentLine(std::u16string_view line) {
  auto first = line.find_first_not_of(u' ');
  return first != std::u16string_view::npos && line[first] == u'\'';
}

// InStr with text comparison for one search text, set up once per search: the same answers as
// vb::InStrFolded, found by scanning for the units that can start a match (eight at a time where
// the processor allows) and comparing folded units only there.
class FoldedFinder {
 public:
  explicit FoldedFinder(std::u16string_view searchText = {});
  const std::u16string& SearchText() const { return searchText_; }
  const std::u16string& Folded() const { return folded_; }
  // The 1-based position of the first occurrence at or after `start`, or 0. A start below 1
  // raises error 5.
  std::int32_t Find(std::int32_t start, std::u16string_view text) const;

 private:
  bool MatchesAt(std::u16string_view text, std::size_t at) const;
  std::u16string searchText_;
  std::u16string folded_;
  // The scan looks for the rarest ASCII unit of the search text (its "anchor", at `anchor_`)
  // rather than the first: a unit u is a candidate when (u | orMask) == anchor, or when u is 0x80
  // or above (the few non-ASCII units that fold to ASCII are checked by folding).
  std::size_t anchor_ = 0;
  char16_t anchorUnit_ = 0;
  char16_t orMask_ = 0;
  bool scannable_ = false;
};

// The 1-based position of the first case-insensitive occurrence of `searchText` in `line` at or
// after `start`, or 0 when there is none or when that occurrence fails the options. Only the
// first occurrence is judged: a later one that would pass is never looked at. Intended.
// `foldedSearch` is FoldCase(searchText), folded once per search by the caller. A start below 1
// raises error 5, as InStr does.
std::int32_t MatchLine(std::u16string_view line, std::int32_t start, std::u16string_view searchText,
                       std::u16string_view foldedSearch, const MatchOptions& options);
// The same rule with the search text's finder.
std::int32_t MatchLine(std::u16string_view line, std::int32_t start, const FoldedFinder& finder,
                       const MatchOptions& options);

}  // namespace quillmark
