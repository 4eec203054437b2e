// studio::ProjectExplorer: the Project window: projects and their components by kind; selecting
// selects in the IDE, double-clicking activates.
#pragma once

#include <QTreeWidget>
#include <functional>
#include <map>
#include <memory>

#include "host/Ide.h"
#include "runtime/Resources.h"

namespace studio {

class ProjectExplorer final : public QTreeWidget {
  Q_OBJECT
 public:
  using Guard = std::function<void(const std::function<void()>&)>;
  ProjectExplorer(std::shared_ptr<host::Ide> ide, const vb::Resources& pictures, Guard guard,
                  QWidget* parent = nullptr);

  // Draws the projects again, keeping the selection and the folders' open state.
  void Rebuild();
  QTreeWidgetItem* ItemOf(const vbide::VBComponentPtr& component) const;
  // "Ledger (Ledger.vbp)", or "(not saved)" in place of the file for a project never saved.
  static QString ProjectCaption(vbide::VBProject& project);
  // The component's name, marked " *" while it has changes not yet saved.
  static QString ComponentCaption(vbide::VBComponent& component);
  // Pixels the widest item needs, its indentation and picture counted: for sizing the dock.
  int ContentWidth() const { return sizeHintForColumn(0); }

 private:
  QIcon Picture(std::u16string_view key) const;
  void AddProject(const vbide::VBProjectPtr& project);
  void Selected();
  void Activated(QTreeWidgetItem* item);

  std::shared_ptr<host::Ide> ide_;
  const vb::Resources& pictures_;
  Guard guard_;
  std::map<QTreeWidgetItem*, std::weak_ptr<vbide::VBComponent>> components_;
  bool rebuilding_ = false;
};

}  // namespace studio
