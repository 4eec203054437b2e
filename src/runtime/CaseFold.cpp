// vb::FoldCase and vb::EqualsText over the generated two-level folding table.
#include "runtime/CaseFold.h"

#include <cstdint>

namespace vb {

namespace {

#include "runtime/CaseFoldTable.inc"

}  // namespace

char16_t FoldCase(char16_t unit) {
  // Deltas wrap modulo 2^16, so the addition is done in unsigned 16-bit arithmetic.
  return static_cast<char16_t>(unit + kFoldDelta[kFoldBlock[unit >> 8]][unit & 0xFF]);
}

std::u16string FoldCase(std::u16string_view text) {
  std::u16string folded(text.size(), u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) folded[i] = FoldCase(text[i]);
  return folded;
}

bool EqualsText(std::u16string_view a, std::u16string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && FoldCase(a[i]) != FoldCase(b[i])) return false;
  }
  return true;
}

}  // namespace vb
