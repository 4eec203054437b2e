// The VB scanner: comments, strings, continuations, statements, words and declarator lists.
#include "host/VbLexer.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "runtime/Utf.h"
#include "support/VbText.h"

namespace host {
namespace {

using testing_vb::Show;
using testing_vb::VbLines;

struct PhysicalCase {
  std::u16string text;
  bool inComment;
  std::u16string code;
  bool hasComment;
  bool continues;
  bool endsInComment;
};

TEST(ScanPhysicalLine, SeparatesCodeCommentAndContinuation) {
  const std::vector<PhysicalCase> cases = {
      {u"x = 1", false, u"x = 1", false, false, false},
      {u"x = 1 ' note", false, u"x = 1 ", true, false, false},
      {u"s = \"it's\" ' note", false, u"s = \"it's\" ", true, false, false},
      {u"s = \"say \"\"hi'\"\"\"", false, u"s = \"say \"\"hi'\"\"\"", false, false, false},
      {u"Rem End Sub", false, u"", true, false, false},
      {u"  rem: x", false, u"  ", true, false, false},
      {u"x = 1: Rem why", false, u"x = 1: ", true, false, false},
      {u"Remark = 1", false, u"Remark = 1", false, false, false},
      {u"10 Rem it's: x", false, u"10 ", true, false, false},
      {u"x1 Rem it's", false, u"x1 Rem it", true, false, false},
      {u"x = Rem", false, u"x = Rem", false, false, false},
      {u"Foo _", false, u"Foo ", false, true, false},
      {u"Foo _  ", false, u"Foo ", false, true, false},
      {u"Foo_", false, u"Foo_", false, false, false},
      {u"x = a_ _", false, u"x = a_ ", false, true, false},
      {u"s = \"a _", false, u"s = \"a _", false, false, false},
      {u"s = \"a _\"", false, u"s = \"a _\"", false, false, false},
      {u"x = 1 ' more _", false, u"x = 1 ", true, true, true},
      {u"x = 1 '_", false, u"x = 1 ", true, false, false},
      {u"still comment \"", true, u"", true, false, false},
      {u"still comment _", true, u"", true, true, true},
      {u"[it's] = 1", false, u"[it's] = 1", false, false, false},
      {u"\u540d\u524d = 1 ' \u30b3", false, u"\u540d\u524d = 1 ", true, false, false},
  };
  for (const PhysicalCase& c : cases) {
    SCOPED_TRACE(Show(c.text));
    const PhysicalLine line = ScanPhysicalLine(c.text, c.inComment, true);
    EXPECT_EQ(Show(line.code), Show(c.code));
    EXPECT_EQ(line.hasComment, c.hasComment);
    EXPECT_EQ(line.continues, c.continues);
    EXPECT_EQ(line.endsInComment, c.endsInComment);
  }
}

TEST(ScanPhysicalLine, RemIsACommentOnlyWhereAStatementStarts) {
  EXPECT_TRUE(ScanPhysicalLine(u"Rem x", false, true).hasComment);
  EXPECT_FALSE(ScanPhysicalLine(u"Rem x", false, false).hasComment);
  EXPECT_TRUE(ScanPhysicalLine(u"Rem x", false, false).code == u"Rem x");
  EXPECT_TRUE(ScanPhysicalLine(u"Call Foo: _", false, true).atStatementStart);
  EXPECT_FALSE(ScanPhysicalLine(u"Call Foo _", false, true).atStatementStart);
}

struct LogicalExpect {
  int first;
  int last;
  std::u16string code;
  bool hasComment;
};

// Most lines take a quick path (no quote, apostrophe, colon or bracket); it must answer exactly
// as the unit-by-unit scan does, on lines built from the pieces that decide: Rem and line
// numbers where a statement starts, underscores inside names and as continuation marks, blanks
// and tabs, and the marks themselves.
TEST(ScanPhysicalLine, TheQuickPathForPlainLinesAgreesWithTheFullScan) {
  const std::vector<std::u16string> pieces = {u"Rem", u"rem x", u"10", u" ", u"\t", u"_",
                                              u"m_Total", u"End Sub", u"x = 1", u"(", u"é",
                                              u"REMARK", u"\"", u"'", u":", u"[a b]"};
  std::mt19937 random(3);
  int quick = 0;
  for (int i = 0; i < 20000; ++i) {
    std::u16string text;
    for (int n = static_cast<int>(random() % 5); n >= 0; --n) {
      // The marks are rarer, so that plenty of lines are plain.
      std::size_t piece = random() % pieces.size();
      if (piece >= 12 && random() % 3 != 0) piece = random() % 12;
      text += pieces[piece];
    }
    for (bool atStart : {true, false}) {
      const PhysicalLine fast = ScanPhysicalLine(text, false, atStart);
      const PhysicalLine full = ScanPhysicalLineFully(text, atStart);
      quick += fast.plain;
      ASSERT_EQ(fast.code, full.code) << vb::ToUtf8(text);
      ASSERT_EQ(fast.hasComment, full.hasComment) << vb::ToUtf8(text);
      ASSERT_EQ(fast.continues, full.continues) << vb::ToUtf8(text);
      ASSERT_EQ(fast.endsInComment, full.endsInComment) << vb::ToUtf8(text);
      ASSERT_EQ(fast.atStatementStart, full.atStatementStart) << vb::ToUtf8(text) << atStart;
      if (fast.plain) {
        std::u16string_view statement;
        StatementSplitter splitter(full.code);
        ASSERT_TRUE(splitter.Next(statement));
        EXPECT_EQ(statement, fast.code);
        EXPECT_FALSE(splitter.Next(statement)) << "a plain line holds one statement";
      }
    }
  }
  EXPECT_GT(quick, 5000);  // the quick path was taken often enough to be tested
}

TEST(LogicalLineReader, JoinsContinuedLines) {
  const auto lines = VbLines(
      u"Private Function Foo( _\n"
      u"    ByVal a As Long, _\n"
      u"    ByVal b As Long) As Long\n"
      u"' a comment _\n"
      u"that goes on _\n"
      u"and on\n"
      u"\n"
      u"x = 1 ' note _\n"
      u"more note\n"
      u"Call Bar: _\n"
      u"Rem x\n"
      u"y = 2 _");
  const std::vector<LogicalExpect> expected = {
      {1, 3, u"Private Function Foo(      ByVal a As Long,      ByVal b As Long) As Long", false},
      {4, 6, u"", true},
      {7, 7, u"", false},
      {8, 9, u"x = 1 ", true},
      {10, 11, u"Call Bar: ", true},
      {12, 12, u"y = 2 ", false},
  };
  LogicalLineReader reader(lines);
  LogicalLine line;
  for (const LogicalExpect& e : expected) {
    ASSERT_TRUE(reader.Next(line)) << e.first;
    EXPECT_EQ(line.first, e.first);
    EXPECT_EQ(line.last, e.last);
    EXPECT_EQ(Show(line.code), Show(e.code));
    EXPECT_EQ(line.hasComment, e.hasComment);
  }
  EXPECT_FALSE(reader.Next(line));
}

std::u16string JoinStatements(std::u16string_view code) {
  StatementSplitter splitter(code);
  std::u16string joined;
  std::u16string_view statement;
  while (splitter.Next(statement)) {
    joined += u'[';
    joined += statement;
    joined += u']';
  }
  return joined;
}

TEST(StatementSplitter, SplitsAtColonsOutsideLiteralsAndBrackets) {
  const std::vector<std::pair<std::u16string, std::u16string>> cases = {
      {u"", u"[]"},
      {u"x = 1", u"[x = 1]"},
      {u"Sub X(): End Sub", u"[Sub X()][ End Sub]"},
      {u"Retry:", u"[Retry][]"},
      {u"s = \"a:b\": t = 1", u"[s = \"a:b\"][ t = 1]"},
      {u"s = \"a\"\":b\"", u"[s = \"a\"\":b\"]"},
      {u"[a:b] = 1: c", u"[[a:b] = 1][ c]"},
      {u"s = \"open: ", u"[s = \"open: ]"},
  };
  for (const auto& [code, expected] : cases) {
    EXPECT_EQ(Show(JoinStatements(code)), Show(expected)) << Show(code);
  }
}

TEST(VbWords, ReadsKeywordsAsWholeWordsInAnyCase) {
  VbWords words(u"  PRIVATE  sub Subtotal");
  EXPECT_FALSE(words.Accept(u"Public"));
  EXPECT_TRUE(words.Accept(u"Private"));
  EXPECT_FALSE(words.Accept(u"Subtotal"));
  EXPECT_TRUE(words.Accept(u"Sub"));
  EXPECT_FALSE(words.Accept(u"Sub"));  // "Subtotal" is not the keyword
  EXPECT_EQ(Show(words.Identifier()), "Subtotal");
  EXPECT_TRUE(words.AtEnd());
}

TEST(VbWords, ReadsIdentifiers) {
  const std::vector<std::pair<std::u16string, std::u16string>> cases = {
      {u"Foo(ByVal x)", u"Foo"},
      {u"  a_b1 As Long", u"a_b1"},
      {u"s$", u"s"},
      {u"n& = 5", u"n"},
      {u"[Select Case](x)", u"Select Case"},
      {u"[unclosed", u"unclosed"},
      {u"\u691c\u7d22\u5b9f\u884c()", u"\u691c\u7d22\u5b9f\u884c"},
      {u"1abc", u""},
      {u"(x)", u""},
      {u"", u""},
  };
  for (const auto& [text, expected] : cases) {
    VbWords words(text);
    EXPECT_EQ(Show(words.Identifier()), Show(expected)) << Show(text);
  }
}

TEST(VbWords, SkipsALineNumberButNotAName) {
  VbWords numbered(u"10 Exit Sub");
  numbered.SkipLineNumber();
  EXPECT_TRUE(numbered.Accept(u"Exit"));
  VbWords named(u"x10 = 1");
  named.SkipLineNumber();
  EXPECT_EQ(Show(named.Identifier()), "x10");
}

std::u16string JoinNames(std::u16string_view list) {
  DeclaratorNames names(list);
  std::u16string joined;
  std::u16string_view name;
  while (names.Next(name)) {
    joined += name;
    joined += u'|';
  }
  return joined;
}

TEST(DeclaratorNames, SplitsAtTopLevelCommas) {
  const std::vector<std::pair<std::u16string, std::u16string>> cases = {
      {u"a", u"a|"},
      {u"a, b As Long", u"a|b|"},
      {u"a(1 To 5, 2 To 3) As Long, b()", u"a|b|"},
      {u"X As String = \"a, b\"", u"X|"},
      {u"A = 1, B = \"x\"\",\", C = (1 + 2)", u"A|B|C|"},
      {u"WithEvents x As Foo", u"x|"},
      {u"x As New Collection", u"x|"},
      {u"[my name] As Long, s$", u"my name|s|"},
      {u"", u"|"},
  };
  for (const auto& [list, expected] : cases) {
    EXPECT_EQ(Show(JoinNames(list)), Show(expected)) << Show(list);
  }
}

}  // namespace
}  // namespace host
