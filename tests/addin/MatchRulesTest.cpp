// The line-matching rule: the first occurrence decides, word characters are ASCII letters and
// digits only, and only apostrophe lines are comments.
#include <gtest/gtest.h>

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

}  // namespace
