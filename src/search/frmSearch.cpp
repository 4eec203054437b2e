// quillmark::frmSearch: the dialog: its controls, history, keys, scope lists and project events.
#include "search/frmSearch.h"

#include <algorithm>
#include <vector>

#include "base/ResumeNext.h"
#include "base/mdlMainHelpers.h"
#include "runtime/VbConstants.h"
#include "search/ResultColumns.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/Events.h"
#include "vbide/Member.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace quillmark {
frmSearch::frmSearch(mdlMain& main) : Form(main.Rt(), u"frmSearch"), main_(main) {
  SetCaption(u"Visual Search and Replace");
  SetBorderStyle(3);  // fixed dialog
  SetKeyPreview(true);
  lblSearch.SetCaption(u"Text:");
  chkMatchCase.SetCaption(u"Match &Case");
  chkWholeWord.SetCaption(u"&Whole Word");
  chkExcludeComments.SetCaption(u"&Exclude Comments");
  fraSearchIn.SetCaption(u"Search In:");
  chkSelected.SetCaption(u"Selected C&ode:");
  cmdSearch.SetCaption(u"&Search");
  cmdSearch.SetDefault(true);
  cmdSearch.SetEnabled(false);
  for (auto* box : {&cboProject, &cboModule, &cboProcedure}) {
    box->SetStyle(vb::vbComboDropdownList);
    box->SetSorted(true);
    box->SetContainer(&fraSearchIn);
  }
  chkSelected.SetContainer(&fraSearchIn);
  Layout();

  cmdSearch.Click = [this] { cmdSearch_Click(); };
  cboSearch.Change = [this] { cboSearch_Change(); };
  cboSearch.Click = [this] { cboSearch_Change(); };
  cboSearch.GotFocus = [this] { cboSearch_GotFocus(); };
  chkSelected.Click = [this] { chkSelected_Click(); };
  cboProject.Click = [this] { cboProject_Click(); };
  cboModule.Click = [this] { cboModule_Click(); };
}

frmSearch::~frmSearch() = default;

// The dialog as the designer placed it, in twips; the scope boxes sit inside their frame.
void frmSearch::Layout() {
  Move(0, 0, 6735, 2790);
  lblSearch.Move(120, 165, 555, 255);
  cboSearch.Move(720, 120, 4335, 315);
  cmdSearch.Move(5220, 105, 1335, 375);
  chkMatchCase.Move(720, 555, 1500, 255);
  chkWholeWord.Move(2280, 555, 1560, 255);
  chkExcludeComments.Move(3900, 555, 2160, 255);
  fraSearchIn.Move(120, 960, 6435, 1275);
  cboProject.Move(180, 300, 3015, 315);
  cboModule.Move(3300, 300, 2955, 315);
  cboProcedure.Move(180, 780, 3015, 315);
  chkSelected.Move(3300, 810, 2715, 255);
}

void frmSearch::EnsureLoaded() {
  if (!IsLoaded()) Load();
}

void frmSearch::Form_Load() {
  LoadFormPosition(main_.Rt(), *this, false);
  LoadSearchCombo();
  main_.Rt().Windows().SetWindowPos(hWnd(), vb::kHwndTopMost, 0, 0, 0, 0,
                                    vb::kSwpNoMove | vb::kSwpNoSize);
  projectEvents_ = main_.gVBInstance->Events()->VBProjectsEvents();
  projectAdded_ = projectEvents_->ItemAdded.Subscribe(
      [this](vbide::VBProjectPtr p) { ProjectEvents_ItemAdded(p); });
  projectRemoved_ = projectEvents_->ItemRemoved.Subscribe(
      [this](vbide::VBProjectPtr p) { ProjectEvents_ItemRemoved(p); });
  projectRenamed_ = projectEvents_->ItemRenamed.Subscribe(
      [this](vbide::VBProjectPtr p, std::u16string old) { ProjectEvents_ItemRenamed(p, old); });
  LoadProjects();
  CheckSelected();
}

void frmSearch::Form_Activate() {
  if (cboSearch.Visible() && cboSearch.IsUsable()) cboSearch.SetFocus();
}

void frmSearch::Form_Unload(int&) {
  projectAdded_.Reset();
  projectRemoved_.Reset();
  projectRenamed_.Reset();
  projectEvents_.reset();
}

void frmSearch::Form_Terminate() {
  ResumeNext([&] { SaveFormPosition(main_.Rt(), *this, false); });
}

void frmSearch::Form_KeyDown(int& keyCode, int) {
  if (keyCode == vb::vbKeyEscape) {
    Unload();
    return;
  }
  // F5 repeats the last search as it was: the box's text and the history are left alone.
  if (keyCode == vb::vbKeyF5 && !main_.SearchText.empty()) StartSearch();
}

// ---- History -----------------------------------------------------------------------------------

void frmSearch::LoadSearchCombo() {
  EnsureLoaded();
  cboSearch.Clear();
  for (auto& [position, text] : main_.Settings().RecentSearches())
    cboSearch.AddItem(text, position - 1);
}

