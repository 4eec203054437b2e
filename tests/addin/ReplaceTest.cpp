// Replace: the dialog's default option, the scan through each line, the text written back and
// the rows kept or removed.
#include <gtest/gtest.h>

#include "SearchScenario.h"
#include "runtime/Runtime.h"
#include "search/MatchRules.h"
#include "search/ReplaceRule.h"
#include "search/frmReplace.h"
#include "vbide/CodeModule.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace {

using qmtest::IdeBuilder;
using qmtest::SearchScenario;
using Rows = std::vector<std::string>;

struct LineCase {
  const char* name;
  std::u16string line, search, replace;
  quillmark::MatchOptions options;
  std::u16string expected;
};

TEST(ReplaceInLine, RewritesEachOccurrenceUpToTheFirstThatFailsTheOptions) {
  constexpr quillmark::MatchOptions kAny{}, kCase{.matchCase = true}, kWord{.wholeWord = true},
      kCode{.excludeComments = true};
  const LineCase cases[] = {
      {"EveryOccurrenceAnyCase", u"Cat = cat + 1", u"cat", u"dog", kAny, u"dog = dog + 1"},
      {"ResumesAfterTheInsertedText", u"cat cat", u"cat", u"catcat", kAny, u"catcat catcat"},
      {"AnEmptyReplacementDeletes", u"x = Total + Total", u"Total", u"", kAny, u"x =  + "},
      {"FirstOccurrenceFailsMatchCase", u"foo Foo", u"Foo", u"Bar", kCase, u"foo Foo"},
      {"LaterOccurrenceFailsWholeWord", u"ab x abc ab", u"ab", u"Y", kWord, u"Y x abc ab"},
      {"CommentLineKept", u"  ' a", u"a", u"b", kCode, u"  ' a"},
      {"EmptySearchTextReplacesNothing", u"abc", u"", u"x", kAny, u"abc"},
  };
  for (auto& c : cases) {
    quillmark::FoldedFinder finder(c.search);
    auto match = [&](std::u16string_view line, std::int32_t start) {
      return quillmark::MatchLine(line, start, finder, c.options);
    };
    EXPECT_EQ(quillmark::ReplaceInLine(c.line, c.search, c.replace, match), c.expected) << c.name;
  }
}

class Replace : public ::testing::Test {
 protected:
  void Open(std::u16string code, std::u16string other = u"Sub Other()\nEnd Sub") {
    s = std::make_unique<SearchScenario>(IdeBuilder()
                                             .Project(u"Billing")
                                             .Module(u"modA", std::move(code))
                                             .Module(u"modB", std::move(other)));
    s->PickScope(u"cboProject", u"(All Projects)");
  }
  std::u16string Line(std::u16string_view module, int line) { return Code(module)->Lines(line, 1); }
  vbide::CodeModulePtr Code(std::u16string_view module) {
    return s->world.Main()
        .gVBInstance->VBProjects()
        ->Item(u"Billing")
        ->VBComponents()
        ->Item(module)
        ->CodeModule();
  }
  // Presses Replace on the results window and answers the dialog.
  void RunReplace(std::u16string with, int option = -1) {
    vb::Script(*s->world.runtime).On(u"frmReplace", [with, option](vb::UserActions& ui) {
      ui.Type(u"txtReplace", with);
      if (option >= 0) ui.Click(u"optReplace", option);
      ui.Click(u"cmdReplace");
    });
    s->ResultsUser().Click(u"cmdToolbar", 2);
  }
  std::unique_ptr<SearchScenario> s;
};

TEST_F(Replace, ALineWithNoOccurrenceLeftLosesItsRow) {
  Open(u"Cat = cat + 1\nx = 2");
  s->Search(u"cat");
  RunReplace(u"dog");
  EXPECT_EQ(Line(u"modA", 1), u"dog = dog + 1");
  EXPECT_TRUE(s->Rows().empty());
  EXPECT_EQ(s->Status(2), "0 Matching Line(s)");
}

TEST_F(Replace, TheScanResumesAfterTheInsertedTextAndARowThatStillMatchesStays) {
  Open(u"    a b a\nzzz");
  s->Search(u"a");
  RunReplace(u"aa");
  EXPECT_EQ(Line(u"modA", 1), u"    aa b aa");
  EXPECT_EQ(s->Rows(), (Rows{"Billing\tmodA\t(Declarations)\t1\taa b aa"}));
  EXPECT_EQ(s->Results().lvwSearch.ListItems().Item(1).Tag(), u"    aa b aa");
  EXPECT_EQ(s->Status(2), "1 Matching Line(s)");
}

TEST_F(Replace, OptionsAreReadAsTheyStandNowAndTheRowsTextIsWrittenOverLaterEdits) {
  Open(u"foo Foo");
  s->Search(u"Foo");
  s->SetOption(u"chkMatchCase", true);
  Code(u"modA")->ReplaceLine(1, u"edited after the search");
  RunReplace(u"Bar");
  // The first occurrence fails Match Case, so nothing is replaced, but the row's text is still
  // written back over the edit, and the row goes.
  EXPECT_EQ(Line(u"modA", 1), u"foo Foo");
  EXPECT_TRUE(s->Rows().empty());
}

