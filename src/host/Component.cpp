// host::Components and host::Component.
#include "host/Component.h"

#include "host/CodeModule.h"
#include "host/CodePane.h"
#include "host/ComponentKinds.h"
#include "host/Designer.h"
#include "host/Ide.h"
#include "host/Project.h"
#include "host/Window.h"
#include "host/files/FileIo.h"
#include "host/files/HeaderEdits.h"
#include "host/files/PathResolver.h"
#include "runtime/Utf.h"

namespace host {
namespace {

// The file the IDE writes for a new component, before anything is typed into it.
std::string NewModuleBytes(vbide::vbext_ComponentType type, const std::string& name) {
  std::string attrs = "Attribute VB_Name = \"" + name + "\"\r\n";
  auto flags = [](bool global, bool creatable, bool predeclared, bool exposed) {
    auto b = [](bool v) { return v ? "True" : "False"; };
    return std::string("Attribute VB_GlobalNameSpace = ") + b(global) +
           "\r\nAttribute VB_Creatable = " + b(creatable) +
           "\r\nAttribute VB_PredeclaredId = " + b(predeclared) +
           "\r\nAttribute VB_Exposed = " + b(exposed) + "\r\n";
  };
  auto block = [&](const std::string& cls) {
    return "VERSION 5.00\r\nBegin " + cls + " " + name + " \r\n   ClientHeight    =   3195\r\n" +
           "   ClientLeft      =   60\r\n   ClientTop       =   345\r\n   ClientWidth     =   "
           "4680\r\nEnd\r\n";
  };
  switch (type) {
    case vbide::vbext_ct_StdModule:
      return attrs;
    case vbide::vbext_ct_ClassModule:
      return "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\n  Persistable = 0  "
             "'NotPersistable\r\n"
             "  DataBindingBehavior = 0  'vbNone\r\n  DataSourceBehavior  = 0  'vbNone\r\n"
             "  MTSTransactionMode  = 0  'NotAnMTSObject\r\nEND\r\n" +
             attrs + flags(false, true, false, false);
    case vbide::vbext_ct_VBMDIForm:
      return block("VB.MDIForm") + attrs + flags(false, false, true, false);
    case vbide::vbext_ct_UserControl:
      return block("VB.UserControl") + attrs + flags(false, true, false, false);
    case vbide::vbext_ct_PropPage:
      return block("VB.PropertyPage") + attrs + flags(false, true, false, false);
    case vbide::vbext_ct_DocObject:
      return block("VB.UserDocument") + attrs + flags(false, true, false, true);
    default:
      return block("VB.Form") + attrs + flags(false, false, true, false);
  }
}

}  // namespace

// ---- Components --------------------------------------------------------------------------------

vbide::VBComponentPtr Components::Item(int index) {
  if (index < 1 || index > Count())
    throw vb::Error::Standard(vb::err::kSubscriptOutOfRange, u"component");
  return items_[index - 1];
}

std::shared_ptr<Component> Components::Find(std::u16string_view name) const {
  for (auto& c : items_)
    if (SameName(c->Name(), name)) return c;
  return nullptr;
}

vbide::VBComponentPtr Components::Item(std::u16string_view name) {
  if (auto c = Find(name)) return c;
  throw vb::Error::Standard(vb::err::kSubscriptOutOfRange,
                            u"no component named " + std::u16string(name));
}

std::vector<vbide::VBComponentPtr> Components::Items() {
  return std::vector<vbide::VBComponentPtr>(items_.begin(), items_.end());
}

std::u16string Components::UniqueName(std::u16string_view stem) const {
  for (int n = 1;; ++n) {
    std::u16string name = std::u16string(stem) + vb::FromUtf8(std::to_string(n));
    if (!Find(name)) return name;
  }
}

vbide::VBComponentPtr Components::Add(vbide::vbext_ComponentType type) {
  auto project = project_.lock();
  if (type == vbide::vbext_ct_ResFile || type == vbide::vbext_ct_RelatedDocument ||
      type == vbide::vbext_ct_MSForm) {
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall,
                              u"component type " + vb::FromUtf8(std::to_string(type)));
  }
  std::u16string name = UniqueName(KindOf(type).stem);
  files::Problems problems;
  auto module = files::ReadModule(NewModuleBytes(type, vb::ToUtf8(name)), KindOf(type).module,
                                  project->Codec(), vb::ToUtf8(name), problems);
  auto component =
      std::make_shared<Component>(ide_, project_, type, std::move(module), name,
                                  std::filesystem::path(), std::vector<std::filesystem::path>());
  component->Init();
  component->MarkChanged();
  items_.push_back(component);
  project->MarkFileChanged();
  if (auto ide = ide_.lock()) {
    ide->Hub().ForComponents(project.get(),
                             [&](vbide::VBComponentsEvents& e) { e.ItemAdded.Raise(component); });
    ide->changed.Raise();
  }
  return component;
}

