// The line-matching rule: the first occurrence decides, word characters are ASCII letters and
// digits only, and only apostrophe lines are comments.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "runtime/CaseFold.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"
#include "runtime/VbStrings.h"
#include "search/MatchRules.h"

namespace {

using quillmark::MatchLine;
using quillmark::MatchOptions;

struct Case {
  const char16_t* line;
  const char16_t* find;
  MatchOptions options;
  int start;
  int expected;
};

constexpr MatchOptions kPlain{};
constexpr MatchOptions kCase{.matchCase = true};
constexpr MatchOptions kWord{.wholeWord = true};
constexpr MatchOptions kComments{.excludeComments = true};
constexpr MatchOptions kAll{true, true, true};

std::string Describe(const Case& c) {
  return "line \"" + vb::ToUtf8(c.line) + "\" find \"" + vb::ToUtf8(c.find) + "\" from " +
         std::to_string(c.start);
}

void Check(const std::vector<Case>& cases) {
  for (auto& c : cases) {
    std::u16string folded = vb::FoldCase(c.find);
    EXPECT_EQ(MatchLine(c.line, c.start, c.find, folded, c.options), c.expected) << Describe(c);
  }
}

TEST(MatchRules, FindsCaseInsensitivelyFromTheStartPosition) {
  Check({
      {u"Dim Customer As String", u"customer", kPlain, 1, 5},
      {u"Dim Customer As String", u"CUSTOMER", kPlain, 1, 5},
      {u"Dim Customer As String", u"invoice", kPlain, 1, 0},
      {u"a b a", u"a", kPlain, 2, 5},
      {u"a b a", u"a", kPlain, 6, 0},
      {u"", u"x", kPlain, 1, 0},
      {u"ÉTAT = état", u"état", kPlain, 1, 1},  // folding reaches beyond ASCII
  });
}

TEST(MatchRules, MatchCaseJudgesOnlyTheFirstOccurrence) {
  Check({
      {u"x = Dim", u"Dim", kCase, 1, 5},
      {u"dim x: Dim y", u"Dim", kCase, 1, 0},  // the later, exact "Dim" is never looked at
      {u"dim x: Dim y", u"Dim", kPlain, 1, 1},
      {u"dim x: Dim y", u"Dim", kCase, 2, 8},  // from a later start the exact one comes first
  });
}

TEST(MatchRules, WholeWordTreatsOnlyAsciiLettersAndDigitsAsWordCharacters) {
  Check({
      {u"x = Count", u"Count", kWord, 1, 5},
      {u"Count(1)", u"Count", kWord, 1, 1},
      {u"Counter = 1", u"Count", kWord, 1, 0},
      {u"myCount = 1", u"Count", kWord, 1, 0},
      {u"Count2 = 1", u"Count", kWord, 1, 0},
      {u"my_Count = 1", u"Count", kWord, 1, 4},  // the underscore is a delimiter
      {u"Count_x = 1", u"Count", kWord, 1, 1},
      {u"éCount", u"Count", kWord, 1, 2},  // so is every character above 127
      {u"Countç", u"Count", kWord, 1, 1},
      {u"Count", u"Count", kWord, 1, 1},  // both edges of the line
      {u"abc ab", u"ab", kWord, 1, 0},    // only the first occurrence is tested
      {u"abc ab", u"ab", kWord, 2, 5},
  });
}

TEST(MatchRules, OnlyLinesOpeningWithAnApostropheAfterSpacesAreComments) {
  Check({
      {u"   ' find me", u"find", kComments, 1, 0},
      {u"' find me", u"find", kComments, 1, 0},
      {u"x = 1 ' find me", u"find", kComments, 1, 9},
      {u"Rem find me", u"find", kComments, 1, 5},
      {u"\t' find me", u"find", kComments, 1, 4},  // a tab is not trimmed
      {u"   ' find me", u"find", kPlain, 1, 6},
  });
}

TEST(MatchRules, ChecksRunInOrderAndEachRejectsTheWholeLine) {
  Check({
      {u"' Total", u"Total", kAll, 1, 0},
      {u"Total = 1", u"Total", kAll, 1, 1},
      {u"total = Total", u"Total", kAll, 1, 0},
      {u"Totals = Total", u"Total", kAll, 1, 0},
  });
}

TEST(MatchRules, ClassifiersAgreeWithTheRule) {
  static_assert(quillmark::IsWordCharacter(u'a') && quillmark::IsWordCharacter(u'Z') &&
                quillmark::IsWordCharacter(u'7'));
  static_assert(!quillmark::IsWordCharacter(u'_') && !quillmark::IsWordCharacter(u'é') &&
                !quillmark::IsWordCharacter(u' '));
  static_assert(quillmark::IsCommentLine(u"  'x") && !quillmark::IsCommentLine(u"\t'x") &&
                !quillmark::IsCommentLine(u"   "));
  EXPECT_THROW(MatchLine(u"abc", 0, u"a", u"a", kPlain), vb::Error);
}

}  // namespace

