// Contract: saving and unsaved changes. Every kind of edit marks its component (and so its
// project) until a save; what changed is written, what did not keeps its bytes, the file's own
// line ends and final-terminator state survive, and a failed save leaves the old file.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <functional>

#include "host/Component.h"
#include "host/Ide.h"
#include "host/Project.h"
#include "runtime/AtomicWriter.h"
#include "support/TempFolder.h"
#include "support/VbErrorOf.h"
#include "vbide/CodeModule.h"
#include "vbide/VBForm.h"

namespace {

using qmtest::TempFolder;

const std::string kVbp =
    "Type=Exe\r\nForm=frmOrder.frm\r\nModule=modCalc; "
    "modCalc.bas\r\nStartup=\"frmOrder\"\r\nName=\"Orders\"\r\n";
// LF line ends, a member attribute under Total, no final terminator.
const std::string kBas =
    "Attribute VB_Name = \"modCalc\"\nOption Explicit\nPublic Function Total() As Long\n"
    "Attribute Total.VB_Description = \"Sum of the lines\"\n    Total = 0\nEnd Function";
const std::string kFrm =
    "VERSION 5.00\r\nBegin VB.Form frmOrder \r\n   Caption         =   \"Order\"\r\n"
    "   Begin VB.CommandButton cmdOK \r\n      Caption         =   \"OK\"\r\n   End\r\n"
    "   Begin VB.TextBox txtQty \r\n      Text            =   \"1\"\r\n   End\r\nEnd\r\n"
    "Attribute VB_Name = \"frmOrder\"\r\nAttribute VB_PredeclaredId = True\r\n"
    "Private Sub cmdOK_Click()\r\nEnd Sub\r\n";

struct Loaded {
  TempFolder folder;
  std::shared_ptr<host::Ide> ide;
  std::shared_ptr<host::Project> project;
  Loaded() {
    folder.Write("Orders.vbp", kVbp);
    folder.Write("modCalc.bas", kBas);
    folder.Write("frmOrder.frm", kFrm);
    ide = host::Ide::Create({});
    auto problems = ide->Open(folder.Path() / "Orders.vbp");
    EXPECT_TRUE(problems.empty());
    project = ide->ProjectList()->List().front();
  }
  std::string Read(const char* name) const { return TempFolder::Read(folder.Path() / name); }
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
    EXPECT_NE(w.Read("frmOrder.frm"), kFrm);
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
  EXPECT_EQ(w.Read("modCalc.bas"), "changed elsewhere");
  EXPECT_EQ(w.Read("Orders.vbp"), "changed elsewhere");
  // Saved elsewhere, the unchanged component is written there.
  module->SaveAs(vb::FromUtf8((w.folder.Path() / "copy.bas").string()));
  EXPECT_EQ(w.Read("copy.bas"), kBas);
}

TEST(Saving, AnEditedModuleKeepsItsHiddenLinesLineEndsAndMissingFinalBreak) {
  Loaded w;
  auto module = w.project->VBComponents()->Item(u"modCalc")->CodeModule();
  module->ReplaceLine(3, u"    Total = 42");
  module->InsertLines(2, u"Private mCount As Long");
  EXPECT_TRUE(w.project->IsDirty());
  w.project->SaveAs(vb::FromUtf8((w.folder.Path() / "Orders.vbp").string()));
  EXPECT_FALSE(w.project->IsDirty());
  // The new line ends in CR LF; every other line keeps its LF; the attribute stays under Total.
  EXPECT_EQ(
      w.Read("modCalc.bas"),
      "Attribute VB_Name = \"modCalc\"\nOption Explicit\nPrivate mCount As Long\r\n"
      "Public Function Total() As Long\nAttribute Total.VB_Description = \"Sum of the lines\"\n"
      "    Total = 42\nEnd Function");
  EXPECT_EQ(w.Read("frmOrder.frm"), kFrm);  // untouched
  EXPECT_EQ(w.Read("Orders.vbp"), kVbp);
}

TEST(Saving, DeletingADeclarationTakesItsAttributeAlong) {
  Loaded w;
  auto module = w.project->VBComponents()->Item(u"modCalc")->CodeModule();
  module->DeleteLines(2, 3);  // the whole function
  w.project->VBComponents()
      ->Item(u"modCalc")
      ->SaveAs(vb::FromUtf8((w.folder.Path() / "modCalc.bas").string()));
  EXPECT_EQ(w.Read("modCalc.bas"), "Attribute VB_Name = \"modCalc\"\nOption Explicit");
}

TEST(Saving, RenamedControlsAndComponentsAreWrittenIntoTheHeaderAndProjectFile) {
  Loaded w;
  auto form = w.project->VBComponents()->Item(u"frmOrder");
  auto controls = form->Designer()->VBControls();
  ASSERT_EQ(controls->Count(), 2);
  controls->Item(2)->SetProperty(u"Name", u"txtQuantity");
  w.project->VBComponents()->Item(u"modCalc")->SetName(u"modTotals");
  w.project->SaveAs(vb::FromUtf8((w.folder.Path() / "Orders.vbp").string()));
  std::string frm = w.Read("frmOrder.frm");
  EXPECT_NE(frm.find("   Begin VB.TextBox txtQuantity \r\n"), std::string::npos);
  EXPECT_EQ(frm.size(), kFrm.size() + 5);  // "txtQty" became "txtQuantity"; nothing else changed
  EXPECT_NE(w.Read("modCalc.bas").find("Attribute VB_Name = \"modTotals\"\n"), std::string::npos);
  EXPECT_NE(w.Read("Orders.vbp").find("Module=modTotals; modCalc.bas\r\n"), std::string::npos);
}

// A save can fail at any step of the atomic writer (whose own tests go through every one): the
// old file keeps every byte, nothing of ours is left beside it, the error names the file, and
// the component stays changed so that the next save writes it.
TEST(Saving, AFailedSaveAtTheFirstOrLastStepLeavesTheOldFileAndNoTemporary) {
  for (vb::WriteFault fault : {vb::WriteFault{vb::WriteStep::Open, 0, ENOSPC},
                               vb::WriteFault{vb::WriteStep::Rename, 0, EIO}}) {
    SCOPED_TRACE(static_cast<int>(fault.step));
    Loaded w;
    auto component = w.Item(u"modCalc");
    component->CodeModule()->ReplaceLine(2, u"' changed");
    w.ide->Writer().InjectFault(fault);
    vb::Error e = qmtest::ErrorOf(
        [&] { w.project->SaveAs(vb::FromUtf8((w.folder.Path() / "Orders.vbp").string())); });
    EXPECT_NE(e.Description().find(vb::FromUtf8((w.folder / "modCalc.bas").string() + " (")),
              std::u16string::npos)
        << vb::ToUtf8(e.Description());
    EXPECT_TRUE(component->IsDirty());
    EXPECT_EQ(w.Read("modCalc.bas"), kBas);
    EXPECT_EQ(w.Read("Orders.vbp"), kVbp);
    std::vector<std::string> names;
    for (auto& entry : std::filesystem::directory_iterator(w.folder.Path()))
      names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"Orders.vbp", "frmOrder.frm", "modCalc.bas"}));
  }
}

