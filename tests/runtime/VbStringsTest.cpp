// Tests of the VB string and conversion functions: VB's edge rules, case by case.
#include "runtime/VbStrings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "runtime/CaseFold.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"
#include "support/VbErrorOf.h"

namespace vb {
namespace {

std::string Show(std::u16string_view text) {
  return "\"" + ToUtf8(text) + "\"";
}

using qmtest::ErrorNumberOf;

// --- InStr ---

struct InStrCase {
  std::int32_t start;
  std::u16string text;
  std::u16string find;
  std::int32_t position;
};

void ExpectInStr(const std::vector<InStrCase>& cases, CompareMethod compare) {
  for (const InStrCase& c : cases) {
    EXPECT_EQ(InStr(c.start, c.text, c.find, compare), c.position)
        << "InStr(" << c.start << ", " << Show(c.text) << ", " << Show(c.find) << ")";
  }
}

TEST(InStr, EdgeRulesHoldForBothComparisons) {
  const std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  const std::vector<InStrCase> cases = {
      {1, u"", u"", 0},     {1, u"", u"a", 0},       {5, u"", u"", 0},      {1, u"abc", u"", 1},
      {3, u"abc", u"", 3},  {4, u"abc", u"", 4},     {5, u"abc", u"", 0},   {kMax, u"abc", u"", 0},
      {4, u"abc", u"c", 0}, {kMax, u"abc", u"a", 0}, {1, u"ab", u"abc", 0}, {2, u"abc", u"abc", 0},
  };
  ExpectInStr(cases, CompareMethod::Binary);
  ExpectInStr(cases, CompareMethod::Text);
}

TEST(InStr, BinaryComparesCodeUnits) {
  ExpectInStr({{1, u"abcabc", u"bc", 2},
               {3, u"abcabc", u"bc", 5},
               {6, u"abcabc", u"bc", 0},
               {1, u"abc", u"d", 0},
               {1, u"abc", u"ABC", 0},
               {1, u"aaa", u"aa", 1},
               {2, u"aaa", u"aa", 2},
               {3, u"aaa", u"aa", 0},
               {1, u"x\xDC81y", u"\xDC81", 2}},
              CompareMethod::Binary);
}

TEST(InStr, TextFoldsCase) {
  ExpectInStr({{1, u"Hello World", u"WORLD", 7},
               {1, u"Dim x As Long", u"as", 7},
               {1, u"aaAB", u"ab", 3},
               {4, u"abcABC", u"Bc", 5},
               {1, u"\u039F\u0394\u039F\u03A3", u"\u03BF\u03B4\u03BF\u03C2", 1},
               {1, u"abc KELVIN", u"\u212Aelvin", 5},
               {1, u"\u00C9T\u00C9", u"t\u00E9", 2},
               // Simple folding: no one-to-many expansions, no Turkish dotted I.
               {1, u"Stra\u00DFe", u"STRASSE", 0},
               {1, u"\u0130", u"i", 0},
               {1, u"abc", u"abd", 0}},
              CompareMethod::Text);
}

TEST(InStr, StartBelowOneIsAnInvalidCall) {
  for (std::int32_t start : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(ErrorNumberOf([&] { InStr(start, u"abc", u"a"); }), 5) << start;
    EXPECT_EQ(ErrorNumberOf([&] { InStr(start, u"", u"", CompareMethod::Text); }), 5) << start;
    EXPECT_EQ(ErrorNumberOf([&] { InStrFolded(start, u"abc", u"a"); }), 5) << start;
  }
}

TEST(InStrFolded, AgreesWithTextInStr) {
  const std::u16string text = u"Private Sub Form_Load()\u00C9t\u00E9 \u03A3";
  for (std::u16string find : {u"SUB", u"form_", u"\u00E9T\u00C9", u"\u03C2", u"", u"x"}) {
    for (std::int32_t start = 1; start <= static_cast<std::int32_t>(text.size()) + 2; ++start) {
      EXPECT_EQ(InStrFolded(start, text, FoldCase(find)),
                InStr(start, text, find, CompareMethod::Text))
          << Show(find) << " from " << start;
    }
  }
}

// --- Trim, Left, Mid, Right ---

TEST(Trim, RemovesSpacesOnly) {
  struct Case {
    std::u16string text, trim, ltrim, rtrim;
  };
  const Case cases[] = {
      {u"  a b  ", u"a b", u"a b  ", u"  a b"},
      {u"\ta\t", u"\ta\t", u"\ta\t", u"\ta\t"},
      {u" \t x \t ", u"\t x \t", u"\t x \t ", u" \t x \t"},
      {u"\u00A0a\u00A0", u"\u00A0a\u00A0", u"\u00A0a\u00A0", u"\u00A0a\u00A0"},
      {u"   ", u"", u"", u""},
      {u"", u"", u"", u""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Trim(c.text), c.trim) << Show(c.text);
    EXPECT_EQ(LTrim(c.text), c.ltrim) << Show(c.text);
    EXPECT_EQ(RTrim(c.text), c.rtrim) << Show(c.text);
  }
}

TEST(LeftRightMid, CutAtTheEnds) {
  struct Case {
    const char* call;
    std::u16string result, expected;
  };
  const Case cases[] = {
      {"Left(abc, 0)", Left(u"abc", 0), u""},
      {"Left(abc, 2)", Left(u"abc", 2), u"ab"},
      {"Left(abc, 5)", Left(u"abc", 5), u"abc"},
      {"Left(, 1)", Left(u"", 1), u""},
      {"Right(abc, 0)", Right(u"abc", 0), u""},
      {"Right(abc, 2)", Right(u"abc", 2), u"bc"},
      {"Right(abc, 5)", Right(u"abc", 5), u"abc"},
      {"Mid(abcdef, 2, 3)", Mid(u"abcdef", 2, 3), u"bcd"},
      {"Mid(abcdef, 2)", Mid(u"abcdef", 2), u"bcdef"},
      {"Mid(abc, 3, 10)", Mid(u"abc", 3, 10), u"c"},
      {"Mid(abc, 1, 0)", Mid(u"abc", 1, 0), u""},
      {"Mid(abc, 4)", Mid(u"abc", 4), u""},
      {"Mid(abc, 10, 2)", Mid(u"abc", 10, 2), u""},
      {"Mid(, 1)", Mid(u"", 1), u""},
  };
  for (const Case& c : cases) EXPECT_EQ(c.result, c.expected) << c.call;
}

TEST(LeftRightMid, NegativeLengthOrStartBelowOneIsAnInvalidCall) {
  EXPECT_EQ(ErrorNumberOf([] { Left(u"abc", -1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { Right(u"abc", -1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { Mid(u"abc", 0); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { Mid(u"abc", -3, 1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { Mid(u"abc", 1, -2); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { Mid(u"abc", 1, -1); }), 0);
}

// --- Val ---

struct ValCase {
  std::u16string text;
  double value;
};

// In order: decimals; blanks, tabs and line feeds skipped anywhere; exponents with E or D; hex and
// octal literals read as Integer or Long; text that is not a number, which gives zero.
TEST(Val, ReadsTheLeadingNumberAsVbDoes) {
  const ValCase cases[] = {{u"12", 12},
                           {u"12abc", 12},
                           {u"+5", 5},
                           {u"-12", -12},
                           {u".5", 0.5},
                           {u"-.5", -0.5},
                           {u"1.2.3", 1.2},
                           {u"1.5e1x", 15},
                           {u"1,000", 1},
                           {u"-0", 0},
                           {u"007", 7},
                           {u"123456789012345678", 1.23456789012345678e17},
                           {u"    1615 198th Street N.E.", 1615198},
                           {u"\t-12", -12},
                           {u"- 12", -12},
                           {u"1 2 3", 123},
                           {u"12\n34", 1234},
                           {u"1 . 5 e 2", 150},
                           {u"\r12", 0},
                           {u"1\r2", 1},
                           {u"1e3", 1000},
                           {u"1E+3", 1000},
                           {u"2E-2", 0.02},
                           {u"1D3", 1000},
                           {u"1d-1", 0.1},
                           {u"1e", 1},
                           {u"1e+", 1},
                           {u"1e3e4", 1000},
                           {u"1e-400", 0},
                           {u"&H10", 16},
                           {u"&hff", 255},
                           {u"&O17", 15},
                           {u"&o17", 15},
                           {u"&HFFFF", -1},
                           {u"&H8000", -32768},
                           {u"&H7FFF", 32767},
                           {u"&HFFFF&", 65535},
                           {u"&H10000", 65536},
                           {u"&HFFFFFFFF", -1},
                           {u"&H80000000", -2147483648.0},
                           {u"&O177777", -1},
                           {u"&H1G", 1},
                           {u"& H 1 0", 16},
                           {u"&H0000000010", 16},
                           {u"", 0},
                           {u"abc", 0},
                           {u".", 0},
                           {u"-", 0},
                           {u"--5", 0},
                           {u"$12", 0},
                           {u"0x1A", 0},
                           {u"&", 0},
                           {u"&H", 0},
                           {u"&Z1", 0},
                           {u"&O8", 0},
                           {u"e3", 0},
                           {u"-&H10", 0},
                           {u"(1)", 0},
                           {u"\u0661", 0}};
  for (const ValCase& c : cases) {
    const double value = Val(c.text);
    EXPECT_EQ(value, c.value) << "Val(" << Show(c.text) << ")";
    EXPECT_FALSE(std::signbit(value) && value == 0) << "negative zero from " << Show(c.text);
  }
}

TEST(Val, BeyondADoubleOrALongOverflows) {
  for (std::u16string text : {u"1e400", u"-1e400", u"&H100000000", u"&O40000000000"}) {
    EXPECT_EQ(ErrorNumberOf([&] { Val(text); }), 6) << Show(text);
  }
}

// --- IsNumeric ---

TEST(IsNumeric, AcceptsVbNumericTextOnly) {
  for (std::u16string text :
       {u"12",     u" 12 ",   u"\t12\t", u"-12",      u"+12",  u"12-",  u"12+",
        u"1,000",  u"1,,000", u"1.",     u".5",       u"-.5",  u"1e5",  u"1E+2",
        u"1.5E-3", u"1d3",    u"$12",    u"-$12",     u"$-12", u"(12)", u"$(1,000.50)",
        u"&H1F",   u"&hff",   u"&O17",   u"  &H10  ", u"0"}) {
    EXPECT_TRUE(IsNumeric(text)) << Show(text);
  }
  for (std::u16string text :
       {u"",    u" ",     u"-",       u"+",     u"$",           u"12a",   u"1 2", u"1.2.3",
        u"1e",  u"1e+",   u".",       u",1",    u"&H",          u"&HG",   u"&O8", u"&H1 0",
        u"(12", u"12)",   u"(-12)",   u"-12-",  u"--1",         u"0x10",  u"12$", u"1.,5",
        u"abc", u"-&H10", u"&HFFFF&", u"1e400", u"&H100000000", u"\u0661"}) {
    EXPECT_FALSE(IsNumeric(text)) << Show(text);
  }
}

// --- CInt and CLng ---

struct RoundCase {
  double value;
  std::int32_t rounded;
};

TEST(CInt, RoundsHalfToEven) {
  const RoundCase cases[] = {
      {2.5, 2},         {3.5, 4},           {-2.5, -2},         {-3.5, -4},  {0.5, 0},
      {1.5, 2},         {-0.5, 0},          {2.4999, 2},        {2.5001, 3}, {32767, 32767},
      {32767.4, 32767}, {-32768.5, -32768}, {-32767.5, -32768}, {0, 0}};
  for (const RoundCase& c : cases) EXPECT_EQ(CInt(c.value), c.rounded) << c.value;
}

TEST(CLng, RoundsHalfToEven) {
  const RoundCase cases[] = {{2.5, 2},
                             {-3.5, -4},
                             {2147483647.4, 2147483647},
                             {2147483646.5, 2147483646},
                             {-2147483648.5, std::numeric_limits<std::int32_t>::min()},
                             {1e9 + 0.5, 1000000000}};
  for (const RoundCase& c : cases) EXPECT_EQ(CLng(c.value), c.rounded) << c.value;
}

TEST(CIntCLng, OutOfRangeOverflows) {
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (double value : {32767.5, 32768.0, -32768.50001, -32769.0, 1e10, inf, -inf, nan}) {
    EXPECT_EQ(ErrorNumberOf([&] { CInt(value); }), 6) << value;
  }
  for (double value : {2147483647.5, 2147483648.0, -2147483648.6, 1e10, inf, nan}) {
    EXPECT_EQ(ErrorNumberOf([&] { CLng(value); }), 6) << value;
  }
}

TEST(CIntCLng, ConvertNumericText) {
  struct Case {
    std::u16string text;
    std::int32_t value;
  };
  const Case cases[] = {{u"12", 12},      {u" 12 ", 12},      {u"2.5", 2},    {u"3.5", 4},
                        {u"1,000", 1000}, {u"$12", 12},       {u"(12)", -12}, {u"12-", -12},
                        {u"&HFFFF", -1},  {u"&H7FFF", 32767}, {u"1e3", 1000}, {u"-32768", -32768}};
  for (const Case& c : cases) {
    EXPECT_EQ(CInt(c.text), c.value) << Show(c.text);
    EXPECT_EQ(CLng(c.text), c.value) << Show(c.text);
  }
  EXPECT_EQ(CLng(u"&HFFFFFFFF"), -1);
  EXPECT_EQ(CLng(u"&H10000"), 65536);
  EXPECT_EQ(CLng(u"100000"), 100000);
}

TEST(CIntCLng, TextErrorsNameTheTextAndTheirNumber) {
  struct Case {
    std::u16string text;
    int cintError;
    int clngError;
  };
  const Case cases[] = {{u"abc", 13, 13},      {u"", 13, 13},    {u"12a", 13, 13},
                        {u"1 2", 13, 13},      {u"32768", 6, 0}, {u"&H10000", 6, 0},
                        {u"2147483648", 6, 6}, {u"1e400", 6, 6}, {u"&H100000000", 6, 6}};
  for (const Case& c : cases) {
    EXPECT_EQ(ErrorNumberOf([&] { CInt(c.text); }), c.cintError) << Show(c.text);
    EXPECT_EQ(ErrorNumberOf([&] { CLng(c.text); }), c.clngError) << Show(c.text);
  }
  EXPECT_EQ(qmtest::ErrorOf([] { CInt(u"abc"); }).Description(), u"Type mismatch: \"abc\"");
}

// --- DateDiff("n") ---

Date At(int year, int month, int day, int hour, int minute, int second, int millisecond = 0) {
  using namespace std::chrono;
  const sys_days date = std::chrono::year{year} / month / day;
  return Date{date} + hours{hour} + minutes{minute} + seconds{second} + milliseconds{millisecond};
}

TEST(DateDiffMinutes, CountsMinuteBoundariesCrossed) {
  struct Case {
    const char* what;
    Date from, to;
    std::int64_t minutes;
  };
  const Case cases[] = {
      {"one second across a boundary", At(2024, 3, 1, 10, 0, 59), At(2024, 3, 1, 10, 1, 0), 1},
      {"59.999 seconds within a minute", At(2024, 3, 1, 10, 0, 0), At(2024, 3, 1, 10, 0, 59, 999),
       0},
      {"reversed across a boundary", At(2024, 3, 1, 10, 1, 0), At(2024, 3, 1, 10, 0, 59), -1},
      {"reversed within a minute", At(2024, 3, 1, 10, 0, 30), At(2024, 3, 1, 10, 0, 0), 0},
      {"same instant", At(2024, 3, 1, 10, 0, 0), At(2024, 3, 1, 10, 0, 0), 0},
      {"an hour", At(2024, 3, 1, 10, 0, 0), At(2024, 3, 1, 11, 0, 0), 60},
      {"an hour less a second", At(2024, 3, 1, 10, 0, 1), At(2024, 3, 1, 11, 0, 0), 60},
      {"midnight", At(2024, 3, 1, 23, 59, 59), At(2024, 3, 2, 0, 0, 0), 1},
      {"a leap day", At(2024, 2, 28, 12, 0, 0), At(2024, 3, 1, 12, 0, 0), 2 * 1440},
      {"before 1970", At(1969, 12, 31, 23, 59, 30), At(1970, 1, 1, 0, 0, 30), 1},
      {"before 1970 within a minute", At(1969, 12, 31, 23, 58, 10), At(1969, 12, 31, 23, 58, 50),
       0},
      {"VB's day zero", At(1899, 12, 30, 0, 0, 0), At(1899, 12, 30, 0, 1, 0), 1},
  };
  for (const Case& c : cases) EXPECT_EQ(DateDiffMinutes(c.from, c.to), c.minutes) << c.what;
}

// --- CStr ---

TEST(CStr, PrintsWholeNumbers) {
  EXPECT_EQ(CStr(std::int64_t{0}), u"0");
  EXPECT_EQ(CStr(std::int64_t{1440}), u"1440");
  EXPECT_EQ(CStr(std::int64_t{-3}), u"-3");
  EXPECT_EQ(CStr(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(CStr, PrintsDoublesWithFifteenSignificantDigits) {
  struct Case {
    double value;
    std::u16string text;
  };
  const Case cases[] = {{12.5, u"12.5"},
                        {-3.0, u"-3"},
                        {1440.0, u"1440"},
                        {0.0, u"0"},
                        {-0.0, u"0"},
                        {0.1 + 0.2, u"0.3"},
                        {1.0 / 3, u"0.333333333333333"},
                        {2.0 / 3, u"0.666666666666667"},
                        {-0.5, u"-0.5"},
                        {1234567.891, u"1234567.891"},
                        {123456789012345.0, u"123456789012345"},
                        {1e14, u"100000000000000"},
                        {1e15, u"1E+15"},
                        {1.5e300, u"1.5E+300"},
                        {0.0001, u"0.0001"},
                        {1e-5, u"1E-05"},
                        {-2.5e-7, u"-2.5E-07"}};
  for (const Case& c : cases) EXPECT_EQ(CStr(c.value), c.text) << c.value;
}

}  // namespace
}  // namespace vb
