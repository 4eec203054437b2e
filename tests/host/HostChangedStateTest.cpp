// Contract: a component's unsaved changes. Every kind of edit marks the component (and so its
// project), a save clears the mark, and saving what did not change writes nothing.
#include <gtest/gtest.h>

#include <functional>

#include "host/Ide.h"
#include "host/Project.h"
#include "support/TempFolder.h"
#include "vbide/CodeModule.h"
#include "vbide/VBComponent.h"
#include "vbide/VBForm.h"

namespace {

using qmtest::TempFolder;

const std::string kVbp = "Type=Exe\r\nForm=frmOrder.frm\r\nModule=modCalc; modCalc.bas\r\n";
const std::string kBas = "Attribute VB_Name = \"modCalc\"\r\nOption Explicit\r\n";
const std::string kFrm =
    "VERSION 5.00\r\nBegin VB.Form frmOrder \r\n   Begin VB.CommandButton cmdOK \r\n   End\r\n"
    "End\r\nAttribute VB_Name = \"frmOrder\"\r\nPrivate Sub cmdOK_Click()\r\nEnd Sub\r\n";

struct Loaded {
  TempFolder folder;
  std::shared_ptr<host::Ide> ide = host::Ide::Create({});
  std::shared_ptr<host::Project> project;
  Loaded() {
    folder.Write("Orders.vbp", kVbp);
    folder.Write("modCalc.bas", kBas);
    folder.Write("frmOrder.frm", kFrm);
    EXPECT_TRUE(ide->Open(folder.Path() / "Orders.vbp").empty());
    project = ide->ProjectList()->List().front();
  }
  vbide::VBComponentPtr Item(std::u16string_view name) {
    return project->VBComponents()->Item(name);
  }
};

TEST(ChangedState, EveryKindOfEditMarksItsComponentUntilItIsSaved) {
  using Edit = std::function<void(Loaded&)>;
  const std::pair<const char*, Edit> edits[] = {
      {"code typed", [](Loaded& w) { w.Item(u"frmOrder")->CodeModule()->ReplaceLine(1, u"' x"); }},
      {"member added",
       [](Loaded& w) {
         w.Item(u"frmOrder")->CodeModule()->AddFromString(u"Sub Added()\nEnd Sub");
       }},
      {"control renamed",
       [](Loaded& w) {
         w.Item(u"frmOrder")->Designer()->VBControls()->Item(1)->SetProperty(u"Name", u"cmdGo");
       }},
      {"control removed",
       [](Loaded& w) { w.Item(u"frmOrder")->Designer()->VBControls()->Remove(1); }},
  };
  for (auto& [what, edit] : edits) {
    SCOPED_TRACE(what);
    Loaded w;
    auto form = w.Item(u"frmOrder");
    EXPECT_FALSE(form->IsDirty());
    EXPECT_FALSE(w.project->IsDirty());
    int told = 0;
    auto sink = w.ide->changed.Subscribe([&] { ++told; });
    edit(w);
    EXPECT_TRUE(form->IsDirty());
    EXPECT_TRUE(w.project->IsDirty());
    EXPECT_FALSE(w.Item(u"modCalc")->IsDirty());
    EXPECT_GE(told, 1);  // the front ends hear of the first mark
    form->SaveAs(form->FileNames(1));
    EXPECT_FALSE(form->IsDirty());
    EXPECT_FALSE(w.project->IsDirty());
    EXPECT_NE(TempFolder::Read(w.folder.Path() / "frmOrder.frm"), kFrm);
  }
}

TEST(ChangedState, SavingWhatDidNotChangeWritesNothing) {
  Loaded w;
  // Other bytes on disk since loading: a save that wrote anything would put the loaded ones back.
  w.folder.Write("modCalc.bas", "changed elsewhere");
  w.folder.Write("Orders.vbp", "changed elsewhere");
  auto module = w.Item(u"modCalc");
  module->SaveAs(module->FileNames(1));
  w.project->SaveAs(w.project->FileName());
  EXPECT_EQ(TempFolder::Read(w.folder.Path() / "modCalc.bas"), "changed elsewhere");
  EXPECT_EQ(TempFolder::Read(w.folder.Path() / "Orders.vbp"), "changed elsewhere");
  // Saved elsewhere, the unchanged component is written there.
  module->SaveAs(vb::FromUtf8((w.folder.Path() / "copy.bas").string()));
  EXPECT_EQ(TempFolder::Read(w.folder.Path() / "copy.bas"), kBas);
}

}  // namespace
