// Contract: the VBE root, projects, components, designers' absence and the events that the
// object model raises, with their timing.
#include <gtest/gtest.h>

#include "support/IdeBuilder.h"
#include "support/VbErrorOf.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/Events.h"
#include "vbide/VBComponent.h"
#include "vbide/VBProject.h"
#include "vbide/Window.h"

namespace {

using qmtest::ErrorNumberOf;
using qmtest::IdeBuilder;

TEST(Vbe, StartsWithNothingActiveAndAnswersItsVersion) {
  auto ide = IdeBuilder().Build();
  EXPECT_EQ(ide->Version(), u"6.00");
  EXPECT_EQ(ide->VBProjects()->Count(), 0);
  EXPECT_EQ(ide->ActiveVBProject(), nullptr);
  EXPECT_EQ(ide->SelectedVBComponent(), nullptr);
  EXPECT_EQ(ide->ActiveCodePane(), nullptr);
  EXPECT_EQ(ide->ActiveWindow(), nullptr);  // the main window has the focus
  EXPECT_EQ(ide->MainWindow()->Type(), vbide::vbext_wt_MainWindow);
}

TEST(Projects, AreListedInLoadOrderAndFoundByNameIgnoringCase) {
  auto ide = IdeBuilder().Project(u"Billing").Project(u"Stock", vbide::vbext_pt_ActiveXDll).Build();
  auto projects = ide->VBProjects();
  ASSERT_EQ(projects->Count(), 2);
  EXPECT_EQ(projects->Item(1)->Name(), u"Billing");
  EXPECT_EQ(projects->Item(u"STOCK")->Type(), vbide::vbext_pt_ActiveXDll);
  EXPECT_EQ(ErrorNumberOf([&] { projects->Item(3); }), 9);
  EXPECT_EQ(ErrorNumberOf([&] { projects->Item(u"Payroll"); }), 9);
  EXPECT_EQ(ide->ActiveVBProject()->Name(), u"Billing");  // the first project becomes active
  EXPECT_EQ(projects->Item(1)->FileName(), u"");          // never saved
}

TEST(Projects, RenameFiresAfterTheNewNameIsSet) {
  auto ide = IdeBuilder().Project(u"Billing").Build();
  std::u16string seenName, seenOld;
  auto sink = ide->Events()->VBProjectsEvents();
  auto subscription = sink->ItemRenamed.Subscribe([&](vbide::VBProjectPtr p, std::u16string old) {
    seenName = p->Name();
    seenOld = old;
  });
  ide->VBProjects()->Item(1)->SetName(u"Invoicing");
  EXPECT_EQ(seenName, u"Invoicing");
  EXPECT_EQ(seenOld, u"Billing");
  EXPECT_TRUE(ide->VBProjects()->Item(1)->IsDirty());
}

TEST(Components, KeepProjectOrderAndTellWhetherTheyHoldCode) {
  auto ide = IdeBuilder()
                 .Project(u"Billing")
                 .Module(u"modMain")
                 .Class(u"Invoice")
                 .Form(u"frmMain")
                 .Build();
  auto components = ide->VBProjects()->Item(1)->VBComponents();
  ASSERT_EQ(components->Count(), 3);
  EXPECT_EQ(components->Item(1)->Name(), u"modMain");
  EXPECT_EQ(components->Item(2)->Type(), vbide::vbext_ct_ClassModule);
  EXPECT_EQ(components->Item(u"FRMMAIN")->Type(), vbide::vbext_ct_VBForm);
  EXPECT_NE(components->Item(u"Invoice")->CodeModule(), nullptr);
  EXPECT_EQ(components->Item(u"Invoice")->Designer(), nullptr);
  EXPECT_NE(components->Item(u"frmMain")->Designer(), nullptr);
  EXPECT_EQ(ErrorNumberOf([&] { components->Item(u"modNone"); }), 9);
  EXPECT_EQ(components->Item(1)->FileCount(), 0);  // never saved: no file names yet
}

TEST(Components, ActivateShowsTheDesignerOrTheCodeAndFiresActivated) {
  auto ide = IdeBuilder()
                 .Project(u"Billing")
                 .Module(u"modMain", u"Sub Main()\nEnd Sub")
                 .Form(u"frmMain")
                 .Build();
  auto components = ide->VBProjects()->Item(1)->VBComponents();
  std::vector<std::u16string> activated;
  auto sink = ide->Events()->VBComponentsEvents(nullptr);
  auto subscription = sink->ItemActivated.Subscribe(
      [&](vbide::VBComponentPtr c) { activated.push_back(c->Name()); });

  components->Item(u"frmMain")->Activate();
  auto designerWindow = components->Item(u"frmMain")->DesignerWindow();
  ASSERT_NE(designerWindow, nullptr);
  EXPECT_TRUE(designerWindow->Visible());
  EXPECT_EQ(designerWindow->Caption(), u"Billing - frmMain (Form)");
  EXPECT_EQ(ide->ActiveWindow(), designerWindow);

  components->Item(u"modMain")->Activate();
  auto pane = ide->ActiveCodePane();
  ASSERT_NE(pane, nullptr);
  EXPECT_EQ(pane->CodeModule()->Parent()->Name(), u"modMain");
  EXPECT_EQ(pane->Window()->Caption(), u"Billing - modMain (Code)");
  EXPECT_EQ(activated, (std::vector<std::u16string>{u"frmMain", u"modMain"}));
}

TEST(Components, SelectionInTheProjectWindowFiresSelectedAndActivatesTheProject) {
  auto ide =
      IdeBuilder().Project(u"Billing").Module(u"modA").Project(u"Stock").Module(u"modB").Build();
  std::vector<std::u16string> events;
  auto components = ide->Events()->VBComponentsEvents(nullptr);
  auto projects = ide->Events()->VBProjectsEvents();
  auto s1 = components->ItemSelected.Subscribe(
      [&](vbide::VBComponentPtr c) { events.push_back(u"selected " + c->Name()); });
  auto s2 = projects->ItemActivated.Subscribe(
      [&](vbide::VBProjectPtr p) { events.push_back(u"activated " + p->Name()); });
  ide->SelectComponent(ide->VBProjects()->Item(2)->VBComponents()->Item(1));
  EXPECT_EQ(ide->SelectedVBComponent()->Name(), u"modB");
  EXPECT_EQ(ide->ActiveVBProject()->Name(), u"Stock");
  EXPECT_EQ(events, (std::vector<std::u16string>{u"activated Stock", u"selected modB"}));
}

TEST(Events, AddedAndRemovedFireWithTheCollectionAlreadyChanged) {
  auto ide = IdeBuilder().Project(u"Billing").Module(u"modMain").Build();
  auto project = ide->VBProjects()->Item(1);
  auto sink = ide->Events()->VBComponentsEvents(project);
  int countSeenOnAdd = -1, countSeenOnRemove = -1, removedError = 0;
  auto s1 = sink->ItemAdded.Subscribe(
      [&](vbide::VBComponentPtr) { countSeenOnAdd = project->VBComponents()->Count(); });
  auto s2 = sink->ItemRemoved.Subscribe([&](vbide::VBComponentPtr c) {
    countSeenOnRemove = project->VBComponents()->Count();
    removedError = ErrorNumberOf([&] { c->Name(); });
  });
  auto added = project->VBComponents()->Add(vbide::vbext_ct_ClassModule);
  EXPECT_EQ(added->Name(), u"Class1");
  EXPECT_EQ(countSeenOnAdd, 2);
  project->VBComponents()->Remove(added);
  EXPECT_EQ(countSeenOnRemove, 1);
  EXPECT_EQ(removedError, 91);
}

TEST(Events, NarrowedSourcesHearOnlyTheirProjectAndEndWithTheirSubscription) {
  auto ide = IdeBuilder().Project(u"Billing").Project(u"Stock").Build();
  auto billing = ide->VBProjects()->Item(1);
  auto stock = ide->VBProjects()->Item(2);
  auto billingEvents = ide->Events()->VBComponentsEvents(billing);
  int heard = 0;
  auto subscription = billingEvents->ItemAdded.Subscribe([&](vbide::VBComponentPtr) { ++heard; });
  stock->VBComponents()->Add(vbide::vbext_ct_StdModule);
  EXPECT_EQ(heard, 0);
  billing->VBComponents()->Add(vbide::vbext_ct_StdModule);
  EXPECT_EQ(heard, 1);
  subscription.Reset();
  billing->VBComponents()->Add(vbide::vbext_ct_StdModule);
  EXPECT_EQ(heard, 1);
}

TEST(Events, HandlersRunInSubscriptionOrderAndMayUnsubscribeOthers) {
  auto ide = IdeBuilder().Project(u"Billing").Build();
  auto sink = ide->Events()->VBComponentsEvents(nullptr);
  std::vector<int> order;
  vbide::Subscription second;
  auto first = sink->ItemAdded.Subscribe([&](vbide::VBComponentPtr) {
    order.push_back(1);
    second.Reset();  // a handler removed during the raise is not called afterwards
  });
  second = sink->ItemAdded.Subscribe([&](vbide::VBComponentPtr) { order.push_back(2); });
  auto third = sink->ItemAdded.Subscribe([&](vbide::VBComponentPtr) { order.push_back(3); });
  ide->VBProjects()->Item(1)->VBComponents()->Add(vbide::vbext_ct_StdModule);
  EXPECT_EQ(order, (std::vector<int>{1, 3}));
}

TEST(Components, RenameRewritesTheNameEverywhereTheIdeShowsIt) {
  auto ide = IdeBuilder().Project(u"Billing").Module(u"modMain", u"x = 1").Build();
  auto component = ide->VBProjects()->Item(1)->VBComponents()->Item(1);
  component->CodeModule()->CodePane()->Show();
  std::u16string old;
  auto sink = ide->Events()->VBComponentsEvents(nullptr);
  auto s = sink->ItemRenamed.Subscribe([&](vbide::VBComponentPtr, std::u16string o) { old = o; });
  component->SetName(u"modStart");
  EXPECT_EQ(old, u"modMain");
  EXPECT_EQ(ide->VBProjects()->Item(1)->VBComponents()->Item(u"modStart"), component);
  EXPECT_EQ(ide->ActiveCodePane()->Window()->Caption(), u"Billing - modStart (Code)");
}

}  // namespace