void Components::Remove(const vbide::VBComponentPtr& component) {
  auto own = std::dynamic_pointer_cast<Component>(component);
  auto it = std::find(items_.begin(), items_.end(), own);
  if (!own || it == items_.end())
    throw vb::Error::Standard(vb::err::kSubscriptOutOfRange, u"component");
  auto project = project_.lock();
  int item = own->FindItem();
  if (item >= 0)
    files::RemoveItem(project->File(), static_cast<std::size_t>(item), project->Codec());
  project->MarkFileChanged();
  items_.erase(it);
  own->Detach();
  if (auto ide = ide_.lock()) {
    ide->ComponentRemoved(own.get());
    // The removed object is still valid for the handler; using it raises 91.
    ide->Hub().ForComponents(project.get(),
                             [&](vbide::VBComponentsEvents& e) { e.ItemRemoved.Raise(own); });
    ide->changed.Raise();
  }
}

vbide::VBProjectPtr Components::Parent() {
  return project_.lock();
}

// ---- Component ---------------------------------------------------------------------------------

Component::Component(std::weak_ptr<Ide> ide, std::weak_ptr<Project> project,
                     vbide::vbext_ComponentType type, std::optional<files::ModuleFile> module,
                     std::u16string name, std::filesystem::path path,
                     std::vector<std::filesystem::path> companions)
    : ide_(std::move(ide)),
      project_(std::move(project)),
      type_(type),
      file_(std::move(module)),
      name_(std::move(name)),
      path_(std::move(path)),
      companions_(std::move(companions)) {
  if (file_ && !file_->name.empty()) name_ = file_->name;
}

void Component::Init() {
  if (!file_) return;
  module_ = std::make_shared<host::CodeModule>(weak_from_this());
  if (file_->designer) {
    designer_ = std::make_shared<host::Designer>(weak_from_this());
    designer_->Init();
  }
}

std::u16string Component::Name() {
  CheckAlive(u"component", name_);
  return name_;
}

int Component::FindItem() const {
  auto project = project_.lock();
  if (!project) return -1;
  const auto& items = project->File().items;
  files::ItemKind kind = KindOf(type_).item;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const auto& item = items[i];
    if (item.kind != kind) continue;
    if (!item.name.empty() && SameName(item.name, name_)) return static_cast<int>(i);
    if (!path_.empty()) {
      auto resolved = files::ResolvePath(project->Folder(), item.path, project->Codec());
      if (resolved && std::filesystem::equivalent(*resolved, path_)) return static_cast<int>(i);
    }
  }
  return -1;
}

void Component::SetName(std::u16string_view name) {
  CheckAlive(u"component", name_);
  auto project = project_.lock();
  if (name.empty())
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall, u"an empty component name");
  // Rows and scopes find a module by its name: two modules of one name, or a name with the
  // row key's "|", would let an edit land in the wrong module.
  for (auto& other : project->ComponentList()->List())
    if (other.get() != this && other->HasFile() && SameName(other->Name(), name))
      throw vb::Error::Standard(vb::err::kInvalidProcedureCall,
                                u"the name " + std::u16string(name) + u" is already taken");
  if (name.find(u'|') != std::u16string_view::npos)
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall, u"\"|\" in a name");
  std::u16string oldName = name_;
  if (file_) files::RenameComponent(*file_, name, project->Codec());
  int item = FindItem();
  if (item >= 0 && !project->File().items[item].name.empty())
    files::SetItemName(project->File(), static_cast<std::size_t>(item), name, project->Codec());
  name_ = name;
  dirty_ = true;
  project->MarkFileChanged();
  auto ide = ide_.lock();
  if (module_ && module_->ExistingPane())
    module_->ExistingPane()->CodeWindow()->SetCaption(
        WindowCaption(project->Name(), name_, kCodeWindowWord));
  if (designerWindow_)
    designerWindow_->SetCaption(WindowCaption(project->Name(), name_, DesignerKind()));
  if (ide) {
    auto self = shared_from_this();
    ide->Hub().ForComponents(
        project.get(), [&](vbide::VBComponentsEvents& e) { e.ItemRenamed.Raise(self, oldName); });
    ide->changed.Raise();
  }
}

vbide::vbext_ComponentType Component::Type() {
  CheckAlive(u"component", name_);
  return type_;
}

vbide::CodeModulePtr Component::CodeModule() {
  CheckAlive(u"component", name_);
  return module_;
}

vbide::VBFormPtr Component::Designer() {
  CheckAlive(u"component", name_);
  return designer_;
}

void Component::MarkChanged() {
  if (dirty_) return;
  dirty_ = true;
  if (auto ide = ide_.lock()) ide->changed.Raise();
}

bool Component::IsDirty() {
  CheckAlive(u"component", name_);
  return dirty_;
}

