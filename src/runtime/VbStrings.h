// The VB string and conversion functions the system relies on, with VB's own edge rules.
// Positions count from 1 in UTF-16 units, as Len, InStr and Mid do.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace vb {

enum class CompareMethod { Binary = 0, Text = 1 };

// VB's Date, to the millisecond.
using Date = std::chrono::sys_time<std::chrono::milliseconds>;

// InStr(start, string1, string2, compare): the position of the first occurrence of `find` in
// `text` at or after `start`, or 0. start < 1 raises error 5. An empty `text` gives 0; an empty
// `find` gives `start` when start <= Len(text) + 1, else 0; start > Len(text) gives 0 otherwise.
// Text comparison folds case with FoldCase; binary compares code units.
std::int32_t InStr(std::int32_t start, std::u16string_view text, std::u16string_view find,
                   CompareMethod compare = CompareMethod::Binary);

// InStr with text comparison for a needle that is already FoldCase(find), so that a search over
// many lines folds its needle once. Same rules and errors as InStr.
std::int32_t InStrFolded(std::int32_t start, std::u16string_view text,
                         std::u16string_view foldedFind);

// Trim, LTrim and RTrim remove spaces (U+0020) only; tabs stay.
std::u16string Trim(std::u16string_view text);
std::u16string LTrim(std::u16string_view text);
std::u16string RTrim(std::u16string_view text);

// Left$, Mid$ and Right$. A negative length, or start < 1, raises error 5. Lengths past the end
// are cut; Mid with start past the end gives "". Mid's length -1 means "to the end".
std::u16string Left(std::u16string_view text, std::int32_t length);
std::u16string Right(std::u16string_view text, std::int32_t length);
std::u16string Mid(std::u16string_view text, std::int32_t start, std::int32_t length = -1);

// Val: the number at the start of the text, ignoring spaces, tabs and line feeds anywhere in
// it; "&H" and "&O" prefixes; a decimal point is always "."; text that does not start with a
// number gives 0. A radix literal is an Integer when it fits 16 bits ("&HFFFF" is -1) unless a
// trailing "&" makes it a Long; beyond a Double or a Long raises error 6.
double Val(std::u16string_view text);

// IsNumeric for a string: VB's rules for numeric text (surrounding spaces, a leading or
// trailing sign, one decimal point, an exponent, "&H"/"&O" literals, thousands separators and
// a currency sign in the en-US locale, parentheses for a negative amount). Text beyond a
// Double is not numeric.
bool IsNumeric(std::u16string_view text);

// CInt and CLng round half to even (banker's rounding) and raise error 6 (Overflow) outside
// their range. The string forms convert numeric text (IsNumeric) and raise 13 otherwise (6 when
// the text is a number beyond a Double or the type). Error descriptions name the value.
std::int16_t CInt(double value);
std::int32_t CLng(double value);
std::int16_t CInt(std::u16string_view text);
std::int32_t CLng(std::u16string_view text);

// DateDiff("n", from, to): the number of minute boundaries crossed from `from` to `to`
// (negative when `to` is earlier), not the elapsed minutes rounded.
std::int64_t DateDiffMinutes(Date from, Date to);

// CStr of a whole number, and of a Single/Double as VB prints it ("1440", "12.5", "-3").
std::u16string CStr(std::int64_t value);
std::u16string CStr(double value);

}  // namespace vb
