// The results window: configured columns, widths, sorting, opening a row, export and layout.
#include <gtest/gtest.h>

#include "SearchScenario.h"
#include "runtime/FileSystem.h"
#include "runtime/Runtime.h"
#include "search/ResultColumns.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace {

using qmtest::IdeBuilder;
using qmtest::SearchScenario;
using Rows = std::vector<std::string>;

IdeBuilder TenLines() {
  std::u16string code;
  for (int i = 1; i <= 10; ++i) code += u"  x" + vb::CStr(std::int64_t(i)) + u" = Total\n";
  return IdeBuilder().Project(u"Billing").Module(u"modTen", code);
}

std::vector<std::u16string> Captions(vb::ListView& list) {
  std::vector<std::u16string> captions;
  for (int i = 1; i <= list.ColumnHeaders().Count(); ++i)
    captions.push_back(list.ColumnHeaders().Item(i).Text());
  return captions;
}

// The usual flags, and the setting's order, go through the results window below.
TEST(ResultColumnsRule, OnlyAFlagOfExactlyOneShowsAColumn) {
  using quillmark::ShownColumns;
  using Names = std::vector<std::u16string>;
  EXPECT_EQ(ShownColumns(u"Line,2|Code,yes|Module,-1|Project,1.0|Procedure"), (Names{u"Project"}));
  EXPECT_EQ(ShownColumns(u""), Names{});
}

TEST(ResultColumnsRule, ProgressShowsTheIntegerPartNotTheRoundedOne) {
  EXPECT_EQ(quillmark::ProgressText(1, 3), u"Progress: 33%");
  EXPECT_EQ(quillmark::ProgressText(2, 3), u"Progress: 66%");
}

TEST(ResultsColumns, TheSettingChoosesAndOrdersTheColumns) {
  SearchScenario s(TenLines());
  s.world.Store(u"Options", u"Columns", u"Line,1|Code,1|Project,0");
  s.Results().LoadColumnHeaders();
  EXPECT_EQ(Captions(s.Results().lvwSearch), (std::vector<std::u16string>{u"Line", u"Code"}));
  s.PickScope(u"cboProject", u"(All Projects)");
  s.Search(u"x3 ");
  EXPECT_EQ(s.Rows(), (Rows{"3\tx3 = Total"}));  // the row text is the line, the code is trimmed
  EXPECT_EQ(s.Keys(), (Rows{"Billing|modTen|(Declarations)|3"}));
}

// Loading caps a width at 15000 twips (more reads as the default 1440); saving writes a width
// that moved more than 5 twips from the stored one, less the 285 twips nothing adds back.
TEST(ResultsColumns, WidthsComeFromTheSettingsAndGoBackLessTheirMargin) {
  auto s = std::make_unique<SearchScenario>(TenLines());
  auto settings = s->world.settings;
  s->world.Store(u"Search", u"Col1", u"2000");
  s->world.Store(u"Search", u"Col2", u"15001");
  s->world.Store(u"Search", u"Col5", u"15000");
  s->Results().LoadColumnHeaders();
  auto& columns = s->Results().lvwSearch.ColumnHeaders();
  EXPECT_EQ(columns.Item(1).Width(), 2000);
  EXPECT_EQ(columns.Item(2).Width(), 1440);
  EXPECT_EQ(columns.Item(5).Width(), 15000);
  columns.Item(3).SetWidth(3000);
  columns.Item(5).SetWidth(15004);
  s.reset();  // the IDE goes, and the document with it
  auto stored = [&](std::u16string_view key) {
    return settings->GetSetting(u"Quillmark Tools", u"Search", key, u"");
  };
  EXPECT_EQ(stored(u"Col2"), u"1155");  // 1440 shown, 15001 stored: 1440 - 285
  EXPECT_EQ(stored(u"Col3"), u"2715");
  EXPECT_EQ(stored(u"Col4"), u"");       // unchanged
  EXPECT_EQ(stored(u"Col5"), u"15000");  // close enough: not written
}

