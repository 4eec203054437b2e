// vb::FoldCase and vb::EqualsText over the generated two-level folding table.
#include "runtime/CaseFold.h"

#include "runtime/FoldTable.h"

namespace vb {

char16_t FoldCase(char16_t unit) {
  return fold::Unit(unit);
}

std::u16string FoldCase(std::u16string_view text) {
  std::u16string folded(text.size(), u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) folded[i] = fold::Unit(text[i]);
  return folded;
}

bool EqualsText(std::u16string_view a, std::u16string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && fold::Unit(a[i]) != fold::Unit(b[i])) return false;
  }
  return true;
}

}  // namespace vb
