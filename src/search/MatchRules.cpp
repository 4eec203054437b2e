// The matching rule: find, then match case, whole word and comments, in that fixed order; and the
// finder that does the case-insensitive find quickly.
#include "search/MatchRules.h"

#include "runtime/CaseFold.h"
#include "runtime/FoldTable.h"
#include "runtime/VbStrings.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quillmark {
namespace {

std::int32_t Judge(std::u16string_view line, std::int32_t position, std::u16string_view searchText,
                   const MatchOptions& options) {
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

}  // namespace

// How common an ASCII unit is in code, from rare (0) to common; letters by their frequency in
// English text, which code follows closely enough to choose where to look first.
constexpr int Commonness(char16_t unit) {
  constexpr std::u16string_view kLetters = u"zqjxkvbpgwyfmculdrhsnioate";
  if (unit >= u'a' && unit <= u'z') return 10 + static_cast<int>(kLetters.find(unit));
  if (unit >= u'0' && unit <= u'9') return 20;
  if (unit == u' ' || unit == u'(' || unit == u')' || unit == u'.' || unit == u',' || unit == u'=')
    return 40;
  return 5;  // other punctuation is rare in code
}

FoldedFinder::FoldedFinder(std::u16string_view searchText)
    : searchText_(searchText), folded_(vb::FoldCase(searchText)) {
  int best = 1000;
  for (std::size_t i = 0; i < folded_.size(); ++i) {
    if (folded_[i] >= 0x80 || Commonness(folded_[i]) >= best) continue;
    best = Commonness(folded_[i]);
    anchor_ = i;
  }
  if (best == 1000) return;  // nothing ASCII to look for: the general search does it
  scannable_ = true;
  anchorUnit_ = folded_[anchor_];
  // A folded ASCII letter is lower case; OR-ing 0x20 maps its upper case onto it and no other
  // ASCII unit. Any other ASCII unit is matched exactly.
  orMask_ = (anchorUnit_ >= u'a' && anchorUnit_ <= u'z') ? 0x20 : 0;
}

bool FoldedFinder::MatchesAt(std::u16string_view text, std::size_t at) const {
  for (std::size_t k = 0; k < folded_.size(); ++k)
    if (vb::fold::Unit(text[at + k]) != folded_[k]) return false;
  return true;
}

std::int32_t FoldedFinder::Find(std::int32_t start, std::u16string_view text) const {
  std::size_t n = folded_.size();
  if (!scannable_ || start < 1 || static_cast<std::size_t>(start) > text.size() ||
      n > text.size() - (start - 1))
    return vb::InStrFolded(start, text, folded_);
  // Anchor positions j run from the first possible match to the last; a match starts at
  // j - anchor_, so the first one verified is the leftmost.
  std::size_t j = static_cast<std::size_t>(start - 1) + anchor_;
  const std::size_t lastAnchor = text.size() - n + anchor_;
  auto verify = [&](std::size_t at) { return MatchesAt(text, at - anchor_); };
#if defined(__SSE2__)
  const __m128i orMask = _mm_set1_epi16(static_cast<short>(orMask_));
  const __m128i anchor = _mm_set1_epi16(static_cast<short>(anchorUnit_));
  const __m128i highBits = _mm_set1_epi16(static_cast<short>(0xFF80));
  const __m128i zero = _mm_setzero_si128();
  const __m128i ones = _mm_set1_epi16(-1);
  for (; j + 8 <= lastAnchor + 1; j += 8) {
    __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + j));
    __m128i hit = _mm_cmpeq_epi16(_mm_or_si128(units, orMask), anchor);
    __m128i ascii = _mm_cmpeq_epi16(_mm_and_si128(units, highBits), zero);
    int mask = _mm_movemask_epi8(_mm_or_si128(hit, _mm_andnot_si128(ascii, ones)));
    while (mask != 0) {
      std::size_t offset = static_cast<std::size_t>(__builtin_ctz(static_cast<unsigned>(mask))) / 2;
      if (verify(j + offset)) return static_cast<std::int32_t>(j + offset - anchor_ + 1);
      mask &= ~(3 << (offset * 2));
    }
  }
#endif
  for (; j <= lastAnchor; ++j) {
    char16_t u = text[j];
    if ((static_cast<char16_t>(u | orMask_) == anchorUnit_ || u >= 0x80) && verify(j))
      return static_cast<std::int32_t>(j - anchor_ + 1);
  }
  return 0;
}

std::int32_t MatchLine(std::u16string_view line, std::int32_t start, std::u16string_view searchText,
                       std::u16string_view foldedSearch, const MatchOptions& options) {
  return Judge(line, vb::InStrFolded(start, line, foldedSearch), searchText, options);
}

std::int32_t MatchLine(std::u16string_view line, std::int32_t start, const FoldedFinder& finder,
                       const MatchOptions& options) {
  return Judge(line, finder.Find(start, line), finder.SearchText(), options);
}

}  // namespace quillmark
