// The matching rule: find, then match case, whole word and comments, in that fixed order; and the
// finder that does the case-insensitive find quickly.
#include "search/MatchRules.h"


#include "runtime/CaseFold.h"
#include "runtime/FoldTable.h"
#include "runtime/VbStrings.h"

#if defined(__SSE2__)
#include <emmintrin.h>

#include <utility>
#endif
#if defined(__x86_64__)
#include <immintrin.h>
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

FoldedFinder::FoldedFinder(std::u16string_view searchText, ScanWidth width)
    : searchText_(searchText), folded_(vb::FoldCase(searchText)) {
  // The two rarest ASCII units at different offsets; the second is the first when only one is.
  int best = 1000, next = 1000;
  std::size_t bestAt = 0, nextAt = 0;
  for (std::size_t i = 0; i < folded_.size(); ++i) {
    if (folded_[i] >= 0x80) continue;
    int commonness = Commonness(folded_[i]);
    if (commonness < best) {
      next = best;
      nextAt = bestAt;
      best = commonness;
      bestAt = i;
    } else if (commonness < next) {
      next = commonness;
      nextAt = i;
    }
  }
  if (best == 1000) return;  // nothing ASCII to look for: the general search does it
  if (next == 1000) nextAt = bestAt;
  scannable_ = true;
  auto anchor = [this](std::size_t at) {
    char16_t unit = folded_[at];
    // A folded ASCII letter is lower case; OR-ing 0x20 maps its upper case onto it and no other
    // ASCII unit. Any other ASCII unit is matched exactly.
    return Anchor{at, unit, static_cast<char16_t>((unit >= u'a' && unit <= u'z') ? 0x20 : 0)};
  };
  first_ = anchor(bestAt);
  second_ = anchor(nextAt);
#if defined(__x86_64__)
  __builtin_cpu_init();
  wide_ = width == ScanWidth::Widest && __builtin_cpu_supports("avx2");
#endif
}

bool FoldedFinder::MatchesAt(std::u16string_view text, std::size_t at) const {
  for (std::size_t k = 0; k < folded_.size(); ++k)
    if (vb::fold::Unit(text[at + k]) != folded_[k]) return false;
  return true;
}

bool FoldedFinder::Candidate(std::u16string_view text, std::size_t start) const {
  auto fits = [&](const Anchor& a) {
    char16_t u = text[start + a.offset];
    return static_cast<char16_t>(u | a.mask) == a.unit || u >= 0x80;
  };
  return fits(first_) && fits(second_);
}

// Match starts from..last, eight at a time; the last block overlaps the one before it rather
// than leaving a tail to test unit by unit. Needs last - from + 1 >= 8.
std::int32_t FoldedFinder::ScanBlocks(std::u16string_view text, std::size_t from,
                                      std::size_t last) const {
#if defined(__SSE2__)
  auto lanes = [](const Anchor& a) {
    return std::pair{_mm_set1_epi16(static_cast<short>(a.mask)),
                     _mm_set1_epi16(static_cast<short>(a.unit))};
  };
  const auto [mask1, unit1] = lanes(first_);
  const auto [mask2, unit2] = lanes(second_);
  const __m128i highBits = _mm_set1_epi16(static_cast<short>(0xFF80));
  const __m128i zero = _mm_setzero_si128();
  // A lane is a candidate for one anchor when it folds onto it or is not ASCII.
  auto fits = [&](std::size_t at, __m128i mask, __m128i unit) {
    __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + at));
    __m128i hit = _mm_cmpeq_epi16(_mm_or_si128(units, mask), unit);
    __m128i ascii = _mm_cmpeq_epi16(_mm_and_si128(units, highBits), zero);
    return _mm_or_si128(hit, _mm_xor_si128(ascii, _mm_set1_epi16(-1)));
  };
  std::size_t checkedTo = from;  // starts below this were looked at
  for (std::size_t s = from;; s += 8) {
    if (s + 7 > last) s = last - 7;  // the overlapping last block
    __m128i both = _mm_and_si128(fits(s + first_.offset, mask1, unit1),
                                 fits(s + second_.offset, mask2, unit2));
    unsigned bits = static_cast<unsigned>(_mm_movemask_epi8(both));
    if (s < checkedTo) bits &= ~0u << ((checkedTo - s) * 2);
    while (bits != 0) {
      std::size_t at = s + static_cast<std::size_t>(__builtin_ctz(bits)) / 2;
      if (MatchesAt(text, at)) return static_cast<std::int32_t>(at + 1);
      bits &= ~(3u << ((at - s) * 2));
    }
    checkedTo = s + 8;
    if (s + 7 == last) return 0;
  }
#else
  for (std::size_t s = from; s <= last; ++s)
    if (Candidate(text, s) && MatchesAt(text, s)) return static_cast<std::int32_t>(s + 1);
  return 0;
