// studio::ProjectExplorer.
#include "studio/ProjectExplorer.h"

#include <QFileInfo>
#include <QHeaderView>
#include <array>
#include <set>

#include "runtime/Error.h"
#include "studio/QtText.h"
#include "vbide/VBComponent.h"
#include "vbide/VBProject.h"

namespace studio {
namespace {

// The Project window's folders, in VB's order, with the picture of their members.
struct Kind {
  vbide::vbext_ComponentType type;
  const char* folder;
  std::u16string_view picture;
};
constexpr std::array<Kind, 11> kKinds = {{
    {vbide::vbext_ct_VBForm, "Forms", u"Form"},
    {vbide::vbext_ct_VBMDIForm, "Forms", u"MDI Form"},
    {vbide::vbext_ct_StdModule, "Modules", u"Module"},
    {vbide::vbext_ct_ClassModule, "Class Modules", u"Class"},
    {vbide::vbext_ct_UserControl, "User Controls", u"UserControl"},
    {vbide::vbext_ct_PropPage, "Property Pages", u"Property Page"},
    {vbide::vbext_ct_DocObject, "User Documents", u"UserDocument"},
    {vbide::vbext_ct_ActiveXDesigner, "Designers", u"Designer"},
    {vbide::vbext_ct_MSForm, "Designers", u"Form"},
    {vbide::vbext_ct_RelatedDocument, "Related Documents", u"Document"},
    {vbide::vbext_ct_ResFile, "Related Documents", u"Resource File"},
}};

std::u16string_view ProjectPicture(vbide::vbext_ProjectType type) {
  switch (type) {
    case vbide::vbext_pt_ActiveXExe:
      return u"ActiveX EXE";
    case vbide::vbext_pt_ActiveXDll:
      return u"ActiveX DLL";
    case vbide::vbext_pt_ActiveXControl:
      return u"ActiveX Control";
    default:
      return u"Standard EXE";
  }
}

}  // namespace

ProjectExplorer::ProjectExplorer(std::shared_ptr<host::Ide> ide, const vb::Resources& pictures,
                                 Guard guard, QWidget* parent)
    : QTreeWidget(parent), ide_(std::move(ide)), pictures_(pictures), guard_(std::move(guard)) {
  setHeaderHidden(true);
  setIconSize(QSize(16, 16));
  // A long "Project (File.vbp)" scrolls into view rather than being cut to "Project (Fi...".
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  connect(this, &QTreeWidget::itemSelectionChanged, this, [this] { Selected(); });
  connect(this, &QTreeWidget::itemDoubleClicked, this,
          [this](QTreeWidgetItem* item) { Activated(item); });
}

QIcon ProjectExplorer::Picture(std::u16string_view key) const {
  try {
    return ToIcon(pictures_.LoadResPicture(key));
  } catch (const vb::Error&) {
    return {};  // a kind without its own picture is drawn without one
  }
}

QString ProjectExplorer::ProjectCaption(vbide::VBProject& project) {
  std::u16string file = project.FileName();
  QString where = file.empty() ? QStringLiteral("not saved") : QFileInfo(ToQt(file)).fileName();
  return ToQt(project.Name()) + QStringLiteral(" (") + where + u')';
}

QString ProjectExplorer::ComponentCaption(vbide::VBComponent& component) {
  return ToQt(component.Name()) + (component.IsDirty() ? QStringLiteral(" *") : QString());
}

void ProjectExplorer::Rebuild() {
  rebuilding_ = true;
  std::set<QString> collapsed;
  for (QTreeWidgetItemIterator it(this); *it; ++it)
    if ((*it)->childCount() > 0 && !(*it)->isExpanded())
      collapsed.insert((*it)->data(0, Qt::UserRole).toString());
  clear();
  components_.clear();
  for (auto& project : ide_->VBProjects()->Items()) AddProject(project);
  for (QTreeWidgetItemIterator it(this); *it; ++it)
    (*it)->setExpanded(!collapsed.contains((*it)->data(0, Qt::UserRole).toString()));
  if (auto selected = ide_->SelectedVBComponent())
    if (QTreeWidgetItem* item = ItemOf(selected)) setCurrentItem(item);
  rebuilding_ = false;
}

void ProjectExplorer::AddProject(const vbide::VBProjectPtr& project) {
  auto* top = new QTreeWidgetItem(this, {ProjectCaption(*project)});
  top->setIcon(0, Picture(ProjectPicture(project->Type())));
  top->setData(0, Qt::UserRole, ToQt(project->Name()));
  std::map<QString, QTreeWidgetItem*> folders;
  for (const auto& kind : kKinds) {
    for (auto& component : project->VBComponents()->Items()) {
      if (component->Type() != kind.type) continue;
      QString folderName = QString::fromLatin1(kind.folder);
      QTreeWidgetItem*& folder = folders[folderName];
      if (!folder) {
        folder = new QTreeWidgetItem(top, {folderName});
        folder->setIcon(0, style()->standardIcon(QStyle::SP_DirIcon));
        folder->setData(0, Qt::UserRole, ToQt(project->Name()) + u'/' + folderName);
      }
      auto* item = new QTreeWidgetItem(folder, {ComponentCaption(*component)});
      item->setIcon(0, Picture(kind.picture));
      components_[item] = component;
    }
  }
}

QTreeWidgetItem* ProjectExplorer::ItemOf(const vbide::VBComponentPtr& component) const {
  for (auto& [item, weak] : components_)
    if (weak.lock() == component) return item;
  return nullptr;
}

void ProjectExplorer::Selected() {
  if (rebuilding_) return;
  auto items = selectedItems();
  auto it = items.isEmpty() ? components_.end() : components_.find(items.front());
  vbide::VBComponentPtr component = it == components_.end() ? nullptr : it->second.lock();
  guard_([&] { ide_->SelectComponent(component); });
}

void ProjectExplorer::Activated(QTreeWidgetItem* item) {
  auto it = components_.find(item);
  if (it == components_.end()) return;
  if (auto component = it->second.lock()) guard_([&] { component->Activate(); });
}

}  // namespace studio
