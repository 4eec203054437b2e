// host::ComponentKind.
#include "host/ComponentKinds.h"

#include <string>

namespace host {
namespace {

using files::ItemKind;
using files::ModuleKind;

// Forms come before the forms-2 designer, which reads as a form too: a form file is a VB form.
constexpr ComponentKind kKinds[] = {
    {vbide::vbext_ct_StdModule, u"Module", u"Module", ".bas", kCodeWindowWord, ItemKind::Module,
     ModuleKind::Standard},
    {vbide::vbext_ct_ClassModule, u"Class", u"Class", ".cls", kCodeWindowWord, ItemKind::Class,
     ModuleKind::Class},
    {vbide::vbext_ct_VBForm, u"Form", u"Form", ".frm", u"Form", ItemKind::Form, ModuleKind::Form},
    {vbide::vbext_ct_MSForm, u"UserForm", u"UserForm", ".frm", u"UserForm", ItemKind::Form,
     ModuleKind::Form},
    {vbide::vbext_ct_ResFile, u"Resource", u"Resource", ".res", u"Resource", ItemKind::ResFile,
     ModuleKind::Form},
    {vbide::vbext_ct_VBMDIForm, u"MDIForm", u"MDIForm", ".frm", u"MDIForm", ItemKind::Form,
     ModuleKind::MdiForm},
    {vbide::vbext_ct_PropPage, u"PropertyPage", u"PropertyPage", ".pag", u"PropertyPage",
     ItemKind::PropertyPage, ModuleKind::PropertyPage},
    {vbide::vbext_ct_UserControl, u"UserControl", u"UserControl", ".ctl", u"UserControl",
     ItemKind::UserControl, ModuleKind::UserControl},
    {vbide::vbext_ct_DocObject, u"UserDocument", u"UserDocument", ".dob", u"UserDocument",
     ItemKind::UserDocument, ModuleKind::UserDocument},
    {vbide::vbext_ct_RelatedDocument, u"RelatedDocument", u"Document", ".txt", u"Document",
     ItemKind::RelatedDoc, ModuleKind::Form},
    {vbide::vbext_ct_ActiveXDesigner, u"Designer", u"Designer", ".dsr", u"Designer",
     ItemKind::Designer, ModuleKind::Designer},
};

}  // namespace

const ComponentKind& KindOf(vbide::vbext_ComponentType type) {
  for (auto& kind : kKinds)
    if (kind.type == type) return kind;
  return kKinds[0];
}

vbide::vbext_ComponentType ComponentTypeOf(files::ModuleKind module) {
  for (auto& kind : kKinds)
    if (kind.module == module) return kind.type;
  return vbide::vbext_ct_StdModule;
}

std::u16string WindowCaption(std::u16string_view project, std::u16string_view component,
                             std::u16string_view word) {
  std::u16string caption(project);
  caption.append(u" - ").append(component).append(u" (").append(word).append(u")");
  return caption;
}

}  // namespace host
