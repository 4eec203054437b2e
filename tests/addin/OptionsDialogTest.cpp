// The Options dialog: what it shows, the interval box's keys, the column list's moves and checks,
// the validation messages in their order, and what OK, Apply and Cancel store and tell.
#include <gtest/gtest.h>

#include "addin/Connect.h"
#include "options/frmOptions.h"
#include "runtime/UserActions.h"
#include "search/docResults.h"
#include "support/AddinWorld.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace {

using qmtest::AddinWorld;
using qmtest::IdeBuilder;
using Texts = std::vector<std::u16string>;

constexpr auto kInterval = u"Invalid Auto-Save Interval.";
constexpr auto kNotify = u"You must select a notification method.";
constexpr auto kColumns =
    u"You must select at least one column to be displayed in the search results window.";

struct OptionsWorld {
  AddinWorld world{IdeBuilder().Project(u"Billing").Module(u"modMain", u"Sub Main()\nEnd Sub")};
  std::shared_ptr<quillmark::frmOptions> form;

  OptionsWorld() { world.ConnectLater(); }
  quillmark::frmOptions& Open() {
    form = vb::New<quillmark::frmOptions>(world.Main());
    form->Load();
    return *form;
  }
  vb::UserActions User() { return vb::UserActions(*form); }
  Texts Entries() const {
    Texts texts;
    for (int i = 0; i < form->lstColumns.ListCount(); ++i)
      texts.push_back(form->lstColumns.List(i) + (form->lstColumns.Selected(i) ? u"+" : u"-"));
    return texts;
  }
  std::u16string Setting(std::u16string_view key) { return world.Setting(u"Options", key); }
  std::vector<std::u16string> Messages() const {
    std::vector<std::u16string> prompts;
    for (auto& box : world.runtime->MessageBoxService().Transcript()) {
      EXPECT_EQ(box.style, vb::vbExclamation);
      prompts.push_back(box.prompt);
    }
    return prompts;
  }
};

TEST(OptionsDialog, AFreshUserSeesTheDefaultsWithTheAutoSaveBoxesOff) {
  OptionsWorld w;
  auto& f = w.Open();
  EXPECT_TRUE(f.picOptions(0).Visible());
  EXPECT_EQ(f.chkSave.Value(), 0);
  EXPECT_EQ(f.txtSave.Text(), u"5");
  EXPECT_EQ(f.cboSave.Text(), u"Message");
  EXPECT_FALSE(f.txtSave.Enabled());
  EXPECT_FALSE(f.cboSave.Enabled());
  EXPECT_FALSE(f.cmdApply.Enabled());
  EXPECT_EQ(w.Entries(), (Texts{u"Project+", u"Module+", u"Procedure+", u"Line+", u"Code+"}));
  w.User().SetCheck(u"chkSave", 1);
  EXPECT_TRUE(f.txtSave.Enabled());
  EXPECT_TRUE(f.cboSave.Enabled());
  EXPECT_TRUE(f.cmdApply.Enabled());
}

TEST(OptionsDialog, ShowsTheStoredValues) {
  OptionsWorld w;
  w.world.Store(u"Options", u"AutoSave", u"1");
  w.world.Store(u"Options", u"SaveInterval", u"12");
  w.world.Store(u"Options", u"SaveNotify", u"1");
  w.world.Store(u"Options", u"Columns", u"Line,1|Code,yes|Project,0|Module,2|Procedure");
  auto& f = w.Open();
  EXPECT_EQ(f.chkSave.Value(), 1);
  EXPECT_EQ(f.txtSave.Text(), u"12");
  EXPECT_EQ(f.cboSave.Text(), u"Beep");
  EXPECT_EQ(w.Entries(), (Texts{u"Line+", u"Code-", u"Project-", u"Module-", u"Procedure-"}));
  EXPECT_FALSE(f.cmdApply.Enabled());
}

