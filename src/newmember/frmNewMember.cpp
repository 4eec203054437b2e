// quillmark::frmNewMember: opening on a component, loading and unloading, the tabs and their
// resets.
#include "newmember/frmNewMember.h"

#include "base/NewMemberWindow.h"
#include "base/ResumeNext.h"
#include "base/mdlMainHelpers.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/Member.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"

namespace quillmark {
namespace {

constexpr std::u16string_view kScopes[] = {u"Public", u"Private", u"Friend"};
constexpr int kPublic = 0, kPrivate = 1;  // optConstantScope
constexpr int kConstantPanel = 2;

// The component the user is working on: the active code window's module; when no code window
// is active, the component selected in the Project window; when none is selected, the module
// of the last active code window.
vbide::VBComponentPtr WorkingComponent(vbide::VBE& vbe) {
  auto pane = vbe.ActiveCodePane();
  auto active = vbe.ActiveWindow();
  if (pane && active && pane->Window() == active) return pane->CodeModule()->Parent();
  if (auto selected = vbe.SelectedVBComponent()) return selected;
  if (pane) return pane->CodeModule()->Parent();
  return nullptr;
}

}  // namespace

frmNewMember::frmNewMember(mdlMain& main) : Form(main.Rt(), u"frmNewMember"), main_(main) {
  SetCaptions();
  Layout();
  Wire();
  ClearFields();
  if (main_.connect.Alive())
    codeModified_ = main_.connect->codeModified.Subscribe([this] { Connect_CodeModified(); });
}

frmNewMember::~frmNewMember() = default;

void AddNewMember(frmNewMember& dialog, int kind) {
  dialog.Add(kind);
}

void frmNewMember::Add(int kind) {
  component_ = main_.gVBInstance ? WorkingComponent(*main_.gVBInstance) : nullptr;
  Load();
  // A dialog opened on another component lists that module's variables and follows its
  // constant scope at once, whichever tab it opens on.
  FillLocalVariables();
  ApplyConstantScope();
  switch (kind) {
    case vbide::vbext_mt_Method:
      ResetMethodTab();
      tabNew.SetSelectedItem(tabNew.Tabs(kMethodTab));
      break;
    case vbide::vbext_mt_Property:
      ResetPropertyTab();
      tabNew.SetSelectedItem(tabNew.Tabs(kPropertyTab));
      break;
    case vbide::vbext_mt_Const:
      ResetConstantTab();
      tabNew.SetSelectedItem(tabNew.Tabs(kConstantTab));
      break;
    // There are no such tabs: the lookup fails and the current tab stays. Intended.
    case vbide::vbext_mt_Variable:
      ResumeNext([&] { tabNew.SetSelectedItem(tabNew.Tabs(u"Variable")); });
      break;
    case vbide::vbext_mt_Event:
      ResumeNext([&] { tabNew.SetSelectedItem(tabNew.Tabs(u"Event")); });
      break;
    default:
      break;
  }
  Show(vb::vbModeless);
}

void frmNewMember::Connect_CodeModified() {
  // An event handler: a module removed meanwhile leaves the list as it is.
  if (IsLoaded()) ResumeNext([&] { FillLocalVariables(); });
}

void frmNewMember::Form_Load() {
  ClearFields();
  LoadFormPosition(main_.Rt(), *this, false);
  auto settings = main_.Settings();
  int lastTab = settings.Short(options::ForForm(Name(), options::FormPlacement::kLastTab));
  // A stored tab the strip does not have leaves the first one selected.
  ResumeNext([&] { tabNew.SetSelectedItem(tabNew.Tabs(lastTab)); });
  tabNew_Click();
  for (auto* box : {&cboMethodScope, &cboPropertyScope}) {
    for (auto scope : kScopes) box->AddItem(std::u16string(scope));
    box->SetListIndex(0);
  }
  for (auto* box :
       {&cboMethodReturn, &cboArgType, &cboConstantType, &cboPropertyType, &cboLocalVariableType})
    FillTypeBox(*box);
  FillLocalVariables();
}

void frmNewMember::Form_Unload(int&) {
  auto settings = main_.Settings();
  ResumeNext([&] {
    settings.WriteWhole(options::ForForm(Name(), options::FormPlacement::kLastTab),
                        tabNew.SelectedItem()->index);
  });
  ResumeNext([&] { SaveFormPosition(main_.Rt(), *this, false); });
}

void frmNewMember::ClearFields() {
  for (auto* box : {&txtMethodName, &txtArgName, &txtArgDefault, &txtPropertyName, &txtConstantName,
                    &txtConstantValue})
    box->SetText({});
  for (auto* box : {&cboMethodScope, &cboMethodReturn, &cboArgType, &cboPropertyScope,
                    &cboPropertyType, &cboLocalVariable, &cboLocalVariableType, &cboConstantType}) {
    box->Clear();
    if (box->Style() != 2) box->SetText({});
  }
  lstArguments.Clear();
  tabNew.SetSelectedItem(tabNew.Tabs(1));
  for (auto* box : {&chkMethodStatic, &chkOptional, &chkByVal, &chkParamArray}) {
    box->SetValue(0);
    box->SetEnabled(true);
  }
  chkOptional_Click();  // the default box starts unusable
  optProperty(0).SetValue(true);
  picNew(kConstantPanel).SetEnabled(true);
  optConstantScope(kPublic).SetEnabled(true);
  optConstantScope(kPublic).SetValue(true);
  SetButtonStates();
}

// ---- Tabs --------------------------------------------------------------------------------------

void frmNewMember::tabNew_Click() {
  int front = tabNew.SelectedItem()->index - 1;
  picNew.ForEach([front](vb::PictureBox& panel) { panel.SetVisible(panel.Index() == front); });
}

void frmNewMember::ResetMethodTab() {
  FillTypeBox(cboArgType);
  FillTypeBox(cboMethodReturn);
  txtMethodName.SetText({});
  cboMethodReturn.SetText({});
  txtArgName.SetText({});
  cboArgType.SetText({});
  txtArgDefault.SetText({});
  lstArguments.Clear();
  SetButtonStates();
}

void frmNewMember::ResetPropertyTab() {
  FillTypeBox(cboPropertyType);
  cboPropertyScope.SetListIndex(0);
  optProperty(0).SetValue(true);
  txtPropertyName.SetText({});
  cboPropertyType.SetText({});
}

void frmNewMember::ResetConstantTab() {
  ApplyConstantScope();
  txtConstantName.SetText({});
  txtConstantValue.SetText({});
  cboConstantType.SetListIndex(-1);
}

void frmNewMember::ApplyConstantScope() {
  auto module = Module();
  picNew(kConstantPanel).SetEnabled(module != nullptr);
  if (!module) return;
  bool standard = component_->Type() == vbide::vbext_ct_StdModule;
  optConstantScope(kPublic).SetEnabled(standard);
  optConstantScope(standard ? kPublic : kPrivate).SetValue(true);
}

void frmNewMember::FillTypeBox(vb::ComboBox& box) {
  box.Clear();
  int count = CountFields(main_.gTypeList, u"|");
  for (int i = 0; i < count; ++i)
    box.AddItem(GetField(main_.gTypeList, static_cast<std::int16_t>(i), u"|"));
}

void frmNewMember::FillLocalVariables() {
  cboLocalVariable.Clear();
  auto module = Module();
  if (!module) return;
  for (auto& member : module->Members()->Items()) {
    auto type = member->Type();
    if (type == vbide::vbext_mt_Variable || type == vbide::vbext_mt_Const)
      cboLocalVariable.AddItem(member->Name());
  }
}

vbide::CodeModulePtr frmNewMember::Module() const {
  return component_ ? component_->CodeModule() : nullptr;
}

}  // namespace quillmark