namespace {

// The finder must give InStr's answers everywhere: at every start, across the eight-unit blocks
// it scans, with non-ASCII units that fold onto ASCII ones (the Kelvin sign folds to "k").
TEST(FoldedFinder, AgreesWithInStrForEveryStartOfManyLines) {
  std::vector<std::u16string> needles = {u"k",  u"Key", u"customer", u"_x", u"1",
                                         u"é",  u"ÉTÉ", u"\u212Aey", u"ab", u"eyk",
                                         u"aq", u"éx",  u"a b",      u"mer"};
  std::vector<std::u16string> lines = {
      u"",
      u"k",
      u"Dim Customer As String ' customer",
      u"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaab",
      u"the \u212AEY is here and the key there, KEY",
      u"été ÉTÉ été",
      u"0123456789_x_x 1 11111111111111",
      u"abababababababababababababababa_CUSTOMERcustomer",
      u"\xDC81\xDC82 k \xDC83",
      u"aaaaaaaaq aq AQ éxÉX a  b a b eY\u212A",
  };
  for (auto& needle : needles) {
    quillmark::FoldedFinder finder(needle);
    std::u16string folded = vb::FoldCase(needle);
    for (auto& line : lines) {
      for (int start = 1; start <= static_cast<int>(line.size()) + 2; ++start)
        ASSERT_EQ(finder.Find(start, line), vb::InStrFolded(start, line, folded))
            << vb::ToUtf8(needle) << " in " << vb::ToUtf8(line) << " from " << start;
    }
  }
  EXPECT_THROW(quillmark::FoldedFinder(u"a").Find(0, u"abc"), vb::Error);
}

TEST(FoldedFinder, TheRuleGivesTheSameAnswerThroughTheFinder) {
  quillmark::FoldedFinder finder(u"Count");
  EXPECT_EQ(MatchLine(u"my_Count = Counter", 1, finder, kWord), 4);
  EXPECT_EQ(MatchLine(u"count = Count", 1, finder, kCase), 0);
  EXPECT_EQ(MatchLine(u"  ' Count", 1, finder, kComments), 0);
}

// Random lines from a small alphabet make occurrences, near misses, non-ASCII units that fold
// onto ASCII ones and occurrences split across lines common. Lines long enough for the sixteen-
// and eight-unit scans and short ones for the unit-by-unit tail all occur.
std::u16string RandomLine(std::mt19937& random) {
  static const std::u16string kAlphabet = u"cusTOMERkK\u212A  _é(";
  std::u16string line(random() % 70, u' ');
  for (auto& unit : line) unit = kAlphabet[random() % kAlphabet.size()];
  return line;
}

TEST(FoldedFinder, BothWidthsOfScanAgreeWithInStrOnRandomLines) {
  std::mt19937 random(11);
  const std::vector<std::u16string> needles = {u"customer", u"TOM", u"k", u"\u212Au", u"é(",
                                               u"s T", u"mer_", u"cusTOMERkKcus"};
  using quillmark::ScanWidth;
  for (ScanWidth width : {ScanWidth::Widest, ScanWidth::Eight}) {
    bool narrow = width == ScanWidth::Eight;
    for (auto& needle : needles) {
      quillmark::FoldedFinder finder(needle, width);
      std::u16string folded = vb::FoldCase(needle);
      for (int i = 0; i < 400; ++i) {
        std::u16string line = RandomLine(random);
        for (int start = 1; start <= static_cast<int>(line.size()) + 1; start += 3)
          ASSERT_EQ(finder.Find(start, line), vb::InStrFolded(start, line, folded))
              << vb::ToUtf8(needle) << " in " << vb::ToUtf8(line) << " from " << start
              << (narrow ? " (eight units)" : "");
      }
    }
  }
}

// The lines that hold the text, found by scanning lines that lie back to back as one text, must
// be exactly those a line-by-line search finds: an occurrence across a line break counts for
// neither line, empty lines are stepped over, and lines elsewhere in memory are scanned alone.
TEST(LinesHolding, FindsExactlyTheLinesThatHoldTheTextWhereverTheyLie) {
  std::mt19937 random(5);
  for (const std::u16string needle : {u"customer", u"ER", u"k", u"é", u""}) {
    quillmark::FoldedFinder finder(needle);
    std::u16string folded = vb::FoldCase(needle);
    for (int round = 0; round < 40; ++round) {
      std::vector<std::u16string> texts;
      for (int i = 0; i < 60; ++i) texts.push_back(round % 5 == 0 && i % 4 == 0 ? u"" : RandomLine(random));
      // Most lines in one buffer without separators, as a loaded module keeps them; every
      // seventh line in a string of its own.
      std::u16string buffer;
      for (auto& text : texts) buffer += text;
      std::vector<std::u16string_view> lines;
      std::size_t at = 0;
      for (std::size_t i = 0; i < texts.size(); ++i) {
        lines.push_back(i % 7 == 3 ? std::u16string_view(texts[i])
                                   : std::u16string_view(buffer).substr(at, texts[i].size()));
        at += texts[i].size();
      }
      std::vector<std::uint32_t> expected, found;
      for (std::size_t i = 0; i < lines.size(); ++i)
        if (needle.empty() || vb::InStrFolded(1, lines[i], folded) != 0)
          expected.push_back(static_cast<std::uint32_t>(i));
      found.push_back(999);  // what was there before stays: the lines are appended
      quillmark::LinesHolding(lines, finder, found);
      ASSERT_EQ(found.front(), 999u);
      found.erase(found.begin());
      ASSERT_EQ(found, expected) << "\"" << vb::ToUtf8(needle) << "\" round " << round;
    }
  }
}

}  // namespace
