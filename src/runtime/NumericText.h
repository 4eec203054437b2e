// vb::numeric: reading numbers out of text the way Val and IsNumeric (en-US) do.
#pragma once

#include <string_view>

namespace vb::numeric {

enum class Status { Ok, NotNumeric, Overflow };

struct Parsed {
  Status status = Status::NotNumeric;
  double value = 0;
};

// Val's reading: blanks, tabs and line feeds are skipped anywhere; the number ends at the first
// character that cannot continue it; nothing numeric gives 0. Overflow when the number is beyond
// a Double, or a radix literal beyond a Long.
Parsed ReadVal(std::u16string_view text);

// The whole text as a number: optional surrounding white space, a sign before or after, "$",
// parentheses for a negative amount, thousands separators in the integer part, an exponent with
// E or D, or an "&H"/"&O" literal. NotNumeric when anything else is left over.
Parsed ReadNumericText(std::u16string_view text);

}  // namespace vb::numeric