TEST(OptionsDialog, TheIntervalBoxTakesOnlyDigitsAndBackspace) {
  OptionsWorld w;
  w.world.Store(u"Options", u"AutoSave", u"1");
  auto& f = w.Open();
  w.User().Type(u"txtSave", u"");
  for (int key :
       std::initializer_list<int>{'1', 'A', ' ', '2', 189 /* minus */, vb::vbKeyBack, '7'})
    w.User().PressKey(u"txtSave", key);
  EXPECT_EQ(f.txtSave.Text(), u"17");
}

TEST(OptionsDialog, MovesKeepTheCheckAndTheSelectionAndEnableApply) {
  OptionsWorld w;
  auto& f = w.Open();
  w.User().CheckItem(u"lstColumns", 3, false);  // Line
  w.User().Click(u"cmdMoveCol", 0);
  EXPECT_EQ(w.Entries(), (Texts{u"Project+", u"Module+", u"Line-", u"Procedure+", u"Code+"}));
  EXPECT_EQ(f.lstColumns.ListIndex(), 2);
  w.User().Pick(u"lstColumns", 0);
  w.User().Click(u"cmdMoveCol", 0);  // nothing above the first entry
  w.User().Pick(u"lstColumns", 4);
  w.User().Click(u"cmdMoveCol", 1);  // nor below the last
  EXPECT_EQ(w.Entries(), (Texts{u"Project+", u"Module+", u"Line-", u"Procedure+", u"Code+"}));
  EXPECT_EQ(f.lstColumns.ListIndex(), 4);

  OptionsWorld fresh;
  auto& g = fresh.Open();
  fresh.User().Pick(u"lstColumns", 1);
  fresh.User().Click(u"cmdMoveCol", 1);
  EXPECT_TRUE(g.cmdApply.Enabled());
  fresh.User().Click(u"cmdApply");
  EXPECT_EQ(fresh.Setting(u"Columns"), u"Project,1|Procedure,1|Module,1|Line,1|Code,1");
  EXPECT_FALSE(g.cmdApply.Enabled());
  EXPECT_TRUE(g.IsLoaded());
}

// Each case starts from the defaults, sets the controls as a user would and presses OK.
TEST(OptionsDialog, ValidationMessagesComeInOrderAndStoreNothing) {
  struct Case {
    bool autoSave;
    std::u16string interval;  // typed while Auto-Save is on
    bool noNotify;            // a stored "SaveNotify" that names no entry
    bool noColumn;
    std::u16string message;  // "" when OK saves and closes
  };
  const Case cases[] = {
      {true, u"0", false, false, kInterval}, {true, u"1000", false, false, kInterval},
      {true, u"", false, false, kInterval},  {true, u"1", false, false, u""},
      {true, u"999", false, false, u""},     {true, u"5", true, false, kNotify},
      {true, u"0", true, true, kInterval},   {true, u"5", true, true, kNotify},
      {false, u"0", true, false, u""},       {false, u"5", false, true, kColumns},
      {true, u"5", false, true, kColumns},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(vb::ToUtf8(c.interval) + (c.autoSave ? " on" : " off") +
                 (c.noNotify ? " no notify" : "") + (c.noColumn ? " no column" : ""));
    OptionsWorld w;
    if (c.noNotify) w.world.Store(u"Options", u"SaveNotify", u"7");
    auto& f = w.Open();
    w.User().SetCheck(u"chkSave", 1);
    w.User().Type(u"txtSave", c.interval);
    w.User().SetCheck(u"chkSave", c.autoSave ? 1 : 0);
    if (c.noColumn)
      for (int i = 0; i < 5; ++i) w.User().CheckItem(u"lstColumns", i, false);
    w.User().Click(u"cmdOK");
    if (!c.message.empty()) {
      EXPECT_EQ(w.Messages(), (std::vector<std::u16string>{c.message}));
      EXPECT_TRUE(f.IsLoaded());
      EXPECT_EQ(w.Setting(u"AutoSave"), u"");
      EXPECT_EQ(w.Setting(u"SaveInterval"), u"");
      continue;
    }
    EXPECT_TRUE(w.Messages().empty());
    EXPECT_FALSE(f.IsLoaded());
    EXPECT_EQ(w.Setting(u"AutoSave"), c.autoSave ? u"1" : u"0");
    EXPECT_EQ(w.Setting(u"SaveInterval"), c.interval);  // as typed, even "0" with Auto-Save off
    EXPECT_EQ(w.Setting(u"SaveNotify"), c.noNotify ? u"-1" : u"2");
  }
}

