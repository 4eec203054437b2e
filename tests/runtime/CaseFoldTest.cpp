// Tests of vb::FoldCase and vb::EqualsText: VB's case-insensitive text comparison.
#include "runtime/CaseFold.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace vb {
namespace {

struct FoldCase1 {
  const char* what;
  char16_t unit;
  char16_t folded;
};

std::string UnitName(char16_t unit) {
  char text[8];
  std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(unit));
  return text;
}

// Simple case folding: letters fold, symbols that are letters fold to them, everything else,
// surrogates and byte escapes included, stays itself.
TEST(FoldCase, FoldsEachUnitByTheSimpleFolding) {
  const FoldCase1 cases[] = {
      {"A", u'A', u'a'},
      {"Z", u'Z', u'z'},
      {"a", u'a', u'a'},
      {"z", u'z', u'z'},
      {"@", u'@', u'@'},
      {"[", u'[', u'['},
      {"`", u'`', u'`'},
      {"0", u'0', u'0'},
      {"NUL", u'\0', u'\0'},
      {"E acute", u'\u00C9', u'\u00E9'},
      {"e acute stays", u'\u00E9', u'\u00E9'},
      {"multiplication sign is not a letter", u'\u00D7', u'\u00D7'},
      {"sharp s has no simple folding", u'\u00DF', u'\u00DF'},
      {"capital sharp s folds to sharp s", u'\u1E9E', u'\u00DF'},
      {"y diaeresis stays", u'\u00FF', u'\u00FF'},
      {"Y diaeresis", u'\u0178', u'\u00FF'},
      {"long s", u'\u017F', u's'},
      {"micro sign", u'\u00B5', u'\u03BC'},
      {"dotted capital I folds to itself (Turkish rules excluded)", u'\u0130', u'\u0130'},
      {"dotless i stays", u'\u0131', u'\u0131'},
      {"Kelvin sign", u'\u212A', u'k'},
      {"Angstrom sign", u'\u212B', u'\u00E5'},
      {"Ohm sign", u'\u2126', u'\u03C9'},
      {"Roman numeral one", u'\u2160', u'\u2170'},
      {"circled A", u'\u24B6', u'\u24D0'},
      {"fullwidth A", u'\uFF21', u'\uFF41'},
      {"capital sigma", u'\u03A3', u'\u03C3'},
      {"final sigma", u'\u03C2', u'\u03C3'},
      {"alpha", u'\u0391', u'\u03B1'},
      {"alpha with tonos", u'\u0386', u'\u03AC'},
      {"Cyrillic A", u'\u0410', u'\u0430'},
      {"Cyrillic YA", u'\u042F', u'\u044F'},
      {"Cyrillic IO", u'\u0401', u'\u0451'},
      {"Cyrillic small a stays", u'\u0430', u'\u0430'},
      {"Armenian AYB", u'\u0531', u'\u0561'},
      {"Georgian AN", u'\u10A0', u'\u2D00'},
      {"hiragana", u'\u3042', u'\u3042'},
      {"CJK", u'\u4E00', u'\u4E00'},
      {"Hangul", u'\uAC00', u'\uAC00'},
      {"high surrogate", u'\xD801', u'\xD801'},
      {"low surrogate of a Deseret capital", u'\xDC00', u'\xDC00'},
      {"byte escape", u'\xDCC9', u'\xDCC9'},
      {"last unit", u'\uFFFF', u'\uFFFF'},
  };
  for (const FoldCase1& c : cases) {
    EXPECT_EQ(UnitName(FoldCase(c.unit)), UnitName(c.folded)) << c.what;
  }
}

TEST(FoldCase, FoldingIsIdempotentForEveryUnit) {
  for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const char16_t once = FoldCase(static_cast<char16_t>(unit));
    ASSERT_EQ(FoldCase(once), once) << UnitName(static_cast<char16_t>(unit));
  }
}

TEST(FoldCase, StringFoldsEachUnit) {
  EXPECT_EQ(FoldCase(u"Stra\u00DFe \u039F\u0394\u039F\u03A3 \u212Aelvin"),
            u"stra\u00DFe \u03BF\u03B4\u03BF\u03C3 kelvin");
  EXPECT_EQ(FoldCase(u""), u"");
}

struct EqualsCase {
  std::u16string a;
  std::u16string b;
  bool equal;
};

TEST(EqualsText, ComparesUnderFolding) {
  const EqualsCase cases[] = {
      {u"", u"", true},
      {u"Form1", u"FORM1", true},
      {u"cmdOK_Click", u"CMDok_cLICK", true},
      {u"\u00C9t\u00E9", u"\u00E9T\u00C9", true},
      {u"\u039F\u0394\u039F\u03A3", u"\u03BF\u03B4\u03BF\u03C2", true},
      {u"\u212A", u"K", true},
      {u"\u017F", u"S", true},
      {u"\u00DF", u"ss", false},
      {u"Form1", u"Form2", false},
      {u"Form", u"Form1", false},
      {std::u16string(u"a\0", 2), u"a", false},
      {u"\u0130", u"i", false},
  };
  for (const EqualsCase& c : cases) {
    const auto index = &c - cases;
    EXPECT_EQ(EqualsText(c.a, c.b), c.equal) << "case " << index;
    EXPECT_EQ(EqualsText(c.b, c.a), c.equal) << "case " << index;
  }
}

}  // namespace
}  // namespace vb