TEST_F(Replace, ReplaceSelectedTouchesOnlyTheSelectedRows) {
  Open(u"t1 = Total\nt2 = Total\nt3 = Total");
  s->Search(u"total");
  s->ResultsUser().SelectRows(u"lvwSearch", {1, 3});
  RunReplace(u"Sum");
  EXPECT_EQ(Line(u"modA", 1), u"t1 = Sum");
  EXPECT_EQ(Line(u"modA", 2), u"t2 = Total");
  EXPECT_EQ(Line(u"modA", 3), u"t3 = Sum");
  EXPECT_EQ(s->Keys(), (Rows{"Billing|modA|(Declarations)|2"}));
}

TEST_F(Replace, TheDialogOpensOnSelectedForTwoOrMoreSelectedRowsAndOnAllOtherwise) {
  std::u16string code;
  for (int i = 1; i <= 10; ++i) code += u"Total" + vb::CStr(std::int64_t(i)) + u"\n";
  Open(code);
  s->Search(u"total");
  std::vector<bool> allChosen;
  std::u16string caption;
  auto answer = [&] {
    vb::Script(*s->world.runtime).On(u"frmReplace", [&](vb::UserActions& ui) {
      auto* form =
          dynamic_cast<quillmark::frmReplace*>(s->world.runtime->FindLoaded(u"frmReplace"));
      allChosen.push_back(form->optReplace(0).Value());
      caption = form->Caption();
      ui.Click(u"cmdCancel");
    });
    s->ResultsUser().Click(u"cmdToolbar", 2);
  };
  s->ResultsUser().SelectRows(u"lvwSearch", {2, 5, 9});
  answer();
  s->ResultsUser().SelectRows(u"lvwSearch", {4});
  answer();
  EXPECT_EQ(allChosen, (std::vector<bool>{false, true}));
  EXPECT_EQ(caption, u"Replace - [total]");
  EXPECT_EQ(Line(u"modA", 4), u"Total4");  // Cancel changes nothing
  EXPECT_EQ(s->Rows().size(), 10u);
}

TEST_F(Replace, AModuleRenamedSinceTheSearchStopsTheCommandWhereItStands) {
  Open(u"a = Total", u"b = Total");
  s->Search(u"total");
  s->world.Main()
      .gVBInstance->VBProjects()
      ->Item(u"Billing")
      ->VBComponents()
      ->Item(u"modA")
      ->SetName(u"modZ");
  RunReplace(u"Sum");
  // Rows are walked from the last: modB's row was done before modA's lookup failed.
  EXPECT_EQ(Line(u"modB", 1), u"b = Sum");
  EXPECT_EQ(Line(u"modZ", 1), u"a = Total");
  EXPECT_EQ(s->Keys(), (Rows{"Billing|modA|(Declarations)|1"}));
  auto& boxes = s->world.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].title, u"Replace Error");
  EXPECT_EQ(boxes[0].style, 48);
}

TEST_F(Replace, TheCodeColumnIsUpdatedWhereverItStands) {
  Open(u"  x = a + a");
  s->world.Store(u"Options", u"Columns", u"Code,1|Line,1");
  s->Results().LoadColumnHeaders();
  s->Search(u"a");
  RunReplace(u"ab");
  EXPECT_EQ(s->Rows(), (Rows{"x = ab + ab\t1"}));
}

// The window system refusing to put the dialog on top (as a desktop may) is reported as
// "Replace Load"; the dialog still opens, without the text and option loading would have put
// in, and what the user then types and chooses is used.
TEST_F(Replace, ALoadFailureIsReportedAndTheDialogStillAnswers) {
  Open(u"a = Total");
  s->Search(u"total");
  s->world.runtime->Windows().onTopMostChanged = [](vb::Hwnd) {
    throw vb::Error::Standard(5, u"the window cannot be placed on top");
  };
  bool optionChosenByLoad = true;
  vb::Script(*s->world.runtime).On(u"frmReplace", [&](vb::UserActions& ui) {
    auto* form = dynamic_cast<quillmark::frmReplace*>(s->world.runtime->FindLoaded(u"frmReplace"));
    optionChosenByLoad = form->optReplace(0).Value() || form->optReplace(1).Value();
    ui.Type(u"txtReplace", u"Sum");
    ui.Click(u"optReplace", 0);
    ui.Click(u"cmdReplace");
  });
  s->ResultsUser().Click(u"cmdToolbar", 2);
  auto& boxes = s->world.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].title, u"Replace Load");
  EXPECT_EQ(boxes[0].style, 48);
  EXPECT_NE(boxes[0].prompt.find(u"cannot be placed on top"), std::u16string::npos);
  EXPECT_FALSE(optionChosenByLoad);
  EXPECT_EQ(Line(u"modA", 1), u"a = Sum");
}

}  // namespace
