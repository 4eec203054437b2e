// The search dialog: its controls, history, keys, selection check, scope lists and project
// events, and the toolbar's search box running a real search.
#include <gtest/gtest.h>

#include "SearchScenario.h"
#include "addin/Connect.h"
#include "host/CommandBars.h"
#include "host/Ide.h"
#include "runtime/Runtime.h"
#include "runtime/SettingsStore.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace {

using qmtest::IdeBuilder;
using qmtest::SearchScenario;
using Texts = std::vector<std::u16string>;

IdeBuilder World() {
  return IdeBuilder()
      .Project(u"Billing")
      .Module(u"modMain", u"Dim Count As Long\nSub Main()\n    x = Count + 1\nEnd Sub")
      .Class(u"CInvoice",
             u"Const Rate = 1\nDim mTotal As Long\nPublic Event Paid()\nPublic Property Get "
             u"Total()\nEnd Property\n"
             u"Public Property Let Total(v)\nEnd Property\nSub Post()\nEnd Sub")
      .Project(u"Archive")
      .Module(u"modOld", u"Sub Keep()\nEnd Sub");
}

Texts ListOf(const vb::ComboBox& box) {
  Texts texts;
  for (int i = 0; i < box.ListCount(); ++i) texts.push_back(box.List(i));
  return texts;
}

void StoreHistory(SearchScenario& s, const Texts& texts) {
  for (std::size_t i = 0; i < texts.size(); ++i)
    s.world.settings->SaveSetting(u"QTools Search History", u"SearchRecents",
                                  u"Recent" + vb::CStr(std::int64_t(i + 1)), texts[i]);
}

Texts StoredHistory(SearchScenario& s) {
  Texts texts;
  for (auto& pair : s.world.settings->GetAllSettings(u"QTools Search History", u"SearchRecents"))
    texts.push_back(pair.second);
  return texts;
}

TEST(SearchDialog, ShowsItsControlsOnTopWithTheActiveProjectChosen) {
  SearchScenario s(World());
  auto& d = s.Dialog();
  EXPECT_TRUE(d.TopMost());
  EXPECT_TRUE(d.KeyPreview());
  EXPECT_EQ(ListOf(d.cboProject), (Texts{u"(All Projects)", u"Archive", u"Billing"}));  // sorted
  EXPECT_EQ(d.cboProject.Text(), u"Billing");
  EXPECT_EQ(ListOf(d.cboModule), (Texts{u"(All Modules)", u"CInvoice", u"modMain"}));
  EXPECT_TRUE(d.cboModule.Enabled());
  EXPECT_FALSE(d.chkSelected.Enabled());  // no code pane yet
}

TEST(SearchDialog, SearchIsEnabledOnlyWhileTheBoxHoldsText) {
  SearchScenario s(World());
  auto& d = s.Dialog();
  EXPECT_FALSE(d.cmdSearch.Enabled());
  s.DialogUser().Type(u"cboSearch", u"Count");
  EXPECT_TRUE(d.cmdSearch.Enabled());
  s.DialogUser().Type(u"cboSearch", u"");
  EXPECT_FALSE(d.cmdSearch.Enabled());
}

TEST(SearchDialog, AModuleListsItsMethodsPropertiesAndEventsButNotItsData) {
  SearchScenario s(World());
  s.PickScope(u"cboModule", u"CInvoice");
  auto& d = s.Dialog();
  EXPECT_EQ(ListOf(d.cboProcedure),
            (Texts{u"(All Procedures)", u"(Declarations)", u"Paid", u"Post", u"Total"}));
  EXPECT_EQ(d.cboProcedure.Text(), u"(All Procedures)");
  EXPECT_TRUE(d.cboProcedure.Enabled());
  EXPECT_EQ(d.MousePointer(), 0);
  s.PickScope(u"cboModule", u"(All Modules)");
  EXPECT_FALSE(d.cboProcedure.Enabled());
  s.PickScope(u"cboProject", u"(All Projects)");
  EXPECT_FALSE(d.cboModule.Enabled());
}

TEST(SearchDialog, TheSelectedComponentIsChosenInTheModuleList) {
  SearchScenario s(World());
  auto vbe = s.world.Main().gVBInstance;
  s.world.ide->SelectComponent(
      vbe->VBProjects()->Item(u"Billing")->VBComponents()->Item(u"modMain"));
  s.PickScope(u"cboProject", u"Billing");
  EXPECT_EQ(s.Dialog().cboModule.Text(), u"modMain");
  EXPECT_TRUE(s.Dialog().cboProcedure.Enabled());
}

TEST(SearchHistory, OnlyTheExactEntryMovesToTheTop) {
  SearchScenario s(World());
  StoreHistory(s, {u"Bar", u"foo", u"Foo"});
  s.Search(u"Foo");
  EXPECT_EQ(ListOf(s.Dialog().cboSearch), (Texts{u"Foo", u"Bar", u"foo"}));
  EXPECT_EQ(StoredHistory(s), (Texts{u"Foo", u"Bar", u"foo"}));
  EXPECT_EQ(s.world.Main().SearchText, u"Foo");
  // The toolbar's box was reloaded from the same history.
  EXPECT_EQ(s.world.Addin()->SearchCombo()->List(1), u"Foo");
  EXPECT_EQ(s.world.Addin()->SearchCombo()->ListCount(), 3);
}

