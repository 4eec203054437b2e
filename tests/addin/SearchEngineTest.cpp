// The search over each scope: the rows it yields, its progress figures, the stop request and
// the options read while it runs.
#include <gtest/gtest.h>

#include "SearchScenario.h"
#include "runtime/Runtime.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace {

using qmtest::IdeBuilder;
using qmtest::PanelRecorder;
using qmtest::SearchScenario;
using Rows = std::vector<std::string>;

IdeBuilder Billing() {
  return IdeBuilder()
      .Project(u"Billing")
      .Module(u"modMain",
              u"Option Explicit\nDim Customer As String\nSub Main()\n    Customer = \"x\"\nEnd Sub")
      .Class(u"CInvoice",
             u"Private mCustomer As String\nPublic Property Get Customer() As String\n    Customer "
             u"= mCustomer\n"
             u"End Property\nPublic Property Let Customer(v As String)\n    mCustomer = v\nEnd "
             u"Property")
      .Project(u"Shipping")
      .Module(u"modShip", u"Sub Ship()\n    ' Customer note\nEnd Sub");
}

TEST(SearchScopes, AllProjectsListsEveryMatchingLineOnceWithItsPlace) {
  SearchScenario s(Billing());
  s.PickScope(u"cboProject", u"(All Projects)");
  s.Search(u"customer");
  EXPECT_EQ(s.Rows(),
            (Rows{
                "Billing\tmodMain\t(Declarations)\t2\tDim Customer As String",
                "Billing\tmodMain\tMain\t4\tCustomer = \"x\"",
                "Billing\tCInvoice\t(Declarations)\t1\tPrivate mCustomer As String",
                "Billing\tCInvoice\tCustomer\t2\tPublic Property Get Customer() As String",
                "Billing\tCInvoice\tCustomer\t3\tCustomer = mCustomer",
                "Billing\tCInvoice\tCustomer\t5\tPublic Property Let Customer(v As String)",
                "Billing\tCInvoice\tCustomer\t6\tmCustomer = v",
                "Shipping\tmodShip\tShip\t2\t' Customer note",
            }));
  EXPECT_EQ(s.Keys()[1], "Billing|modMain|Main|4");
  auto& items = s.Results().lvwSearch.ListItems();
  EXPECT_EQ(items.Item(2).Tag(), u"    Customer = \"x\"");  // untrimmed
  EXPECT_EQ(items.Item(1).SmallIcon(), u"Module");
  EXPECT_EQ(items.Item(3).SmallIcon(), u"Class");
  EXPECT_EQ(s.Status(1), "Complete.");
  EXPECT_EQ(s.Status(2), "8 Matching Line(s)");
  EXPECT_FALSE(s.world.Main().Searching);
  EXPECT_FALSE(s.Results().cmdToolbar(1).Enabled());  // Stop
  EXPECT_TRUE(s.Results().cmdToolbar(2).Enabled());   // Replace
}

// Over all projects the maximum is every component plus one, so the bar never reads 100% before
// "Complete."; one project counts its components, one module takes one step.
TEST(SearchScopes, ProgressStepsPerComponentOfTheScope) {
  struct Case {
    std::u16string project, module;
    Rows progress;
    std::size_t rows;
  };
  const Case cases[] = {
      {u"(All Projects)", u"", {"Progress: 25%", "Progress: 50%", "Progress: 75%", "Complete."}, 8},
      {u"Billing", u"(All Modules)", {"Progress: 50%", "Progress: 100%", "Complete."}, 7},
      {u"Billing", u"CInvoice", {"Progress: 100%", "Complete."}, 5},
  };
  for (auto& c : cases) {
    SearchScenario s(Billing());
    PanelRecorder progress(s.Results().sbarResults);
    s.PickScope(u"cboProject", c.project);
    if (!c.module.empty()) s.PickScope(u"cboModule", c.module);
    s.Search(u"customer");
    EXPECT_EQ(progress.shown, c.progress) << vb::ToUtf8(c.project + u"/" + c.module);
    EXPECT_EQ(s.Rows().size(), c.rows) << vb::ToUtf8(c.project + u"/" + c.module);
  }
}

TEST(SearchScopes, AProcedureCoversEveryAccessorAndDeclarationsTheRest) {
  SearchScenario s(Billing());
  s.PickScope(u"cboProject", u"Billing");
  s.PickScope(u"cboModule", u"CInvoice");
  s.PickScope(u"cboProcedure", u"Customer");
  s.Search(u"customer");
  EXPECT_EQ(s.Keys(), (Rows{"Billing|CInvoice|Customer|2", "Billing|CInvoice|Customer|3",
                            "Billing|CInvoice|Customer|5", "Billing|CInvoice|Customer|6"}));
  s.PickScope(u"cboProcedure", u"(Declarations)");
  s.Search(u"customer");
  EXPECT_EQ(s.Keys(), (Rows{"Billing|CInvoice|(Declarations)|1"}));
}