TEST(ResultsSorting, AColumnClickSortsItsTextAndASecondClickReverses) {
  SearchScenario s(TenLines());
  s.PickScope(u"cboProject", u"(All Projects)");
  s.Search(u"total");
  auto lines = [&] {
    Rows out;
    auto& items = s.Results().lvwSearch.ListItems();
    for (int i = 1; i <= items.Count(); ++i) out.push_back(vb::ToUtf8(items.Item(i).SubItems(3)));
    return out;
  };
  s.ResultsUser().ColumnClick(u"lvwSearch", 4);
  EXPECT_EQ(lines(), (Rows{"1", "10", "2", "3", "4", "5", "6", "7", "8", "9"}));  // text order
  s.ResultsUser().ColumnClick(u"lvwSearch", 4);
  EXPECT_EQ(lines(), (Rows{"9", "8", "7", "6", "5", "4", "3", "2", "10", "1"}));
  s.ResultsUser().ColumnClick(u"lvwSearch", 5);
  EXPECT_EQ(lines().front(), "1");  // "x1 = Total" sorts first by code
  EXPECT_EQ(s.Results().lvwSearch.SortOrder(), vb::lvwAscending);
}

TEST(ResultsOpen, ADoubleClickShowsTheCodeAndSelectsTheCurrentSearchText) {
  SearchScenario s(TenLines());
  s.PickScope(u"cboProject", u"(All Projects)");
  s.Search(u"total");
  s.ResultsUser().DblClickRow(u"lvwSearch", 4);
  auto pane = s.world.Main().gVBInstance->ActiveCodePane();
  ASSERT_TRUE(pane);
  EXPECT_EQ(pane->CodeModule()->Parent()->Name(), u"modTen");
  int sl = 0, sc = 0, el = 0, ec = 0;
  pane->GetSelection(sl, sc, el, ec);
  EXPECT_EQ((std::vector<int>{sl, sc, el, ec}), (std::vector<int>{4, 8, 4, 13}));
}

TEST(ResultsOpen, ADoubleClickOnARowWhoseModuleIsGoneDoesNothing) {
  SearchScenario s(TenLines());
  s.PickScope(u"cboProject", u"(All Projects)");
  s.Search(u"total");
  s.world.Main()
      .gVBInstance->VBProjects()
      ->Item(u"Billing")
      ->VBComponents()
      ->Item(u"modTen")
      ->SetName(u"modRenamed");
  s.ResultsUser().DblClickRow(u"lvwSearch", 1);
  EXPECT_FALSE(s.world.Main().gVBInstance->ActiveCodePane());
  EXPECT_TRUE(s.world.runtime->MessageBoxService().Transcript().empty());
}

TEST(ResultsOpen, ADoubleClickWhileSearchingStopsTheSearchAndStillOpensTheRow) {
  SearchScenario s(IdeBuilder()
                       .Project(u"Billing")
                       .Module(u"modA", u"Total = 1")
                       .Module(u"modB", u"Total = 2")
                       .Module(u"modC", u"Total = 3"));
  s.PickScope(u"cboProject", u"Billing");
  s.PickScope(u"cboModule", u"(All Modules)");
  s.world.runtime->Loop().Post([&] { s.ResultsUser().DblClickRow(u"lvwSearch", 1); });
  s.Search(u"total");
  EXPECT_EQ(s.Keys(), (Rows{"Billing|modA|(Declarations)|1"}));
  EXPECT_EQ(s.world.Main().gVBInstance->ActiveCodePane()->CodeModule()->Parent()->Name(), u"modA");
}

class ResultsExport : public ::testing::Test {
 protected:
  void SetUp() override {
    s.PickScope(u"cboProject", u"(All Projects)");
    s.Search(u"total");
  }
  SearchScenario s{TenLines()};
};

TEST_F(ResultsExport, WritesTheSelectedRowsTabSeparatedWithoutAHeader) {
  s.ResultsUser().SelectRows(u"lvwSearch", {2, 5, 9});
  s.dialogs->ScriptFile(u"/out/found");
  s.ResultsUser().Click(u"cmdToolbar", 3);
  EXPECT_EQ(s.world.files->files.at(u"/out/found.txt"),
            "Billing\tmodTen\t(Declarations)\t2\tx2 = Total\r\n"
            "Billing\tmodTen\t(Declarations)\t5\tx5 = Total\r\n"
            "Billing\tmodTen\t(Declarations)\t9\tx9 = Total\r\n");
  auto& call = s.dialogs->Calls().at(0);
  EXPECT_EQ(call.kind, vb::HeadlessPlatformDialogs::Kind::Save);
  EXPECT_EQ(call.file.filter, std::u16string(u"Text Files (*.txt)") + u'\0' + u"*.txt");
  EXPECT_EQ(call.file.defaultExt, u"txt");
}