#endif
}

#if defined(__x86_64__)
// The scan above, sixteen units at a time, for processors with AVX2 (asked when the finder is
// made). Needs last - from + 1 >= 16. A body of its own: the wider intrinsics must sit in a
// function compiled for AVX2, which the rest of the program does not assume.
__attribute__((target("avx2"))) std::int32_t FoldedFinder::ScanWide(std::u16string_view text,
                                                                   std::size_t from,
                                                                   std::size_t last) const {
  const __m256i mask1 = _mm256_set1_epi16(static_cast<short>(first_.mask));
  const __m256i unit1 = _mm256_set1_epi16(static_cast<short>(first_.unit));
  const __m256i mask2 = _mm256_set1_epi16(static_cast<short>(second_.mask));
  const __m256i unit2 = _mm256_set1_epi16(static_cast<short>(second_.unit));
  const __m256i highBits = _mm256_set1_epi16(static_cast<short>(0xFF80));
  const __m256i zero = _mm256_setzero_si256();
  const __m256i ones = _mm256_set1_epi16(-1);
  const char16_t* data = text.data();
  std::size_t checkedTo = from;
  for (std::size_t s = from;; s += 16) {
    if (s + 15 > last) s = last - 15;
    __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(data + s + first_.offset));
    __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(data + s + second_.offset));
    __m256i fitsA =
        _mm256_or_si256(_mm256_cmpeq_epi16(_mm256_or_si256(a, mask1), unit1),
                        _mm256_xor_si256(_mm256_cmpeq_epi16(_mm256_and_si256(a, highBits), zero), ones));
    __m256i fitsB =
        _mm256_or_si256(_mm256_cmpeq_epi16(_mm256_or_si256(b, mask2), unit2),
                        _mm256_xor_si256(_mm256_cmpeq_epi16(_mm256_and_si256(b, highBits), zero), ones));
    auto bits = static_cast<unsigned>(_mm256_movemask_epi8(_mm256_and_si256(fitsA, fitsB)));
    if (s < checkedTo) bits &= ~0u << ((checkedTo - s) * 2);
    while (bits != 0) {
      std::size_t at = s + static_cast<std::size_t>(__builtin_ctz(bits)) / 2;
      if (MatchesAt(text, at)) return static_cast<std::int32_t>(at + 1);
      bits &= ~(3u << ((at - s) * 2));
    }
    checkedTo = s + 16;
    if (s + 15 == last) return 0;
  }
}
#endif

std::int32_t FoldedFinder::Find(std::int32_t start, std::u16string_view text) const {
  std::size_t n = folded_.size();
  if (!scannable_ || start < 1 || static_cast<std::size_t>(start) > text.size() ||
      n > text.size() - (start - 1))
    return vb::InStrFolded(start, text, folded_);
  // Match starts run from start - 1 to the last one that leaves room for the search text; the
  // first one verified is the leftmost.
  std::size_t from = static_cast<std::size_t>(start - 1);
  const std::size_t last = text.size() - n;
#if defined(__x86_64__)
  if (wide_ && last - from + 1 >= 16) return ScanWide(text, from, last);
#endif
  if (last - from + 1 >= 8) return ScanBlocks(text, from, last);
  for (std::size_t s = from; s <= last; ++s)
    if (Candidate(text, s) && MatchesAt(text, s)) return static_cast<std::int32_t>(s + 1);
  return 0;
}

void LinesHolding(std::span<const std::u16string_view> lines, const FoldedFinder& finder,
                  std::vector<std::uint32_t>& out) {
  auto end = [&](std::size_t i) { return lines[i].data() + lines[i].size(); };
  for (std::size_t first = 0; first < lines.size();) {
    // The run of lines first..last-1, each starting where the one before ends.
    std::size_t last = first + 1;
    while (last < lines.size() && end(last - 1) == lines[last].data()) ++last;
    std::u16string_view run(lines[first].data(),
                            static_cast<std::size_t>(end(last - 1) - lines[first].data()));
    for (std::size_t line = first; line < last;) {
      if (finder.Folded().empty()) {
        out.push_back(static_cast<std::uint32_t>(line++));
        continue;
      }
      auto from = static_cast<std::int32_t>(lines[line].data() - run.data());
      std::int32_t found = from < static_cast<std::int32_t>(run.size()) ? finder.Find(from + 1, run) : 0;
      if (found == 0) break;
      const char16_t* at = run.data() + (found - 1);
      while (end(line) <= at) ++line;
      // One that runs into the next line is not in this one, and no later one can be.
      if (at + finder.Folded().size() <= end(line)) out.push_back(static_cast<std::uint32_t>(line));
      ++line;
    }
    first = last;
  }
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
