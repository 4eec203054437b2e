// Contract: code modules — lines, edits, ranges and procedure questions through the object model.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "support/IdeBuilder.h"
#include "support/VbErrorOf.h"
#include "vbide/CodeModule.h"
#include "vbide/Member.h"
#include "vbide/VBComponent.h"
#include "vbide/VBProject.h"

namespace {

using qmtest::IdeBuilder;

vbide::CodeModulePtr ModuleOf(const std::shared_ptr<host::Ide>& ide, std::u16string_view name) {
  return ide->VBProjects()->Item(1)->VBComponents()->Item(name)->CodeModule();
}

using qmtest::ErrorNumberOf;

const char16_t* kOrders =
    u"Option Explicit\n"
    u"Private mTotal As Currency\n"
    u"\n"
    u"' Adds one order line\n"
    u"Public Sub AddLine(ByVal amount As Currency)\n"
    u"    mTotal = mTotal + amount\n"
    u"End Sub\n"
    u"\n"
    u"Public Property Get Total() As Currency\n"
    u"    Total = mTotal\n"
    u"End Property\n"
    u"Public Property Let Total(ByVal value As Currency)\n"
    u"    mTotal = value\n"
    u"End Property";

TEST(CodeModuleLines, JoinsRangesWithCrLfAndRejectsLinesOutside) {
  auto ide = IdeBuilder().Module(u"modOrders", kOrders).Build();
  auto m = ModuleOf(ide, u"modOrders");
  EXPECT_EQ(m->CountOfLines(), 14);
  EXPECT_EQ(m->Lines(1, 2), u"Option Explicit\r\nPrivate mTotal As Currency");
  EXPECT_EQ(m->Lines(3, 0), u"");
  EXPECT_EQ(m->Lines(14, 1), u"End Property");
  EXPECT_EQ(ErrorNumberOf([&] { m->Lines(0, 1); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { m->Lines(14, 2); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { m->Lines(15, 1); }), 5);
}

// The batch read a search uses: as many lines as fit and exist, the same text as Lines, and
// views that follow an edit (a replaced line is stored elsewhere; its view moves with it).
TEST(CodeModuleLines, BatchesOfViewsStopAtTheLastLineAndFollowEdits) {
  auto ide = IdeBuilder().Module(u"modOrders", kOrders).Build();
  auto m = ModuleOf(ide, u"modOrders");
  std::array<std::u16string_view, 5> batch;
  std::u16string joined;
  for (int first = 1; first <= m->CountOfLines();) {
    int got = m->LineViews(first, batch);
    ASSERT_EQ(got, std::min(5, m->CountOfLines() - first + 1));
    for (int i = 0; i < got; ++i) joined.append(first + i > 1 ? u"\r\n" : u"").append(batch[i]);
    first += got;
  }
  EXPECT_EQ(joined, m->Lines(1, m->CountOfLines()));
  m->ReplaceLine(2, u"Private mCount As Long");
  ASSERT_EQ(m->LineViews(1, batch), 5);
  EXPECT_EQ(batch[1], u"Private mCount As Long");
  EXPECT_EQ(batch[2], u"");
  EXPECT_EQ(ErrorNumberOf([&] { m->LineViews(15, batch); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { m->LineViews(0, batch); }), 5);
}

TEST(CodeModuleEdits, InsertSplitsAtEveryLineBreakAndAppendsAfterTheLastLine) {
  auto ide = IdeBuilder().Module(u"modA", u"a\nb").Build();
  auto m = ModuleOf(ide, u"modA");
  m->InsertLines(2, u"x\r\ny\rz\nw");
  EXPECT_EQ(m->Lines(1, m->CountOfLines()), u"a\r\nx\r\ny\r\nz\r\nw\r\nb");
  m->InsertLines(m->CountOfLines() + 1, u"last\r\n");  // a trailing break adds an empty line
  EXPECT_EQ(m->CountOfLines(), 8);
  EXPECT_EQ(m->Lines(7, 2), u"last\r\n");
  EXPECT_EQ(ErrorNumberOf([&] { m->InsertLines(10, u"far"); }), 5);
}

TEST(CodeModuleEdits, DeleteAndReplaceWorkOnWholeLines) {
  auto ide = IdeBuilder().Module(u"modA", u"one\ntwo\nthree\nfour").Build();
  auto m = ModuleOf(ide, u"modA");
  m->DeleteLines(2, 2);
  EXPECT_EQ(m->Lines(1, 2), u"one\r\nfour");
  m->ReplaceLine(2, u"4\r\n5");  // a line break makes two lines
  EXPECT_EQ(m->Lines(1, m->CountOfLines()), u"one\r\n4\r\n5");
  EXPECT_EQ(ErrorNumberOf([&] { m->DeleteLines(3, 2); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { m->ReplaceLine(4, u"x"); }), 5);
  m->DeleteLines(1);
  EXPECT_EQ(m->Lines(1, 1), u"4");
}

TEST(CodeModuleEdits, AddFromStringGoesRightAfterTheDeclarations) {
  auto ide =
      IdeBuilder().Module(u"modOrders", kOrders).Module(u"modEmpty", u"Option Explicit").Build();
  auto m = ModuleOf(ide, u"modOrders");
  ASSERT_EQ(m->CountOfDeclarationLines(), 2);
  m->AddFromString(u"Public Sub Clear()\r\n\r\nEnd Sub");
  EXPECT_EQ(m->Lines(3, 3), u"Public Sub Clear()\r\n\r\nEnd Sub");
  EXPECT_EQ(m->Lines(6, 1), u"");  // the blank line that stood above AddLine now follows Clear

  auto empty = ModuleOf(ide, u"modEmpty");  // no procedure: the text is appended
  empty->AddFromString(u"Sub A()\r\nEnd Sub");
  EXPECT_EQ(empty->Lines(1, 3), u"Option Explicit\r\nSub A()\r\nEnd Sub");
}

TEST(CodeModuleProcedures, AnswersRegionsByNameAndKind) {
  auto ide = IdeBuilder().Module(u"modOrders", kOrders).Build();
  auto m = ModuleOf(ide, u"modOrders");
  vbide::vbext_ProcKind kind = vbide::vbext_pk_Get;
  EXPECT_EQ(m->ProcOfLine(2, kind), u"");
  EXPECT_EQ(kind, vbide::vbext_pk_Proc);
  EXPECT_EQ(m->ProcOfLine(4, kind), u"AddLine");  // the comment above belongs to the procedure
  EXPECT_EQ(m->ProcOfLine(10, kind), u"Total");
  EXPECT_EQ(kind, vbide::vbext_pk_Get);
  EXPECT_EQ(m->ProcOfLine(13, kind), u"Total");
  EXPECT_EQ(kind, vbide::vbext_pk_Let);

  EXPECT_EQ(m->ProcStartLine(u"addline", vbide::vbext_pk_Proc), 3);
  EXPECT_EQ(m->ProcBodyLine(u"AddLine", vbide::vbext_pk_Proc), 5);
  EXPECT_EQ(m->ProcCountLines(u"AddLine", vbide::vbext_pk_Proc), 5);
  EXPECT_EQ(m->ProcStartLine(u"Total", vbide::vbext_pk_Let), 12);
  EXPECT_EQ(ErrorNumberOf([&] { m->ProcStartLine(u"Total", vbide::vbext_pk_Proc); }), 35);
  EXPECT_EQ(ErrorNumberOf([&] { m->ProcStartLine(u"Missing", vbide::vbext_pk_Proc); }), 35);
  EXPECT_EQ(ErrorNumberOf([&] { m->ProcOfLine(15, kind); }), 5);
}

// The index remembers the region it found last; asked in any order it must answer as if it did
// not, and the view it gives must equal the copy.
TEST(CodeModuleProcedures, AnswerTheSameInAnyOrderOfLines) {
  auto ide = IdeBuilder().Module(u"modOrders", kOrders).Build();
  auto m = ModuleOf(ide, u"modOrders");
  std::vector<std::pair<std::u16string, vbide::vbext_ProcKind>> forward;
  for (int line = 1; line <= 14; ++line) {
    vbide::vbext_ProcKind kind;
    std::u16string name = m->ProcOfLine(line, kind);
    forward.emplace_back(name, kind);
  }
  for (int line : {14, 1, 9, 8, 13, 4, 4, 12, 3, 11, 2, 7, 5, 6, 10}) {
    vbide::vbext_ProcKind kind;
    std::u16string_view name = m->ProcOfLineView(line, kind);
    EXPECT_EQ(name, forward[static_cast<std::size_t>(line - 1)].first) << "line " << line;
    EXPECT_EQ(kind, forward[static_cast<std::size_t>(line - 1)].second) << "line " << line;
  }
  EXPECT_EQ(forward[3].first, u"AddLine");
  EXPECT_EQ(forward[12].first, u"Total");
  EXPECT_EQ(forward[12].second, vbide::vbext_pk_Let);
}

TEST(CodeModuleProcedures, FollowEditsWithoutBeingAskedToRebuild) {
  auto ide = IdeBuilder().Module(u"modOrders", kOrders).Build();
  auto m = ModuleOf(ide, u"modOrders");
  vbide::vbext_ProcKind kind;
  EXPECT_EQ(m->ProcOfLine(6, kind), u"AddLine");
  m->InsertLines(5, u"Public Sub Reset()\r\nEnd Sub");
  EXPECT_EQ(m->ProcOfLine(6, kind), u"Reset");
  EXPECT_EQ(m->ProcBodyLine(u"AddLine", vbide::vbext_pk_Proc), 7);
  m->DeleteLines(5, 2);
  EXPECT_EQ(ErrorNumberOf([&] { m->ProcBodyLine(u"Reset", vbide::vbext_pk_Proc); }), 35);
}

TEST(CodeModuleMembers, ListModuleLevelNamesInOrderAndFollowEdits) {
  auto ide = IdeBuilder().Module(u"modOrders", kOrders).Build();
  auto m = ModuleOf(ide, u"modOrders");
  auto members = m->Members();
  ASSERT_EQ(members->Count(), 3);
  EXPECT_EQ(members->Item(1)->Name(), u"mTotal");
  EXPECT_EQ(members->Item(1)->Type(), vbide::vbext_mt_Variable);
  EXPECT_EQ(members->Item(u"addline")->Type(), vbide::vbext_mt_Method);
  EXPECT_EQ(members->Item(u"Total")->CodeLocation(), 9);
  EXPECT_EQ(ErrorNumberOf([&] { members->Item(u"Nothing"); }), 9);
  m->InsertLines(2, u"Public Const MAX_LINES As Integer = 99");
  EXPECT_EQ(m->Members()->Item(1)->Name(), u"MAX_LINES");
  EXPECT_EQ(members->Count(), 3);  // a snapshot taken before the edit stays as it was
}

TEST(CodeModuleLifetime, AModuleOfARemovedComponentRaises91) {
  auto ide = IdeBuilder().Module(u"modA", u"x = 1").Build();
  auto components = ide->VBProjects()->Item(1)->VBComponents();
  auto component = components->Item(u"modA");
  auto m = component->CodeModule();
  components->Remove(component);
  EXPECT_EQ(ErrorNumberOf([&] { m->CountOfLines(); }), 91);
  EXPECT_EQ(ErrorNumberOf([&] { component->Name(); }), 91);
}

}  // namespace
