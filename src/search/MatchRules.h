// The rule that decides whether a line of code matches the search text, as a pure function.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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

// How many units the finder's scan looks at at a time: sixteen where the processor has AVX2,
// else eight; or eight always (to compare the two).
enum class ScanWidth { Widest, Eight };

// InStr with text comparison for one search text, set up once per search: the same answers as
// vb::InStrFolded, found by scanning for the units that can start a match (eight at a time where
// the processor allows) and comparing folded units only there.
class FoldedFinder {
 public:
  explicit FoldedFinder(std::u16string_view searchText = {}, ScanWidth width = ScanWidth::Widest);
  const std::u16string& SearchText() const { return searchText_; }
  const std::u16string& Folded() const { return folded_; }
  // The 1-based position of the first occurrence at or after `start`, or 0. A start below 1
  // raises error 5.
  std::int32_t Find(std::int32_t start, std::u16string_view text) const;

 private:
  bool MatchesAt(std::u16string_view text, std::size_t at) const;
  std::u16string searchText_;
  std::u16string folded_;
  // The scan looks at the two rarest ASCII units of the search text (its "anchors", at offsets
  // `first_` and `second_` of a match) rather than its first unit: a match can start at s only
  // when both text[s + first_] and text[s + second_] can fold to their anchors. A unit u can when
  // (u | mask) == anchor, or when u is 0x80 or above (the few non-ASCII units that fold to ASCII
  // are settled by folding). With one ASCII unit both anchors are that one.
  struct Anchor {
    std::size_t offset = 0;
    char16_t unit = 0;
    char16_t mask = 0;
  };
  bool Candidate(std::u16string_view text, std::size_t start) const;
  std::int32_t ScanBlocks(std::u16string_view text, std::size_t from, std::size_t last) const;
  std::int32_t ScanWide(std::u16string_view text, std::size_t from, std::size_t last) const;
  Anchor first_, second_;
  bool scannable_ = false;
  bool wide_ = false;  // sixteen units at a time (AVX2)
};

// The places in `lines` (from 0, in order) of the lines that hold the finder's search text,
// case ignored, appended to `out`; with an empty search text, every line. Lines that lie back to
// back in memory, as a loaded module's do, are scanned as one text: the scan does not stop at
// each line. An occurrence that straddles two lines counts for neither.
void LinesHolding(std::span<const std::u16string_view> lines, const FoldedFinder& finder,
                  std::vector<std::uint32_t>& out);

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