TEST_F(ResultsExport, ACancelledDialogWritesNothingAndNoSelectedRowAnEmptyFile) {
  s.ResultsUser().SelectRows(u"lvwSearch", {1});
  s.dialogs->ScriptCancel();
  s.ResultsUser().Click(u"cmdToolbar", 3);
  EXPECT_TRUE(s.world.files->files.empty());
  EXPECT_TRUE(s.world.runtime->MessageBoxService().Transcript().empty());
  s.Results().lvwSearch.ListItems().Item(1).SetSelected(false);
  s.dialogs->ScriptFile(u"/out/none.txt");
  s.ResultsUser().Click(u"cmdToolbar", 3);
  EXPECT_EQ(s.world.files->files.at(u"/out/none.txt"), "");
}

TEST_F(ResultsExport, AFileThatCannotBeOpenedIsReportedAndNothingIsWritten) {
  s.world.files->unwritableFolders.insert(u"/locked");
  s.ResultsUser().SelectRows(u"lvwSearch", {1});
  s.dialogs->ScriptFile(u"/locked/found.txt");
  s.ResultsUser().Click(u"cmdToolbar", 3);
  EXPECT_TRUE(s.world.files->files.empty());
  auto& boxes = s.world.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].style, 48);
  EXPECT_EQ(boxes[0].title, u"");
  EXPECT_NE(boxes[0].prompt.find(u"/locked/found.txt"), std::u16string::npos);
}

TEST(ResultsLayout, TheToolbarStripAndTheListShareTheWindowAboveTheStatusBar) {
  SearchScenario s(TenLines());
  auto& r = s.Results();
  r.SetExtent(6000, 3000);
  float status = r.sbarResults.Height();
  float button = r.cmdToolbar(0).Width();
  EXPECT_EQ(r.picToolbar.Left(), 30);
  EXPECT_EQ(r.picToolbar.Width(), button + 30);
  EXPECT_EQ(r.picToolbar.Height(), 3000 - 60 - status);
  EXPECT_EQ(r.lvwSearch.Left(), 30 + r.picToolbar.Width());
  EXPECT_EQ(r.lvwSearch.Width(), 6000 - 60 - r.picToolbar.Width());
  r.SetExtent(100, 100);  // too small: the sizes that fail are left as they were
  EXPECT_EQ(r.lvwSearch.Width(), 6000 - 60 - r.picToolbar.Width());
}

TEST(ResultsButtons, SearchShowsTheDialog) {
  SearchScenario s(TenLines());
  s.ResultsUser().Click(u"cmdToolbar", 0);
  EXPECT_TRUE(s.world.Main().gfrmSearch->Visible());
}

// Unloading the add-in in the Add-In Manager leaves its "Search Results" window on screen. Its
// buttons used to reach the freed connection; now each reports run-time error 91 and the rows
// stay as they were.
TEST(ResultsAfterUnload, UseAfterFreeWhenTheLeftoverWindowsButtonsAreClicked) {
  SearchScenario s(TenLines());
  s.PickScope(u"cboProject", u"(All Projects)");
  s.Search(u"total");
  std::shared_ptr<quillmark::docResults> leftover = s.world.Main().gdocResults;
  s.world.Disconnect(vbide::ext_dm_UserClosed);
  ASSERT_EQ(s.world.Addin(), nullptr);
  auto& boxes = s.world.runtime->MessageBoxService();
  boxes.ClearTranscript();

  vb::UserActions user(*leftover);
  using quillmark::docResults;
  user.Click(u"cmdToolbar", docResults::kSearchButton);
  user.Click(u"cmdToolbar", docResults::kReplaceButton);  // its own trap shows the error
  user.Click(u"cmdToolbar", docResults::kExportButton);
  user.DblClickRow(u"lvwSearch", 1);  // opening a row ignores errors
  user.ColumnClick(u"lvwSearch", 4);  // sorting needs no connection

  const std::u16string notSet = vb::Error::Standard(91).Description();
  const std::u16string reported = u"Run-time error '91':\r\n\r\n" + notSet;
  using Box = vb::MsgBoxRecord;
  EXPECT_EQ(boxes.Transcript(),
            (std::vector<Box>{{reported, vb::vbCritical, u"", vb::vbOK},
                              {notSet, vb::vbExclamation, u"Replace Error", vb::vbOK},
                              {reported, vb::vbCritical, u"", vb::vbOK}}));
  EXPECT_EQ(leftover->lvwSearch.ListItems().Count(), 10);
}

}  // namespace
