// host::Projects and host::Project.
#include "host/Project.h"

#include "host/Component.h"
#include "host/Ide.h"
#include "host/files/FileIo.h"
#include "runtime/Utf.h"

namespace host {

// ---- Projects ----------------------------------------------------------------------------------

vbide::VBProjectPtr Projects::Item(int index) {
  if (index < 1 || index > Count())
    throw vb::Error::Standard(vb::err::kSubscriptOutOfRange, u"project");
  return items_[index - 1];
}

vbide::VBProjectPtr Projects::Item(std::u16string_view name) {
  for (auto& p : items_)
    if (SameName(p->Name(), name)) return p;
  throw vb::Error::Standard(vb::err::kSubscriptOutOfRange,
                            u"no project named " + std::u16string(name));
}

std::vector<vbide::VBProjectPtr> Projects::Items() {
  return std::vector<vbide::VBProjectPtr>(items_.begin(), items_.end());
}

vbide::VBEPtr Projects::VBE() {
  return ide_.lock();
}

void Projects::Remove(const Project* project) {
  std::erase_if(items_, [project](auto& p) { return p.get() == project; });
}

// ---- Project -----------------------------------------------------------------------------------

Project::Project(std::weak_ptr<Ide> ide, files::ProjectFile file, std::filesystem::path path,
                 const vb::CodePage& codePage)
    : ide_(std::move(ide)), file_(std::move(file)), path_(std::move(path)), codePage_(&codePage) {}

void Project::Init(std::weak_ptr<Projects> collection) {
  collection_ = std::move(collection);
  components_ = std::make_shared<Components>(ide_, weak_from_this());
}

std::u16string Project::Name() {
  CheckAlive(u"project", file_.name);
  return file_.name;
}

void Project::SetName(std::u16string_view name) {
  CheckAlive(u"project", file_.name);
  if (name.empty())
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall, u"an empty project name");
  // As for modules: no namesake, no "|", so that a row's project is never another one.
  if (auto projects = collection_.lock())
    for (auto& other : projects->List())
      if (other.get() != this && SameName(other->Name(), name))
        throw vb::Error::Standard(vb::err::kInvalidProcedureCall,
                                  u"the name " + std::u16string(name) + u" is already taken");
  if (name.find(u'|') != std::u16string_view::npos)
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall, u"\"|\" in a name");
  std::u16string oldName = file_.name;
  files::SetProjectName(file_, name, *codePage_);
  fileDirty_ = true;
  if (auto ide = ide_.lock()) {
    ide->Hub().Projects().ItemRenamed.Raise(shared_from_this(), oldName);
    ide->changed.Raise();
  }
}

std::u16string Project::FileName() {
  CheckAlive(u"project", file_.name);
  return path_.empty() ? std::u16string() : vb::FromUtf8(path_.string());
}

vbide::vbext_ProjectType Project::Type() {
  CheckAlive(u"project", file_.name);
  if (SameName(file_.type, u"OleExe")) return vbide::vbext_pt_ActiveXExe;
  if (SameName(file_.type, u"OleDll")) return vbide::vbext_pt_ActiveXDll;
  if (SameName(file_.type, u"Control")) return vbide::vbext_pt_ActiveXControl;
  return vbide::vbext_pt_StandardExe;
}

bool Project::IsDirty() {
  CheckAlive(u"project", file_.name);
  if (fileDirty_) return true;
  for (auto& c : components_->List())
    if (c->IsDirty()) return true;
  return false;
}

std::filesystem::path Project::Folder() const {
  return path_.parent_path();
}

void Project::WriteProjectFile(const std::filesystem::path& path) {
  auto ide = ide_.lock();
  if (!ide) throw vb::Error::Standard(vb::err::kObjectNotSet, What());
  ide->Writer().Write(path, files::WriteProject(file_, *codePage_));
}

void Project::SaveAs(std::u16string_view fileName) {
  CheckAlive(u"project", file_.name);
  std::filesystem::path target = std::filesystem::absolute(vb::PathFromVb(fileName));
  // An unchanged project saved over its own file writes nothing.
  if (!IsDirty() && !path_.empty() && target == path_) return;
  // Components first (a never-saved one is written beside the project file), then the project
  // file, so a failure leaves the project file describing files that exist.
  for (auto& c : components_->List()) {
    if (!c->IsDirty() && !c->Path().empty()) continue;
    // A related document or resource file missing at load: its line is kept, nothing to write.
    if (c->Path().empty() && !c->HasFile()) continue;
    if (c->Path().empty())
      c->SaveAs(vb::FromUtf8((target.parent_path() / c->DefaultFileName()).string()));
    else
      c->SaveAs(vb::FromUtf8(c->Path().string()));
  }
  WriteProjectFile(target);
  path_ = target;
  fileDirty_ = false;
  if (auto ide = ide_.lock()) ide->changed.Raise();
}

vbide::VBComponentsPtr Project::VBComponents() {
  CheckAlive(u"project", file_.name);
  return components_;
}

vbide::VBProjectsPtr Project::Collection() {
  CheckAlive(u"project", file_.name);
  return collection_.lock();
}

int Project::CodePage() {
  CheckAlive(u"project", file_.name);
  return codePage_->Number();
}

void Project::Detach() {
  for (auto& c : components_->List()) c->Detach();
  MarkRemoved();
}

}  // namespace host
