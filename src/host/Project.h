// host::Projects and host::Project: the loaded projects, each with its project file kept as read.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/Liveness.h"
#include "host/files/ProjectFile.h"
#include "runtime/CodePage.h"
#include "vbide/VBProject.h"

namespace host {

class Ide;
class Components;
class Project;

class Projects final : public vbide::VBProjects {
 public:
  explicit Projects(std::weak_ptr<Ide> ide) : ide_(std::move(ide)) {}
  int Count() override { return static_cast<int>(items_.size()); }
  vbide::VBProjectPtr Item(int index) override;
  vbide::VBProjectPtr Item(std::u16string_view name) override;
  std::vector<vbide::VBProjectPtr> Items() override;
  vbide::VBEPtr VBE() override;

  const std::vector<std::shared_ptr<Project>>& List() const { return items_; }
  void Add(std::shared_ptr<Project> project) { items_.push_back(std::move(project)); }
  void Remove(const Project* project);

 private:
  std::weak_ptr<Ide> ide_;
  std::vector<std::shared_ptr<Project>> items_;
};

class Project final : public vbide::VBProject,
                      public Liveness,
                      public std::enable_shared_from_this<Project> {
 public:
  // `path` is empty for a project never saved.
  Project(std::weak_ptr<Ide> ide, files::ProjectFile file, std::filesystem::path path,
          const vb::CodePage& codePage);
  void Init(std::weak_ptr<Projects> collection);

  std::u16string Name() override;
  void SetName(std::u16string_view name) override;
  std::u16string FileName() override;
  vbide::vbext_ProjectType Type() override;
  bool IsDirty() override;
  void SaveAs(std::u16string_view fileName) override;
  vbide::VBComponentsPtr VBComponents() override;
  vbide::VBProjectsPtr Collection() override;
  int CodePage() override;

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path Folder() const;
  files::ProjectFile& File() { return file_; }
  const vb::CodePage& Codec() const { return *codePage_; }
  const std::shared_ptr<Components>& ComponentList() const { return components_; }
  void MarkFileChanged() { fileDirty_ = true; }
  // Writes the project file alone to `path` (no components), atomically.
  void WriteProjectFile(const std::filesystem::path& path);
  void Detach();

 private:
  std::u16string What() const { return u"project " + file_.name; }
  std::weak_ptr<Ide> ide_;
  std::weak_ptr<Projects> collection_;
  files::ProjectFile file_;
  std::filesystem::path path_;
  const vb::CodePage* codePage_;
  std::shared_ptr<Components> components_;
  bool fileDirty_ = false;
};

}  // namespace host
