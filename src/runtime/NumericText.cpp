// vb::numeric: the scanners behind Val, IsNumeric and the text forms of CInt and CLng.
#include "runtime/NumericText.h"

#include <charconv>
#include <cstdint>
#include <string>

namespace vb::numeric {

namespace {

constexpr bool IsDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}
// The characters Val skips wherever they are ("1 2" is 12); a carriage return is not one.
constexpr bool IsValBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\n';
}
// The white space allowed around numeric text.
constexpr bool IsWhite(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

// Reads a text unit by unit; for Val it steps over blanks between any two units.
class Cursor {
 public:
  Cursor(std::u16string_view text, bool skipBlanks) : text_(text), skipBlanks_(skipBlanks) {
    Skip();
  }

  bool AtEnd() const { return pos_ >= text_.size(); }
  // U+FFFF at the end: never a character any rule accepts.
  char16_t Peek() const { return AtEnd() ? u'\uFFFF' : text_[pos_]; }
  void Next() {
    ++pos_;
    Skip();
  }
  bool Accept(char16_t unit) {
    if (Peek() != unit) return false;
    Next();
    return true;
  }

 private:
  void Skip() {
    while (skipBlanks_ && pos_ < text_.size() && IsValBlank(text_[pos_])) ++pos_;
  }

  std::u16string_view text_;
  bool skipBlanks_;
  std::size_t pos_ = 0;
};

int RadixDigit(char16_t unit, int shift) {
  if (IsDigit(unit)) return unit - u'0' < (1 << shift) ? unit - u'0' : -1;
  if (shift == 4 && unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  if (shift == 4 && unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  return -1;
}

// The literal after '&': "H" or "O" and its digits. VB types such a literal Integer when it fits
// 16 bits and Long when it fits 32, so "&HFFFF" is -1; Val's trailing '&' (a Long suffix) makes
// "&HFFFF&" 65535.
Parsed ReadRadix(Cursor& cursor, bool allowLongSuffix) {
  const char16_t letter = cursor.Peek();
  int shift = 0;
  if (letter == u'H' || letter == u'h') shift = 4;
  if (letter == u'O' || letter == u'o') shift = 3;
  if (shift == 0) return {};
  cursor.Next();
  std::uint64_t value = 0;
  bool any = false;
  bool tooBig = false;
  for (int digit; (digit = RadixDigit(cursor.Peek(), shift)) >= 0; cursor.Next()) {
    any = true;
    value = value << shift | static_cast<unsigned>(digit);
    if (value > 0xFFFFFFFFu) {
      tooBig = true;
      value = 0;
    }
  }
  if (!any) return {};
  if (tooBig) return {Status::Overflow, 0};
  const bool asLong = allowLongSuffix && cursor.Accept(u'&');
  if (!asLong && value <= 0xFFFF)
    return {Status::Ok, static_cast<double>(static_cast<std::int16_t>(value))};
  return {Status::Ok,
          static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)))};
}

// Digits, then optionally '.' and more digits, copied to `out` without thousands separators.
// True when there was at least one digit.
bool ReadMantissa(Cursor& cursor, bool allowCommas, std::string& out) {
  bool any = false;
  for (char16_t unit = cursor.Peek();; unit = cursor.Peek()) {
    if (IsDigit(unit)) {
      out += static_cast<char>(unit);
      any = true;
    } else if (!(unit == u',' && allowCommas && any)) {
      break;
    }
    cursor.Next();
  }
  if (!cursor.Accept(u'.')) return any;
  out += '.';
  for (; IsDigit(cursor.Peek()); cursor.Next()) {
    out += static_cast<char>(cursor.Peek());
    any = true;
  }
  return any;
}

