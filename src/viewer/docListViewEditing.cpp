// quillmark::docListView: the popup menu's commands: a new member, rename (committed through
// the label edit), delete and select.
#include <array>
#include <string>
#include <vector>

#include "base/NewMemberWindow.h"
#include "base/ResumeNext.h"
#include "base/mdlMain.h"
#include "runtime/Runtime.h"
#include "runtime/VbConstants.h"
#include "vbide/CodeModule.h"
#include "vbide/Member.h"
#include "vbide/VBForm.h"
#include "viewer/RenameRules.h"
#include "viewer/ViewerRows.h"
#include "viewer/docListView.h"

namespace quillmark {
namespace {

using viewer::RowKey;

// The New submenu lists Constant before Variable; the member types number them the other way.
constexpr std::array<int, 5> kNewMemberTypes = {vbide::vbext_mt_Method, vbide::vbext_mt_Property,
                                                vbide::vbext_mt_Const, vbide::vbext_mt_Variable,
                                                vbide::vbext_mt_Event};
constexpr std::u16string_view kDeleteMember = u"Delete the selected member?";
constexpr std::u16string_view kDeleteControl =
    u"The selected control will be deleted.  Would you like to delete the associated code?";

// Procedures are what a rename rewrites; variables and constants keep their code.
bool IsProcedure(vbide::vbext_MemberType type) {
  return type == vbide::vbext_mt_Method || type == vbide::vbext_mt_Property ||
         type == vbide::vbext_mt_Event;
}

struct MemberSpot {
  std::u16string name;
  vbide::vbext_MemberType type;
  int line;
};

// The module's members as they stand before an edit moves their lines about.
std::vector<MemberSpot> MemberSpots(vbide::CodeModule& code) {
  std::vector<MemberSpot> spots;
  for (auto& member : code.Members()->Items())
    spots.push_back({member->Name(), member->Type(), member->CodeLocation()});
  return spots;
}

bool StartsWith(std::u16string_view text, std::u16string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

// Deletes the ordinary procedure `name` (kind 0 whatever the member is: a property or a
// variable is not found and stays).
void DeleteProcedure(vbide::CodeModule& code, std::u16string_view name) {
  ResumeNext([&] {
    int start = code.ProcStartLine(name, vbide::vbext_pk_Proc);
    code.DeleteLines(start, code.ProcCountLines(name, vbide::vbext_pk_Proc));
  });
}

}  // namespace

void docListView::mnuPopupNewMember_Click(int index) {
  if (index < 0 || index >= static_cast<int>(kNewMemberTypes.size())) return;
  AddNewMember(Obj(Main().gfrmNewMember), kNewMemberTypes[index]);
}

void docListView::mnuPopupRename_Click() {
  ResumeNext([&] { lvwExplorer.StartLabelEdit(); });
}

// ---- Rename ------------------------------------------------------------------------------------

void docListView::lvwExplorer_AfterLabelEdit(int& cancel, std::u16string& newString) {
  // The list is not rebuilt by the notifications the rewriting raises, whatever the outcome.
  suspended_ = true;
  struct Resume {
    bool& flag;
    ~Resume() { flag = false; }
  } resume{suspended_};
  cancel = 1;
  std::u16string key = SelectedKey();
  if (key.empty() || newString.empty() || newString.find(u' ') != std::u16string::npos) return;
  RowKey row = RowKey::Parse(key);
  if (row.tag == RowKey::Tag::Member) {
    if (RenameMember(row.name, newString)) cancel = 0;
  } else if (row.tag == RowKey::Tag::Control) {
    RenameControl(row.name, row.number, newString);
    cancel = 0;
  }
}

bool docListView::RenameMember(std::u16string_view oldName, std::u16string_view newName) {
  vbide::CodeModulePtr code;
  ResumeNext([&] { code = SelectedCode(); });
  if (!code) return false;
  std::vector<MemberSpot> spots;
  ResumeNext([&] { spots = MemberSpots(*code); });
  for (auto& spot : spots) {
    if (!IsProcedure(spot.type) || spot.name != oldName) continue;
    // Only the declaration line: other accessors of a property and the member's uses elsewhere
    // keep the old name. A deliberate limit of this command.
    ResumeNext([&] {
      std::u16string line = code->Lines(spot.line, 1);
      if (viewer::RenameBefore(line, oldName, newName, u'(')) code->ReplaceLine(spot.line, line);
    });
    ResumeNext([&] {
      lvwExplorer.ListItems()
          .Item(RowKey::Member(oldName, spot.type))
          .SetKey(RowKey::Member(newName, spot.type));
    });
  }
  return true;
}

void docListView::RenameControl(std::u16string_view oldName, int index,
                                std::u16string_view newName) {
  vbide::VBFormPtr designer;
  ResumeNext([&] { designer = SelectedDesigner(); });
  if (!designer) return;
  ResumeNext([&] {
    for (auto& control : designer->VBControls()->Items()) {
      if (control->Name() != oldName) continue;
      control->SetProperty(u"Name", newName);
      break;
    }
  });
  ResumeNext([&] {
    lvwExplorer.ListItems()
        .Item(RowKey::Control(oldName, index))
        .SetKey(RowKey::Control(newName, index));
  });
  vbide::CodeModulePtr code;
  ResumeNext([&] { code = SelectedCode(); });
  if (!code) return;
  // The control's event procedures: Text1_Change becomes txtName_Change.
  std::u16string prefix(oldName);
  prefix.push_back(u'_');
  std::vector<MemberSpot> spots;
  ResumeNext([&] { spots = MemberSpots(*code); });
  for (auto& spot : spots) {
    if (!IsProcedure(spot.type) || (spot.name != oldName && !StartsWith(spot.name, prefix)))
      continue;
    ResumeNext([&] {
      std::u16string line = code->Lines(spot.line, 1);
      if (viewer::RenameBefore(line, oldName, newName, u'_')) code->ReplaceLine(spot.line, line);
    });
  }
  // Then its uses in this module; other modules keep theirs.
  int count = 0;
  ResumeNext([&] { count = code->CountOfLines(); });
  for (int i = 1; i <= count; ++i) {
    ResumeNext([&] {
      std::u16string line(code->LineView(i));
      if (viewer::RenameReferences(line, oldName, newName) > 0) code->ReplaceLine(i, line);
    });
  }
}

// ---- Delete ------------------------------------------------------------------------------------

void docListView::mnuPopupDelete_Click() {
  auto* item = lvwExplorer.SelectedItem();
  if (!item) return;
  RowKey row = RowKey::Parse(item->Key());
  if (row.tag == RowKey::Tag::Member) {
    if (runtime_.MsgBox(kDeleteMember, vb::vbYesNo | vb::vbQuestion) != vb::vbYes) return;
    DeleteMember(item->Text());
  } else if (row.tag == RowKey::Tag::Control) {
    int answer = runtime_.MsgBox(kDeleteControl, vb::vbYesNoCancel | vb::vbQuestion);
    if (answer == vb::vbCancel) return;
    DeleteControl(row.name, row.number, answer == vb::vbYes);
  }
}

void docListView::DeleteMember(std::u16string_view name) {
  vbide::CodeModulePtr code;
  ResumeNext([&] { code = SelectedCode(); });
  if (!code) return;
  // The name is copied: the row that holds it goes with the refresh the notification causes.
  DeleteProcedure(*code, std::u16string(name));
  ResumeNext([&] { connect_->CodeModified(); });
}

void docListView::DeleteControl(std::u16string_view name, int index, bool withCode) {
  std::u16string controlName(name);  // the row goes with the refresh the removal causes
  vbide::VBFormPtr designer;
  ResumeNext([&] { designer = SelectedDesigner(); });
  if (!designer) return;
  ResumeNext([&] {
    auto controls = designer->VBControls();
    for (int i = 1; i <= controls->Count(); ++i) {
      auto control = controls->Item(i);
      if (control->Name() == controlName && control->Index() == index) {
        controls->Remove(i);
        break;
      }
    }
  });
  if (!withCode) return;
  vbide::CodeModulePtr code;
  ResumeNext([&] { code = SelectedCode(); });
  if (!code) return;
  // Every procedure named after the control: for an element of a control array these are the
  // procedures the whole array shares, and they go too. Required.
  std::u16string prefix = controlName + u"_";
  std::vector<MemberSpot> spots;
  ResumeNext([&] { spots = MemberSpots(*code); });
  for (auto& spot : spots)
    if (StartsWith(spot.name, prefix)) DeleteProcedure(*code, spot.name);
}

// ---- Select ------------------------------------------------------------------------------------

void docListView::mnuPopupSelect_Click() {
  vbide::VBFormPtr designer;
  ResumeNext([&] { designer = SelectedDesigner(); });
  if (!designer) return;
  std::vector<vbide::VBControlPtr> controls;
  ResumeNext([&] { controls = designer->VBControls()->Items(); });
  for (auto& control : controls) {
    ResumeNext([&] {
      auto* row = lvwExplorer.ListItems().Find(RowKey::Control(control->Name(), control->Index()));
      if (row && row->Selected()) control->SetInSelection(true);
    });
  }
}

}  // namespace quillmark
