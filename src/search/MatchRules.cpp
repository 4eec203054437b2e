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

FoldedFinder::FoldedFinder(std::u16string_view searchText)
    : searchText_(searchText), folded_(vb::FoldCase(searchText)) {
  if (folded_.empty() || folded_[0] >= 0x80) return;  // the general search does those
  first_ = folded_[0];
  asciiFirst_ = true;
  // A folded ASCII letter is lower case; OR-ing 0x20 maps its upper case onto it and no other
  // ASCII unit. Any other ASCII unit is matched exactly.
  orMask_ = (first_ >= u'a' && first_ <= u'z') ? 0x20 : 0;
}

bool FoldedFinder::MatchesAt(std::u16string_view text, std::size_t at) const {
  for (std::size_t k = 0; k < folded_.size(); ++k)
    if (vb::fold::Unit(text[at + k]) != folded_[k]) return false;
  return true;
}

std::int32_t FoldedFinder::Find(std::int32_t start, std::u16string_view text) const {
  std::size_t n = folded_.size();
  if (!asciiFirst_ || start < 1 || static_cast<std::size_t>(start) > text.size() ||
      n > text.size() - (start - 1))
    return vb::InStrFolded(start, text, folded_);
  const std::size_t last = text.size() - n;  // the last place a match can start
  std::size_t at = static_cast<std::size_t>(start - 1);
  auto candidate = [&](char16_t u) {
    return static_cast<char16_t>(u | orMask_) == first_ || u >= 0x80;
  };
#if defined(__SSE2__)
  const __m128i orMask = _mm_set1_epi16(static_cast<short>(orMask_));
  const __m128i first = _mm_set1_epi16(static_cast<short>(first_));
  const __m128i highBits = _mm_set1_epi16(static_cast<short>(0xFF80));
  const __m128i zero = _mm_setzero_si128();
  for (; at + 8 <= last + 1; at += 8) {
    __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + at));
    __m128i hit = _mm_cmpeq_epi16(_mm_or_si128(units, orMask), first);
    __m128i ascii = _mm_cmpeq_epi16(_mm_and_si128(units, highBits), zero);
    int mask = _mm_movemask_epi8(_mm_or_si128(hit, _mm_andnot_si128(ascii, _mm_set1_epi16(-1))));
    while (mask != 0) {
      std::size_t offset = static_cast<std::size_t>(__builtin_ctz(static_cast<unsigned>(mask))) / 2;
      if (MatchesAt(text, at + offset)) return static_cast<std::int32_t>(at + offset + 1);
      mask &= ~(3 << (offset * 2));
    }
  }
#endif
  for (; at <= last; ++at)
    if (candidate(text[at]) && MatchesAt(text, at)) return static_cast<std::int32_t>(at + 1);
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