TEST(OptionsDialog, SavingWithAutoSaveOnStartsTheIntervalAgain) {
  OptionsWorld w;
  auto connectedAt = w.world.Main().gLastSave;
  w.world.runtime->Loop().Advance(std::chrono::minutes(3));
  w.Open();
  w.User().Click(u"cmdOK");  // off: the last-save time stays
  EXPECT_EQ(w.world.Main().gLastSave, connectedAt);
  w.Open();
  w.User().SetCheck(u"chkSave", 1);
  w.User().Pick(u"cboSave", 0);
  w.User().PressKey(vb::vbKeyReturn);
  EXPECT_EQ(w.world.Main().gLastSave, w.world.runtime->Now());
  EXPECT_EQ(w.Setting(u"SaveNotify"), u"0");
}

TEST(OptionsDialog, ColumnsAreWrittenOnlyWhenChangedAndTheResultsWindowReloadsThen) {
  OptionsWorld w;
  w.world.Main().connect->ShowResults();
  auto& results = *w.world.Main().gdocResults;
  auto project = w.world.ide->VBProjects()->Item(1);
  results.AddResult(project, project->VBComponents()->Item(1), 1, u"Sub Main()");
  w.Open();
  w.User().Click(u"cmdOK");
  EXPECT_EQ(w.Setting(u"Columns"), u"");  // never written
  EXPECT_EQ(results.lvwSearch.ListItems().Count(), 1);

  // Code to the top and Line hidden.
  w.Open();
  w.User().Pick(u"lstColumns", 4);
  for (int i = 0; i < 4; ++i) w.User().Click(u"cmdMoveCol", 0);
  w.User().CheckItem(u"lstColumns", 4, false);
  w.User().Click(u"cmdOK");
  EXPECT_EQ(w.Setting(u"Columns"), u"Code,1|Project,1|Module,1|Procedure,1|Line,0");
  Texts captions;
  for (int i = 1; i <= results.lvwSearch.ColumnHeaders().Count(); ++i)
    captions.push_back(results.lvwSearch.ColumnHeaders().Item(i).Text());
  EXPECT_EQ(captions, (Texts{u"Code", u"Project", u"Module", u"Procedure"}));
  EXPECT_EQ(results.lvwSearch.ListItems().Count(), 0);
}

TEST(OptionsDialog, CancelAndEscapeStoreNothingAndThePositionIsKept) {
  OptionsWorld w;
  w.world.Store(u"frmOptions", u"Left", u"1500");
  w.world.Store(u"frmOptions", u"Top", u"900");
  auto& f = w.Open();
  EXPECT_EQ(f.Left(), 1500);
  EXPECT_EQ(f.Top(), 900);
  w.User().SetCheck(u"chkSave", 1);
  f.Move(2100, 1200);
  w.User().Click(u"cmdCancel");
  EXPECT_EQ(w.Setting(u"AutoSave"), u"");
  EXPECT_EQ(w.world.Setting(u"frmOptions", u"Left"), u"2100");
  EXPECT_EQ(w.world.Setting(u"frmOptions", u"Top"), u"1200");
  w.Open();
  w.User().SetCheck(u"chkSave", 1);
  w.User().PressKey(vb::vbKeyEscape);
  EXPECT_FALSE(w.form->IsLoaded());
  EXPECT_EQ(w.Setting(u"AutoSave"), u"");
}

TEST(OptionsDialog, TheMenuOpensItModallyAndReleasesItAfterwards) {
  OptionsWorld w;
  vb::Script(*w.world.runtime)
      .On(u"frmOptions", [](vb::UserActions& a) { a.SetCheck(u"chkSave", 1); })
      .Click(u"frmOptions", u"cmdOK");
  w.world.Addin()->Menu_Options_Click();
  EXPECT_EQ(w.Setting(u"AutoSave"), u"1");
  EXPECT_EQ(w.world.Main().gfrmOptions, nullptr);
}

}  // namespace