TEST(SearchScopes, TheSelectionIsCutAtItsFirstAndLastColumnsButWholeLinesAreRecorded) {
  SearchScenario s(IdeBuilder()
                       .Project(u"Tools")
                       .Module(u"modOther", u"Sub A()\nEnd Sub")
                       .Project(u"Billing")
                       .Module(u"modSel", u"find 1\nfind\na find b\nfind it\nfind 5"));
  auto vbe = s.world.Main().gVBInstance;
  vbe->SetActiveVBProject(vbe->VBProjects()->Item(u"Tools"));
  auto pane = vbe->VBProjects()
                  ->Item(u"Billing")
                  ->VBComponents()
                  ->Item(u"modSel")
                  ->CodeModule()
                  ->CodePane();
  pane->Show();
  pane->SetSelection(2, 2, 4, 4);
  s.Dialog().CheckSelected();
  EXPECT_EQ(s.Dialog().chkSelected.Value(), 1);
  s.Search(u"find");
  // Line 2 is tested from column 2 ("ind"), line 3 whole, line 4 as its first 4 characters.
  // The project recorded is the IDE's active one, not the module's.
  EXPECT_EQ(s.Keys(), (Rows{"Tools|modSel|(Declarations)|3", "Tools|modSel|(Declarations)|4"}));
  EXPECT_EQ(s.Results().lvwSearch.ListItems().Item(2).Tag(), u"find it");
}

IdeBuilder ThreeProjects() {
  IdeBuilder b;
  for (auto project : {u"Alpha", u"Beta", u"Gamma"}) {
    b.Project(project).Module(u"modOne", u"x = Total").Module(u"modTwo", u"y = Total");
  }
  return b;
}

TEST(SearchStop, AStopDuringAllProjectsEndsOnlyTheProjectBeingSearched) {
  SearchScenario s(ThreeProjects());
  s.PickScope(u"cboProject", u"(All Projects)");
  // The user clicks Stop while the first module's search yields.
  s.world.runtime->Loop().Post([&] { s.ResultsUser().Click(u"cmdToolbar", 1); });
  s.Search(u"total");
  EXPECT_EQ(s.Keys(), (Rows{"Alpha|modOne|(Declarations)|1", "Beta|modOne|(Declarations)|1",
                            "Beta|modTwo|(Declarations)|1", "Gamma|modOne|(Declarations)|1",
                            "Gamma|modTwo|(Declarations)|1"}));
  EXPECT_FALSE(s.world.Main().StopSearch);  // taken back by the project that noticed it
}

TEST(SearchStop, AStopMadeBetweenProjectsEndsTheNextOneAfterItsFirstModule) {
  SearchScenario s(ThreeProjects());
  s.PickScope(u"cboProject", u"(All Projects)");
  // Alpha's two modules yield twice, then the yield after Alpha itself takes the click.
  auto& loop = s.world.runtime->Loop();
  loop.Post(
      [&] { loop.Post([&] { loop.Post([&] { s.ResultsUser().Click(u"cmdToolbar", 1); }); }); });
  s.Search(u"total");
  EXPECT_EQ(s.Rows().size(), 5u);
  EXPECT_EQ(s.Keys()[2], "Beta|modOne|(Declarations)|1");
  EXPECT_EQ(s.Keys()[3], "Gamma|modOne|(Declarations)|1");
}

TEST(SearchOptions, AreReadForEveryLineSoAChangeWhileTheSearchYieldsCounts) {
  SearchScenario s(ThreeProjects());
  s.PickScope(u"cboProject", u"(All Projects)");
  s.world.runtime->Loop().Post([&] { s.SetOption(u"chkMatchCase", true); });
  s.Search(u"total");
  EXPECT_EQ(s.Keys(), (Rows{"Alpha|modOne|(Declarations)|1"}));
}

TEST(SearchOptions, ExcludeCommentsAndWholeWordNarrowTheRows) {
  SearchScenario s(Billing());
  s.PickScope(u"cboProject", u"(All Projects)");
  s.SetOption(u"chkExcludeComments", true);
  s.SetOption(u"chkWholeWord", true);
  s.Search(u"customer");
  // Lines whose first "customer" is inside "mCustomer" fail the whole-word test; the comment
  // line is skipped.
  EXPECT_EQ(s.Keys(), (Rows{"Billing|modMain|(Declarations)|2", "Billing|modMain|Main|4",
                            "Billing|CInvoice|Customer|2", "Billing|CInvoice|Customer|3",
                            "Billing|CInvoice|Customer|5"}));
}

}  // namespace
