// The VB string and conversion functions, with VB's edge rules.
#include "runtime/VbStrings.h"

#include <charconv>
#include <cmath>
#include <string>

#include "runtime/Error.h"
#include "runtime/FoldTable.h"
#include "runtime/NumericText.h"

namespace vb {

namespace {

std::u16string Widen(std::string_view ascii) {
  return std::u16string(ascii.begin(), ascii.end());
}

std::u16string Quoted(std::u16string_view text) {
  std::u16string quoted = u"\"";
  quoted += text;
  quoted += u'"';
  return quoted;
}

[[noreturn]] void ThrowInvalidArgument(std::u16string_view name, std::int64_t value) {
  throw Error::Standard(err::kInvalidProcedureCall, std::u16string(name) + u" " + CStr(value));
}

void CheckStart(std::int32_t start) {
  if (start < 1) ThrowInvalidArgument(u"start", start);
}

// The edge rules of InStr, or -1 when the text must be searched. `start` is already >= 1.
std::int64_t InStrEdge(std::int64_t start, std::size_t textLength, std::size_t findLength) {
  const auto length = static_cast<std::int64_t>(textLength);
  if (length == 0) return 0;
  if (findLength == 0) return start <= length + 1 ? start : 0;
  if (start > length || static_cast<std::int64_t>(findLength) > length - start + 1) return 0;
  return -1;
}

std::int32_t InStrBinary(std::int32_t start, std::u16string_view text, std::u16string_view find) {
  const std::int64_t edge = InStrEdge(start, text.size(), find.size());
  if (edge >= 0) return static_cast<std::int32_t>(edge);
  const std::size_t at = text.find(find, static_cast<std::size_t>(start - 1));
  return at == std::u16string_view::npos ? 0 : static_cast<std::int32_t>(at + 1);
}

// Rounds half to even whatever the floating-point environment says.
double RoundHalfEven(double value) {
  const double floor = std::floor(value);
  const double fraction = value - floor;
  if (fraction < 0.5) return floor;
  if (fraction > 0.5) return floor + 1;
  return std::fmod(floor, 2.0) == 0 ? floor : floor + 1;
}

double RoundInRange(double value, double low, double high) {
  const double rounded = RoundHalfEven(value);
  // NaN fails both comparisons, so it overflows too.
  if (!(rounded >= low && rounded <= high)) throw Error::Standard(err::kOverflow, CStr(value));
  return rounded;
}

double NumberFromText(std::u16string_view text) {
  const numeric::Parsed parsed = numeric::ReadNumericText(text);
  if (parsed.status == numeric::Status::NotNumeric) {
    throw Error::Standard(err::kTypeMismatch, Quoted(text));
  }
  if (parsed.status == numeric::Status::Overflow) {
    throw Error::Standard(err::kOverflow, Quoted(text));
  }
  return parsed.value;
}

}  // namespace

std::int32_t InStr(std::int32_t start, std::u16string_view text, std::u16string_view find,
                   CompareMethod compare) {
  CheckStart(start);
  if (compare == CompareMethod::Binary) return InStrBinary(start, text, find);
  // Short needles fold into the string's own buffer, so a typical call does not allocate.
  std::u16string folded(find.size(), u'\0');
  for (std::size_t i = 0; i < find.size(); ++i) folded[i] = fold::Unit(find[i]);
  return InStrFolded(start, text, folded);
}

std::int32_t InStrFolded(std::int32_t start, std::u16string_view text,
                         std::u16string_view foldedFind) {
  CheckStart(start);
  const std::int64_t edge = InStrEdge(start, text.size(), foldedFind.size());
  if (edge >= 0) return static_cast<std::int32_t>(edge);
  const char16_t first = foldedFind[0];
  const std::size_t last = text.size() - foldedFind.size();
  for (std::size_t at = static_cast<std::size_t>(start - 1); at <= last; ++at) {
    if (fold::Unit(text[at]) != first) continue;
    std::size_t matched = 1;
    while (matched < foldedFind.size() && fold::Unit(text[at + matched]) == foldedFind[matched]) {
      ++matched;
    }
    if (matched == foldedFind.size()) return static_cast<std::int32_t>(at + 1);
  }
  return 0;
}

std::u16string LTrim(std::u16string_view text) {
  const std::size_t first = text.find_first_not_of(u' ');
  return first == std::u16string_view::npos ? std::u16string() : std::u16string(text.substr(first));
}

std::u16string RTrim(std::u16string_view text) {
  const std::size_t last = text.find_last_not_of(u' ');
  return last == std::u16string_view::npos ? std::u16string()
                                           : std::u16string(text.substr(0, last + 1));
}

std::u16string Trim(std::u16string_view text) {
  return LTrim(RTrim(text));
}

std::u16string Left(std::u16string_view text, std::int32_t length) {
  if (length < 0) ThrowInvalidArgument(u"length", length);
  return std::u16string(text.substr(0, static_cast<std::size_t>(length)));
}

std::u16string Right(std::u16string_view text, std::int32_t length) {
  if (length < 0) ThrowInvalidArgument(u"length", length);
  const std::size_t count = std::min(text.size(), static_cast<std::size_t>(length));
  return std::u16string(text.substr(text.size() - count));
}

std::u16string Mid(std::u16string_view text, std::int32_t start, std::int32_t length) {
  CheckStart(start);
  if (length < -1) ThrowInvalidArgument(u"length", length);
  const auto from = static_cast<std::size_t>(start - 1);
  if (from >= text.size()) return {};
  if (length == -1) return std::u16string(text.substr(from));
  return std::u16string(text.substr(from, static_cast<std::size_t>(length)));
}

double Val(std::u16string_view text) {
  const numeric::Parsed parsed = numeric::ReadVal(text);
  if (parsed.status == numeric::Status::Overflow) {
    throw Error::Standard(err::kOverflow, Quoted(text));
  }
  return parsed.value;
}

bool IsNumeric(std::u16string_view text) {
  return numeric::ReadNumericText(text).status == numeric::Status::Ok;
}

std::int16_t CInt(double value) {
  return static_cast<std::int16_t>(RoundInRange(value, -32768.0, 32767.0));
}

std::int32_t CLng(double value) {
  return static_cast<std::int32_t>(RoundInRange(value, -2147483648.0, 2147483647.0));
}

std::int16_t CInt(std::u16string_view text) {
  return CInt(NumberFromText(text));
}

std::int32_t CLng(std::u16string_view text) {
  return CLng(NumberFromText(text));
}

std::int64_t DateDiffMinutes(Date from, Date to) {
  using std::chrono::floor;
  using std::chrono::minutes;
  return (floor<minutes>(to) - floor<minutes>(from)).count();
}

std::u16string CStr(std::int64_t value) {
  char buffer[24];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return Widen(std::string_view(buffer, static_cast<std::size_t>(result.ptr - buffer)));
}

// VB prints a Double with up to 15 significant digits, in E notation (two exponent digits at
// least, "1E+15", "1E-05") when the exponent is below -4 or 15 and above: C's %.15G, which
// to_chars gives without depending on the locale.
std::u16string CStr(double value) {
  if (value == 0) return u"0";
  char buffer[32];
  const auto result =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15);
  std::u16string text =
      Widen(std::string_view(buffer, static_cast<std::size_t>(result.ptr - buffer)));
  for (char16_t& unit : text) {
    if (unit == u'e') unit = u'E';
  }
  return text;
}

}  // namespace vb