void frmSearch::cmdSearch_Click() {
  main_.SearchText = cboSearch.Text();
  for (int i = 0; i < cboSearch.ListCount(); ++i) {
    if (cboSearch.List(i) == main_.SearchText) {
      cboSearch.RemoveItem(i);
      break;
    }
  }
  cboSearch.AddItem(main_.SearchText, 0);
  // Only ten are stored; the dialog's own list keeps every text until it unloads. Intended.
  std::vector<std::u16string> entries;
  int stored = std::min(cboSearch.ListCount(), options::SearchHistory::kMaxEntries);
  for (int i = 0; i < stored; ++i) entries.push_back(cboSearch.List(i));
  main_.Settings().SaveRecentSearches(entries);
  if (main_.connect.Alive()) main_.connect->LoadSearchCombo();
  StartSearch();
}

void frmSearch::cboSearch_Change() {
  cmdSearch.SetEnabled(!cboSearch.Text().empty());
}

void frmSearch::cboSearch_GotFocus() {
  cboSearch.SetSelStart(0);
  cboSearch.SetSelLength(static_cast<int>(cboSearch.Text().size()));
}

// ---- Selection ---------------------------------------------------------------------------------

void frmSearch::CheckSelected() {
  EnsureLoaded();
  auto pane = main_.gVBInstance->ActiveCodePane();
  if (!pane) {
    chkSelected.SetEnabled(false);
    return;
  }
  int startLine = 0, startColumn = 0, endLine = 0, endColumn = 0;
  pane->GetSelection(startLine, startColumn, endLine, endColumn);
  if (startLine == endLine && startColumn == endColumn) {
    chkSelected.SetValue(0);
    chkSelected.SetEnabled(false);
    return;
  }
  chkSelected.SetEnabled(true);
  if (startLine == endLine) {
    std::u16string line = pane->CodeModule()->Lines(startLine, 1);
    cboSearch.SetText(vb::Mid(line, startColumn, endColumn - startColumn));
    chkSelected.SetValue(0);
    return;
  }
  chkSelected.SetValue(1);
  cboSearch.SetText(u"");
}

void frmSearch::chkSelected_Click() {
  bool scoped = chkSelected.Value() == 0;
  cboProject.SetEnabled(scoped);
  cboModule.SetEnabled(scoped);
  cboProcedure.SetEnabled(scoped);
}

// ---- Scope lists -------------------------------------------------------------------------------

void frmSearch::LoadProjects() {
  cboProject.Clear();
  cboProject.AddItem(std::u16string(kAllProjects));
  for (auto& project : main_.gVBInstance->VBProjects()->Items())
    cboProject.AddItem(project->Name());
  auto active = main_.gVBInstance->ActiveVBProject();
  if (!active) return;
  std::u16string name = active->Name();
  for (int i = 0; i < cboProject.ListCount(); ++i) {
    if (cboProject.List(i) == name) {
      cboProject.SetListIndex(i);
      return;
    }
  }
}

void frmSearch::cboProject_Click() {
  if (cboProject.ListIndex() < 0) return;
  if (cboProject.Text() == kAllProjects) {
    cboModule.SetEnabled(false);
    cboProcedure.SetEnabled(false);
    return;
  }
  LoadModules();
}

void frmSearch::LoadModules() {
  cboModule.Clear();
  cboModule.AddItem(std::u16string(kAllModules));
  auto project = main_.gVBInstance->VBProjects()->Item(cboProject.Text());
  auto selected = main_.gVBInstance->SelectedVBComponent();
  for (auto& component : project->VBComponents()->Items()) {
    ResumeNext([&] {
      if (!component->CodeModule()) return;  // resource files and other code-less components
      cboModule.AddItem(component->Name());
      if (selected && selected->Name() == component->Name())
        cboModule.SetListIndex(cboModule.NewIndex());
    });
  }
  cboModule.SetEnabled(true);
}

void frmSearch::cboModule_Click() {
  if (cboModule.ListIndex() < 0) return;
  if (cboModule.Text() == kAllModules) {
    cboProcedure.SetEnabled(false);
    return;
  }
  SetMousePointer(vb::vbHourglass);
  cboProcedure.Clear();
  cboProcedure.AddItem(std::u16string(kDeclarations));
  cboProcedure.AddItem(std::u16string(kAllProcedures));
  auto project = main_.gVBInstance->VBProjects()->Item(cboProject.Text());
  auto component = project->VBComponents()->Item(cboModule.Text());
  for (auto& member : Obj(component->CodeModule()).Members()->Items()) {
    auto type = member->Type();
    if (type == vbide::vbext_mt_Method || type == vbide::vbext_mt_Property ||
        type == vbide::vbext_mt_Event)
      cboProcedure.AddItem(member->Name());
  }
  cboProcedure.SetEnabled(true);
  cboProcedure.SetListIndex(0);  // sorted: "(All Procedures)"
  SetMousePointer(vb::vbDefault);
}

// ---- Project events ----------------------------------------------------------------------------

void frmSearch::ProjectEvents_ItemAdded(const vbide::VBProjectPtr&) {
  LoadProjects();
}

void frmSearch::ProjectEvents_ItemRemoved(const vbide::VBProjectPtr&) {
  LoadProjects();
}

void frmSearch::ProjectEvents_ItemRenamed(const vbide::VBProjectPtr&, const std::u16string&) {
  LoadProjects();
}

}  // namespace quillmark
