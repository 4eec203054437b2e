// host::Components and host::Component: a project's components, each holding its module file
// (hidden header and visible code) as it was read.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Liveness.h"
#include "host/files/ModuleFile.h"
#include "vbide/VBComponent.h"

namespace host {

class Ide;
class Project;
class CodeModule;
class Designer;
class Window;
class Component;

class Components final : public vbide::VBComponents {
 public:
  Components(std::weak_ptr<Ide> ide, std::weak_ptr<Project> project)
      : ide_(std::move(ide)), project_(std::move(project)) {}
  int Count() override { return static_cast<int>(items_.size()); }
  vbide::VBComponentPtr Item(int index) override;
  vbide::VBComponentPtr Item(std::u16string_view name) override;
  std::vector<vbide::VBComponentPtr> Items() override;
  vbide::VBComponentPtr Add(vbide::vbext_ComponentType type) override;
  void Remove(const vbide::VBComponentPtr& component) override;
  vbide::VBProjectPtr Parent() override;

  const std::vector<std::shared_ptr<Component>>& List() const { return items_; }
  void Append(std::shared_ptr<Component> component) { items_.push_back(std::move(component)); }
  std::shared_ptr<Component> Find(std::u16string_view name) const;

 private:
  std::u16string UniqueName(std::u16string_view stem) const;
  std::weak_ptr<Ide> ide_;
  std::weak_ptr<Project> project_;
  std::vector<std::shared_ptr<Component>> items_;
};

class Component final : public vbide::VBComponent,
                        public Liveness,
                        public std::enable_shared_from_this<Component> {
 public:
  // A component with code (`module` set) or a resource file / related document (`module` empty,
  // `name` given). `path` is empty for a component never saved.
  Component(std::weak_ptr<Ide> ide, std::weak_ptr<Project> project, vbide::vbext_ComponentType type,
            std::optional<files::ModuleFile> module, std::u16string name,
            std::filesystem::path path, std::vector<std::filesystem::path> companions);
  void Init();

  std::u16string Name() override;
  void SetName(std::u16string_view name) override;
  vbide::vbext_ComponentType Type() override;
  vbide::CodeModulePtr CodeModule() override;
  vbide::VBFormPtr Designer() override;
  bool IsDirty() override;
  int FileCount() override;
  std::u16string FileNames(int index) override;
  void SaveAs(std::u16string_view fileName) override;
  void Activate() override;
  vbide::WindowPtr DesignerWindow() override;
  vbide::VBComponentsPtr Collection() override;

  // For the object model's own classes.
  files::ModuleFile& File() { return *file_; }
  bool HasFile() const { return file_.has_value(); }
  std::shared_ptr<Project> OwnerProject() const { return project_.lock(); }
  std::shared_ptr<Ide> OwnerIde() const { return ide_.lock(); }
  const std::filesystem::path& Path() const { return path_; }
  const std::vector<std::filesystem::path>& Companions() const { return companions_; }
  // Marks the component changed (code typed, a control renamed or removed, a member added);
  // the first mark after a save tells the front ends, which show changed components.
  void MarkChanged();
  // The component's caption word in window titles: "Code", "Form", "UserControl" ...
  std::u16string DesignerKind() const;
  // "Module1.bas", "Form1.frm" ...: where a never-saved component goes.
  std::string DefaultFileName() const;
  std::shared_ptr<host::CodeModule> Module() const { return module_; }
  std::shared_ptr<host::Designer> Form() const { return designer_; }
  // Its line in the project file's item block, or -1 (never saved, or not listed).
  int FindItem() const;
  void Detach();
  std::u16string What() const { return u"component " + name_; }

 private:
  void Write(const std::filesystem::path& target, std::string_view bytes) const;

  std::weak_ptr<Ide> ide_;
  std::weak_ptr<Project> project_;
  vbide::vbext_ComponentType type_;
  std::optional<files::ModuleFile> file_;
  std::u16string name_;
  std::filesystem::path path_;
  std::vector<std::filesystem::path> companions_;
  std::shared_ptr<host::CodeModule> module_;
  std::shared_ptr<host::Designer> designer_;
  std::shared_ptr<Window> designerWindow_;
  bool dirty_ = false;
};

}  // namespace host