TEST(Saving, TextTheCodePageCannotHoldIsRefusedNotTurnedIntoQuestionMarks) {
  Loaded w;
  auto component = w.project->VBComponents()->Item(u"modCalc");
  component->CodeModule()->ReplaceLine(2, u"' \u4F60\u597D");  // Chinese in a cp1252 project
  vb::Error e = qmtest::ErrorOf(
      [&] { component->SaveAs(vb::FromUtf8((w.folder / "modCalc.bas").string())); });
  EXPECT_NE(e.Description().find(u"2 character(s) cannot be written in code page 1252"),
            std::u16string::npos);
  EXPECT_EQ(w.Read("modCalc.bas"), kBas);
  EXPECT_TRUE(component->IsDirty());
}

TEST(Designers, ListControlsInOrderAndRaiseEventsForAddRenameAndRemove) {
  Loaded w;
  auto form = w.project->VBComponents()->Item(u"frmOrder");
  auto designer = form->Designer();
  auto controls = designer->VBControls();
  EXPECT_EQ(controls->Item(1)->Name(), u"cmdOK");
  EXPECT_EQ(controls->Item(1)->Properties(u"Caption"), u"OK");
  EXPECT_EQ(controls->Item(1)->Index(), -1);
  EXPECT_EQ(controls->Item(1)->ClassName(), u"VB.CommandButton");

  std::vector<std::u16string> seen;
  auto events = w.ide->Events()->VBControlsEvents(nullptr, designer);
  auto s1 =
      events->ItemRenamed.Subscribe([&](vbide::VBControlPtr c, std::u16string old, int oldIndex) {
        seen.push_back(old + u"->" + c->Name() + u"/" + vb::FromUtf8(std::to_string(oldIndex)));
      });
  auto s2 = events->ItemRemoved.Subscribe([&](vbide::VBControlPtr c) {
    seen.push_back(u"removed");
    (void)c;
  });
  auto s3 = events->ItemAdded.Subscribe(
      [&](vbide::VBControlPtr c) { seen.push_back(u"added " + c->Name()); });
  auto ok = controls->Item(1);
  for (auto bad : {u"", u"1st", u"_x", u"cmd OK", u"cmd-OK",
                   u"a234567890123456789012345678901"
                   u"2345678901"}) {
    EXPECT_EQ(qmtest::ErrorNumberOf([&] { ok->SetProperty(u"Name", bad); }), 380)
        << vb::ToUtf8(bad);
  }
  EXPECT_FALSE(form->IsDirty());
  ok->SetProperty(u"Name", u"cmdAccept");
  controls->Item(1)->ControlObject()->ZOrder(0);  // cmdAccept goes on top: after txtQty
  EXPECT_EQ(designer->VBControls()->Item(2)->Name(), u"cmdAccept");
  designer->VBControls()->Remove(2);
  auto added = controls->Add(u"VB.CommandButton");
  controls->Add(u"VB.Timer");
  EXPECT_EQ(seen, (std::vector<std::u16string>{u"cmdOK->cmdAccept/-1", u"removed",
                                               u"added Command1", u"added Timer1"}));
  EXPECT_THROW(ok->Name(), vb::Error);
  EXPECT_EQ(designer->VBControls()->Count(), 3);
  EXPECT_EQ(designer->VBControls()->Item(2), added) << "on top of the z-order";
  added->ControlObject()->ZOrder(0);  // the new block is a block like any other
  EXPECT_TRUE(form->IsDirty());
  w.ide->SaveAll();
  EXPECT_EQ(w.Read("frmOrder.frm"),
            "VERSION 5.00\r\nBegin VB.Form frmOrder \r\n   Caption         =   \"Order\"\r\n"
            "   Begin VB.TextBox txtQty \r\n      Text            =   \"1\"\r\n   End\r\n"
            "   Begin VB.Timer Timer1 \r\n      Height          =   495\r\n"
            "      Left            =   120\r\n      Top             =   120\r\n"
            "      Width           =   1215\r\n   End\r\n"
            "   Begin VB.CommandButton Command1 \r\n      Height          =   495\r\n"
            "      Left            =   120\r\n      TabIndex        =   1\r\n"
            "      Top             =   120\r\n      Width           =   1215\r\n   End\r\n"
            "End\r\nAttribute VB_Name = \"frmOrder\"\r\nAttribute VB_PredeclaredId = True\r\n"
            "Private Sub cmdOK_Click()\r\nEnd Sub\r\n");
}

}  // namespace