int Component::FileCount() {
  CheckAlive(u"component", name_);
  if (path_.empty()) return 0;
  return 1 + static_cast<int>(companions_.size());
}

std::u16string Component::FileNames(int index) {
  CheckAlive(u"component", name_);
  if (index < 1 || index > FileCount())
    throw vb::Error::Standard(vb::err::kSubscriptOutOfRange, u"file index");
  return vb::FromUtf8((index == 1 ? path_ : companions_[index - 2]).string());
}

std::string Component::DefaultFileName() const {
  return vb::ToUtf8(name_) + std::string(KindOf(type_).extension);
}

std::u16string Component::DesignerKind() const {
  return std::u16string(KindOf(type_).caption);
}

void Component::SaveAs(std::u16string_view fileName) {
  CheckAlive(u"component", name_);
  auto project = project_.lock();
  std::filesystem::path target = std::filesystem::absolute(vb::PathFromVb(fileName));
  // Saving an unchanged component over its own file writes nothing: the bytes there are its own.
  if (!dirty_ && !path_.empty() && target == path_) return;
  if (file_) {
    std::size_t unmappable = 0;
    std::string bytes = files::WriteModule(*file_, project->Codec(), &unmappable);
    // Writing '?' for what the code page cannot hold would change the user's code behind their
    // back: the save is refused instead, and the old file stays as it was.
    if (unmappable > 0) {
      throw vb::Error(vb::err::kPathFileAccess,
                      vb::FromUtf8(target.string()) + u": " +
                          vb::FromUtf8(std::to_string(unmappable)) +
                          u" character(s) cannot be written in code page " +
                          vb::FromUtf8(std::to_string(project->CodePage())));
    }
    Write(target, bytes);
  } else if (path_.empty()) {
    // A related document or resource file that was missing at load has nothing to copy; its
    // line in the project file stays as it was written.
    throw vb::Error::Standard(vb::err::kFileNotFound, name_);
  } else if (!path_.empty() &&
             !(std::filesystem::exists(target) && std::filesystem::equivalent(target, path_))) {
    // Resource files and related documents are never rewritten, only copied elsewhere.
    Write(target, files::ReadFileBytes(path_));
  }
  bool wasListed = FindItem() >= 0;
  path_ = target;
  if (!wasListed) {
    auto relative = std::filesystem::relative(
        target, project->Folder().empty() ? target.parent_path() : project->Folder());
    std::u16string itemPath = vb::FromUtf8(relative.string());
    for (auto& c : itemPath)
      if (c == u'/') c = u'\\';
    files::AddItem(
        project->File(), KindOf(type_).item,
        (type_ == vbide::vbext_ct_StdModule || type_ == vbide::vbext_ct_ClassModule) ? name_ : u"",
        itemPath, project->Codec());
    project->MarkFileChanged();
  }
  dirty_ = false;
  if (auto ide = ide_.lock()) ide->changed.Raise();
}

void Component::Write(const std::filesystem::path& target, std::string_view bytes) const {
  auto ide = ide_.lock();
  if (!ide) throw vb::Error::Standard(vb::err::kObjectNotSet, What());
  ide->Writer().Write(target, bytes);
}

void Component::Activate() {
  CheckAlive(u"component", name_);
  auto ide = ide_.lock();
  auto project = project_.lock();
  if (!ide) return;
  if (designer_) {
    if (!designerWindow_ || !designerWindow_->Alive()) {
      std::u16string caption = WindowCaption(project->Name(), name_, DesignerKind());
      designerWindow_ = std::make_shared<Window>(ide, vbide::vbext_wt_Designer, caption,
                                                 ide->NewHandle(caption), false);
      ide->WindowList()->Add(designerWindow_);
    }
    designerWindow_->SetVisible(true);
    designerWindow_->SetFocus();
  } else if (module_) {
    module_->CodePane()->Show();
  }
  if (ide->ActiveVBProject().get() != project.get()) ide->SetActiveVBProject(project);
  auto self = shared_from_this();
  ide->Hub().ForComponents(project.get(),
                           [&](vbide::VBComponentsEvents& e) { e.ItemActivated.Raise(self); });
}

vbide::WindowPtr Component::DesignerWindow() {
  CheckAlive(u"component", name_);
  return designerWindow_ && designerWindow_->Alive() ? designerWindow_ : nullptr;
}

vbide::VBComponentsPtr Component::Collection() {
  CheckAlive(u"component", name_);
  auto project = project_.lock();
  return project ? project->VBComponents() : nullptr;
}

void Component::Detach() {
  if (module_) module_->Detach();
  if (designer_) designer_->Detach();
  if (designerWindow_ && designerWindow_->Alive()) {
    if (auto ide = ide_.lock()) {
      ide->WindowList()->Remove(designerWindow_.get());
      ide->WindowDestroyed(designerWindow_.get());
    }
    designerWindow_->MarkRemoved();
  }
  MarkRemoved();
}

}  // namespace host
