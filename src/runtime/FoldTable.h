// vb::fold::Unit: FoldCase as an inline table lookup, for loops that fold every unit they read.
#pragma once

#include <cstdint>

namespace vb::fold {

#include "runtime/CaseFoldTable.inc"

// Deltas wrap modulo 2^16, so the addition is done in unsigned 16-bit arithmetic.
inline char16_t Unit(char16_t unit) {
  return static_cast<char16_t>(unit + kFoldDelta[kFoldBlock[unit >> 8]][unit & 0xFF]);
}

}  // namespace vb::fold
