// quillmark::frmNewMember: writing the new member into the module. The tab strip's key chooses
// the add; an error from the IDE ends it with false and the dialog stays as it is.
#include "newmember/frmNewMember.h"

#include "base/ResumeNext.h"
#include "vbide/CodeModule.h"
#include "vbide/Member.h"

namespace quillmark {
namespace {

constexpr int kPublic = 0;  // optConstantScope

template <class Add>
bool Trapped(std::u16string& lastError, Add&& add) {
  try {
    std::forward<Add>(add)();
    lastError.clear();
    return true;
  } catch (const vb::Error& e) {
    lastError = e.Description();
    return false;
  }
}

}  // namespace

void frmNewMember::cmdOk_Click() {
  if (RunAdd()) Unload();
}

bool frmNewMember::RunAdd() {
  const std::u16string& key = tabNew.SelectedItem()->key;
  if (key == kMethodTab) return AddMethod();
  if (key == kPropertyTab) return AddProperty();
  if (key == kConstantTab) return AddConstant();
  // "Variable", "Event" and "Enumeration" are kinds of member the dialog has no tab for.
  return false;
}

bool frmNewMember::AddMethod() {
  return Trapped(lastAddError_, [&] {
    MethodFields fields{cboMethodScope.Text(),
                        chkMethodStatic.Value() == 1,
                        txtMethodName.Text(),
                        cboMethodReturn.Text(),
                        {}};
    for (int i = 0; i < lstArguments.ListCount(); ++i)
      fields.arguments.push_back(lstArguments.List(i));
    AddProcedure(MethodDeclaration(fields));
    ResetMethodTab();
  });
}

bool frmNewMember::AddProperty() {
  return Trapped(lastAddError_, [&] {
    PropertyKind kind = optProperty(1).Value()   ? PropertyKind::Get
                        : optProperty(2).Value() ? PropertyKind::LetSet
                                                 : PropertyKind::Both;
    // Read before anything is written: each insertion refills the local variable's list.
    auto texts = PropertyDeclarations(
        {cboPropertyScope.Text(), txtPropertyName.Text(), cboPropertyType.Text(), kind,
         cboLocalVariable.Text(), cboLocalVariableType.Text(), cboLocalVariable.ListIndex() != -1});
    if (!texts.localDeclaration.empty()) InsertDeclaration(texts.localDeclaration);
    // Each procedure goes before the module's first one, so with both the Let/Set procedure
    // ends up directly above the Get procedure. Intended.
    for (auto* procedure : {&texts.getProcedure, &texts.letSetProcedure}) {
      if (procedure->empty()) continue;
      AddProcedure(*procedure);
      ResetPropertyTab();
    }
  });
}

bool frmNewMember::AddConstant() {
  return Trapped(lastAddError_, [&] {
    InsertDeclaration(ConstantDeclaration(
        {optConstantScope(kPublic).Value(), txtConstantName.Text(), txtConstantValue.Text(),
         cboConstantType.Text(), cboConstantType.ListIndex() != -1}));
  });
}

void frmNewMember::InsertDeclaration(std::u16string_view text) {
  auto held = Module();
  auto& module = Obj(held);
  int line = 1;
  for (auto& member : module.Members()->Items()) {
    auto type = member->Type();
    if (type == vbide::vbext_mt_Const || type == vbide::vbext_mt_Variable) {
      line = member->CodeLocation();
      break;
    }
  }
  module.InsertLines(line, text);
  NotifyCodeModified();
  // Also after a property's local variable. Intended.
  ResetConstantTab();
}

void frmNewMember::AddProcedure(std::u16string_view text) {
  auto module = Module();
  Obj(module).AddFromString(text);
  NotifyCodeModified();
}

void frmNewMember::NotifyCodeModified() {
  if (main_.connect.Alive()) main_.connect->CodeModified();
}

}  // namespace quillmark