// E or D, an optional sign and at least one digit. Without a digit nothing is consumed, so
// "1E" reads as 1 followed by a stray "E".
bool ReadExponent(Cursor& cursor, long& exponent) {
  const Cursor start = cursor;
  const char16_t letter = cursor.Peek();
  if (letter != u'E' && letter != u'e' && letter != u'D' && letter != u'd') return false;
  cursor.Next();
  const bool negative = cursor.Accept(u'-');
  if (!negative) cursor.Accept(u'+');
  if (!IsDigit(cursor.Peek())) {
    cursor = start;
    return false;
  }
  long value = 0;
  for (; IsDigit(cursor.Peek()); cursor.Next()) {
    if (value < 1000000) value = value * 10 + (cursor.Peek() - u'0');
  }
  exponent = negative ? -value : value;
  return true;
}

// The decimal exponent of the leading digit, to tell overflow from underflow.
long Magnitude(std::string_view mantissa, long exponent) {
  const std::size_t point = mantissa.find('.');
  const std::size_t integerEnd = point == std::string_view::npos ? mantissa.size() : point;
  const std::size_t first = mantissa.find_first_not_of("0.");
  if (first == std::string_view::npos) return 0;
  if (first < integerEnd) return static_cast<long>(integerEnd - first - 1) + exponent;
  return exponent - static_cast<long>(first - integerEnd);
}

// from_chars rather than strtod: the decimal point is '.' whatever the C locale says.
Parsed ToDouble(std::string mantissa, long exponent, bool negative) {
  const long magnitude = Magnitude(mantissa, exponent);
  mantissa += 'e';
  mantissa += std::to_string(exponent);
  double value = 0;
  const auto result = std::from_chars(mantissa.data(), mantissa.data() + mantissa.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (magnitude > 0) return {Status::Overflow, 0};
    value = 0;
  }
  if (value == 0) return {Status::Ok, 0};
  return {Status::Ok, negative ? -value : value};
}

}  // namespace

Parsed ReadVal(std::u16string_view text) {
  Cursor cursor(text, true);
  if (cursor.Accept(u'&')) {
    const Parsed radix = ReadRadix(cursor, true);
    return radix.status == Status::NotNumeric ? Parsed{Status::Ok, 0} : radix;
  }
  const bool negative = cursor.Accept(u'-');
  if (!negative) cursor.Accept(u'+');
  std::string mantissa;
  if (!ReadMantissa(cursor, false, mantissa)) return {Status::Ok, 0};
  long exponent = 0;
  ReadExponent(cursor, exponent);
  return ToDouble(std::move(mantissa), exponent, negative);
}

Parsed ReadNumericText(std::u16string_view text) {
  while (!text.empty() && IsWhite(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhite(text.back())) text.remove_suffix(1);
  Cursor cursor(text, false);
  if (cursor.Accept(u'&')) {
    const Parsed radix = ReadRadix(cursor, false);
    return cursor.AtEnd() ? radix : Parsed{};
  }
  // A sign, a currency sign and an opening parenthesis may come in any order before the digits.
  bool sign = false, negative = false, dollar = false, paren = false;
  for (;;) {
    const char16_t unit = cursor.Peek();
    if (!sign && (unit == u'+' || unit == u'-')) {
      sign = true;
      negative = unit == u'-';
    } else if (!dollar && unit == u'$') {
      dollar = true;
    } else if (!paren && unit == u'(') {
      paren = true;
    } else {
      break;
    }
    cursor.Next();
  }
  std::string mantissa;
  if (!ReadMantissa(cursor, true, mantissa)) return {};
  long exponent = 0;
  ReadExponent(cursor, exponent);
  if (!sign && !paren && (cursor.Peek() == u'+' || cursor.Peek() == u'-')) {
    negative = cursor.Peek() == u'-';
    sign = true;
    cursor.Next();
  }
  if (paren && (sign || !cursor.Accept(u')'))) return {};
  if (!cursor.AtEnd()) return {};
  return ToDouble(std::move(mantissa), exponent, negative || paren);
}

}  // namespace vb::numeric