TEST(SearchHistory, TheDialogKeepsElevenWhileTheStoreKeepsTenForTheNextStart) {
  SearchScenario s(World());
  for (int i = 1; i <= 11; ++i) s.Search(u"text" + vb::CStr(std::int64_t(i)));
  EXPECT_EQ(s.Dialog().cboSearch.ListCount(), 11);
  Texts stored = StoredHistory(s);
  ASSERT_EQ(stored.size(), 10u);
  EXPECT_EQ(stored.front(), u"text11");
  EXPECT_EQ(stored.back(), u"text2");
  auto fresh = vb::New<quillmark::frmSearch>(s.world.Main());
  fresh->Load();
  EXPECT_EQ(fresh->cboSearch.ListCount(), 10);
  EXPECT_EQ(fresh->cboSearch.List(0), u"text11");
}

TEST(SearchKeys, F5RepeatsThePreviousSearchWithoutReadingTheBox) {
  SearchScenario s(World());
  s.PickScope(u"cboProject", u"(All Projects)");
  s.Search(u"Count");
  s.DialogUser().Type(u"cboSearch", u"Keep");
  s.DialogUser().PressKey(u"cboSearch", 116);
  EXPECT_EQ(s.Keys(), (std::vector<std::string>{"Billing|modMain|(Declarations)|1",
                                                "Billing|modMain|Main|3"}));
  EXPECT_EQ(StoredHistory(s), (Texts{u"Count"}));
  EXPECT_EQ(s.world.Main().SearchText, u"Count");
}

TEST(SearchKeys, EscapeUnloadsTheDialog) {
  SearchScenario s(World());
  s.Dialog();
  s.DialogUser().PressKey(u"cboSearch", 27);
  EXPECT_FALSE(s.world.Main().gfrmSearch->IsLoaded());
}

TEST(CheckSelected, FollowsTheActiveCodePanesSelection) {
  SearchScenario s(World());
  auto& d = s.Dialog();
  auto pane = s.world.Main()
                  .gVBInstance->VBProjects()
                  ->Item(u"Billing")
                  ->VBComponents()
                  ->Item(u"modMain")
                  ->CodeModule()
                  ->CodePane();
  pane->Show();
  pane->SetSelection(3, 9, 3, 14);  // "Count" in "    x = Count + 1"
  d.CheckSelected();
  EXPECT_EQ(d.cboSearch.Text(), u"Count");
  EXPECT_EQ(d.chkSelected.Value(), 0);
  EXPECT_TRUE(d.chkSelected.Enabled());

  pane->SetSelection(1, 1, 3, 2);
  d.CheckSelected();
  EXPECT_EQ(d.chkSelected.Value(), 1);
  EXPECT_EQ(d.cboSearch.Text(), u"");
  EXPECT_FALSE(d.cboProject.Enabled());  // the scope lists give way to the selection
  EXPECT_FALSE(d.cboModule.Enabled());

  pane->SetSelection(2, 4, 2, 4);
  d.CheckSelected();
  EXPECT_EQ(d.chkSelected.Value(), 0);
  EXPECT_FALSE(d.chkSelected.Enabled());
  EXPECT_TRUE(d.cboProject.Enabled());
}

TEST(ProjectEvents, AddingRenamingAndRemovingAProjectRebuildTheList) {
  SearchScenario s(World());
  auto& d = s.Dialog();
  auto added = s.world.ide->NewProject(vbide::vbext_pt_StandardExe, u"Payroll");
  EXPECT_EQ(ListOf(d.cboProject), (Texts{u"(All Projects)", u"Archive", u"Billing", u"Payroll"}));
  auto vbe = s.world.Main().gVBInstance;
  vbe->VBProjects()->Item(u"Billing")->SetName(u"Invoicing");
  EXPECT_EQ(ListOf(d.cboProject), (Texts{u"(All Projects)", u"Archive", u"Invoicing", u"Payroll"}));
  EXPECT_EQ(d.cboProject.Text(), vbe->ActiveVBProject()->Name());  // the active project again
  s.world.ide->RemoveProject(added);
  EXPECT_EQ(ListOf(d.cboProject), (Texts{u"(All Projects)", u"Archive", u"Invoicing"}));
}

// A search whose module was gone raised error 9 and left Searching set and Stop enabled, so the
// results window stayed stuck in a search that had ended.
TEST(SearchErrors, ASearchEndedByAnErrorIsOverAndStopIsDisabled) {
  SearchScenario s(World());
  auto vbe = s.world.Main().gVBInstance;
  auto billing = vbe->VBProjects()->Item(u"Billing");
  s.world.ide->SelectComponent(billing->VBComponents()->Item(u"modMain"));
  s.PickScope(u"cboProject", u"Billing");
  billing->VBComponents()->Remove(billing->VBComponents()->Item(u"modMain"));
  auto combo = std::dynamic_pointer_cast<host::CommandBarComboBox>(s.world.Addin()->SearchCombo());
  combo->CommitTyped(u"Count");  // the toolbar's handler ignores the error
  EXPECT_FALSE(s.world.Main().Searching);
  EXPECT_FALSE(s.Results().cmdToolbar(1).Enabled());
  EXPECT_EQ(s.Status(1), "Complete.");
}

TEST(ToolbarSearch, TheSearchBoxRunsARealSearchOverTheDialogsScope) {
  SearchScenario s(World());
  s.PickScope(u"cboProject", u"(All Projects)");
  auto combo = std::dynamic_pointer_cast<host::CommandBarComboBox>(s.world.Addin()->SearchCombo());
  combo->CommitTyped(u"keep");
  EXPECT_EQ(s.Keys(), (std::vector<std::string>{"Archive|modOld|Keep|1"}));
  EXPECT_EQ(s.Status(2), "1 Matching Line(s)");
  EXPECT_TRUE(s.world.Main().gwinResults->Visible());
  EXPECT_EQ(StoredHistory(s), (Texts{u"keep"}));
}

}  // namespace
