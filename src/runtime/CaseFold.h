// vb::FoldCase: Unicode simple case folding of the BMP, the basis of VB's text comparison.
#pragma once

#include <string>
#include <string_view>

namespace vb {

// The simple (one-to-one) case folding of a UTF-16 unit; units without a folding, surrogates
// included, map to themselves. From a table generated from Unicode's CaseFolding.txt
// (statuses C and S) by tools/gen_casefold.py.
char16_t FoldCase(char16_t unit);

std::u16string FoldCase(std::u16string_view text);

// Equality under FoldCase, unit by unit (vbTextCompare's equality).
bool EqualsText(std::u16string_view a, std::u16string_view b);

}  // namespace vb
