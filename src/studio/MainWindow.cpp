// studio::MainWindow.
#include "studio/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QTableWidget>
#include <QTimer>
#include <QToolBar>

#include "host/CodeModule.h"
#include "host/CodePane.h"
#include "host/Component.h"
#include "host/Project.h"
#include "runtime/Error.h"
#include "runtime/Resources.h"
#include "runtime/VbConstants.h"
#include "studio/CodeEditor.h"
#include "studio/CommandBarView.h"
#include "studio/DesignerView.h"
#include "studio/ImmediateView.h"
#include "studio/OpenProjectDialog.h"
#include "studio/ProjectExplorer.h"
#include "studio/QtText.h"
#include "studio/ToolWindowContent.h"

namespace studio {

// A code or designer window inside the main window. Closing it closes the IDE's window; the
// model closing the window removes it without asking back.
class MainWindow::HostSubWindow final : public QMdiSubWindow {
 public:
  HostSubWindow(MainWindow& owner, std::shared_ptr<host::Window> window)
      : owner_(owner), window_(std::move(window)) {}
  bool closedByModel = false;

 protected:
  void closeEvent(QCloseEvent* event) override {
    if (!closedByModel && window_->Alive()) owner_.Guard([&] { window_->Close(); });
    QMdiSubWindow::closeEvent(event);
  }

 private:
  MainWindow& owner_;
  std::shared_ptr<host::Window> window_;
};

MainWindow::MainWindow(composition::Desk& desk, const std::filesystem::path& placesFile,
                       QWidget* parent)
    : QMainWindow(parent),
      desk_(desk),
      places_(std::make_unique<QSettings>(QString::fromStdString(placesFile.string()),
                                          QSettings::IniFormat)) {
  setObjectName(QStringLiteral("QuillmarkStudio"));
  setWindowIcon(ToIcon(desk_.runtime->GetResources().LoadResPicture(u"Standard EXE")));
  area_ = new QMdiArea(this);
  area_->setBackground(QColor(128, 128, 128));
  setCentralWidget(area_);
  bars_ = new CommandBarView(*this, desk_.ide->Bars(),
                             [this](const std::function<void()>& a) { Guard(a); });
  BuildDocks();
  BindCommands();
  bars_->Rebuild();
  changed_ = desk_.ide->changed.Subscribe([this] { ScheduleSync(); });
  // Alt+letter from anywhere, tool windows included: they post WM_SYSKEYDOWN to the main window.
  desk_.runtime->Windows().SetMessageHandler(
      static_cast<vb::Hwnd>(desk_.ide->Main()->HWnd()),
      [this](int message, std::intptr_t wParam, std::intptr_t) {
        if (message == vb::kWmSysKeyDown) OnSysKey(wParam);
        return std::intptr_t{0};
      });
  resize(1100, 760);
  restoreGeometry(places_->value("MainWindow/geometry").toByteArray());
  placesRestored_ = restoreState(places_->value("MainWindow/state").toByteArray());
  Sync();
}

MainWindow::~MainWindow() {
  // The docks report their hiding while QWidget's destructor tears them down, after ours ran.
  for (auto* dock : findChildren<QDockWidget*>()) dock->disconnect(this);
  for (auto& [window, sub] : subWindows_) sub->disconnect(this);
  desk_.runtime->Windows().SetMessageHandler(static_cast<vb::Hwnd>(desk_.ide->Main()->HWnd()),
                                             nullptr);
}

void MainWindow::BuildDocks() {
  setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);
  auto makeDock = [this](const QString& title, const QString& name, QWidget* content,
                         Qt::DockWidgetArea area) {
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    dock->setWidget(content);
    addDockWidget(area, dock);
    return dock;
  };
  explorer_ = new ProjectExplorer(desk_.ide, desk_.runtime->GetResources(),
                                  [this](const std::function<void()>& a) { Guard(a); });
  projectDock_ =
      makeDock(tr("Project"), QStringLiteral("ProjectWindow"), explorer_, Qt::RightDockWidgetArea);
  properties_ = new QTableWidget(0, 2);
  properties_->setHorizontalHeaderLabels({tr("Property"), tr("Value")});
  properties_->horizontalHeader()->setStretchLastSection(true);
  properties_->verticalHeader()->hide();
  properties_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  propertiesDock_ = makeDock(tr("Properties"), QStringLiteral("PropertiesWindow"), properties_,
                             Qt::RightDockWidgetArea);
  immediate_ = new ImmediateView(desk_.ide->Immediate());
  immediateDock_ = makeDock(tr("Immediate"), QStringLiteral("ImmediateWindow"), immediate_,
                            Qt::BottomDockWidgetArea);
  splitDockWidget(projectDock_, propertiesDock_, Qt::Vertical);
  resizeDocks({projectDock_}, {kDockWidth}, Qt::Horizontal);
  resizeDocks({immediateDock_}, {150}, Qt::Vertical);
  // Hiding a dock hides the IDE's window too, as closing the Project window does in VB.
  auto follow = [this](QDockWidget* dock, std::shared_ptr<host::Window> window) {
    connect(dock, &QDockWidget::visibilityChanged, this, [this, dock, window](bool) {
      if (!closing_ && !dock->isHidden() != window->Visible())
        Guard([&] { window->SetVisible(!dock->isHidden()); });
    });
  };
  follow(projectDock_, desk_.ide->ProjectWindow());
  follow(propertiesDock_, desk_.ide->PropertiesWindow());
  follow(immediateDock_, desk_.ide->Immediate());
}

void MainWindow::FitDocksToContent() {
  // The user's own widths, once there are any, are not second-guessed.
  if (placesRestored_) return;
  Sync();
  // Wide enough for the longest line of the Project window, so "LedgerControls
  // (LedgerControls.vbp)" reads whole; never more than a third of the window.
  int content = explorer_->ContentWidth() + 2 * explorer_->frameWidth() +
                explorer_->verticalScrollBar()->sizeHint().width() + 8;
  int width = std::clamp(content, kDockWidth, std::max(kDockWidth, this->width() / 3));
  resizeDocks({projectDock_}, {width}, Qt::Horizontal);
  properties_->horizontalHeader()->resizeSection(0, width / 2);
}

void MainWindow::BindCommands() {
  bars_->SetCommand(host::IdeCommand::Open, [this] {
    if (auto chosen = AskProjectToOpen(this, desk_.ide->CodePage(), prepareOpenDialog))
      OpenProject(chosen->file, chosen->codePage);
  });
  bars_->SetCommand(host::IdeCommand::Save, [this] { SaveProjects(); });
  bars_->SetCommand(host::IdeCommand::SaveAs, [this] {
    if (auto project = desk_.ide->ActiveVBProject()) SaveProjectAs(project);
  });
  bars_->SetCommand(host::IdeCommand::Close, [this] { CloseActiveProject(); });
  bars_->SetCommand(host::IdeCommand::Exit, [this] { close(); });
  bars_->SetCommand(host::IdeCommand::AddInManager, [this] {
    if (onAddInManager) onAddInManager();
  });
  auto show = [this](std::shared_ptr<host::Window> window) {
    window->SetVisible(true);
    window->SetFocus();
  };
  bars_->SetCommand(host::IdeCommand::ViewImmediate,
                    [this, show] { show(desk_.ide->Immediate()); });
  bars_->SetCommand(host::IdeCommand::ViewProject,
                    [this, show] { show(desk_.ide->ProjectWindow()); });
  bars_->SetCommand(host::IdeCommand::ViewProperties,
                    [this, show] { show(desk_.ide->PropertiesWindow()); });
  bars_->SetCommand(host::IdeCommand::ViewCode, [this] {
    if (auto component = desk_.ide->SelectedVBComponent(); component && component->CodeModule())
      component->CodeModule()->CodePane()->Show();
  });
  bars_->SetCommand(host::IdeCommand::ViewObject, [this] {
    if (auto component = desk_.ide->SelectedVBComponent()) component->Activate();
  });
  bars_->SetCommand(host::IdeCommand::Cascade, [this] { area_->cascadeSubWindows(); });
  // The clipboard buttons act on whatever has the keyboard: a code window, the Immediate window.
  for (auto [command, slot] :
       {std::pair{host::IdeCommand::Cut, "cut"}, std::pair{host::IdeCommand::Copy, "copy"},
        std::pair{host::IdeCommand::Paste, "paste"}})
    bars_->SetCommand(command, [slot] {
      QWidget* focus = QApplication::focusWidget();
      if (focus && focus->metaObject()->indexOfMethod(QByteArray(slot) + "()") >= 0)
        QMetaObject::invokeMethod(focus, slot);
    });
  auto* lineNumbers = new QAction(tr("&Line Numbers"), this);
  lineNumbers->setCheckable(true);
  connect(lineNumbers, &QAction::toggled, this, [this](bool on) { SetLineNumbersVisible(on); });
  bars_->AddExtraAction(u"View", lineNumbers);
}

void MainWindow::Guard(const std::function<void()>& action) {
  desk_.runtime->Dispatch(action);
}

void MainWindow::ScheduleSync() {
  // The model changes in the middle of a user's action; draw after it, once.
  if (syncPending_) return;
  syncPending_ = true;
  QTimer::singleShot(0, this, [this] {
    if (syncPending_) Sync();
  });
}

void MainWindow::Sync() {
  syncPending_ = false;
  if (closing_) return;
  explorer_->Rebuild();
  SyncCodeWindows();
  SyncDesignerWindows();
  SyncToolWindows();
  SyncDock(*projectDock_, *desk_.ide->ProjectWindow());
  SyncDock(*propertiesDock_, *desk_.ide->PropertiesWindow());
  SyncDock(*immediateDock_, *desk_.ide->Immediate());
  SyncProperties();
  SyncTitle();
}

void MainWindow::SyncDock(QDockWidget& dock, host::Window& window) {
  if (dock.isHidden() == !window.Visible()) return;
  dock.setVisible(window.Visible());
}

QMdiSubWindow* MainWindow::AddSubWindow(const std::shared_ptr<host::Window>& window,
                                        QWidget* content) {
  auto* sub = new HostSubWindow(*this, window);
  sub->setWidget(content);
  sub->setAttribute(Qt::WA_DeleteOnClose);
  sub->setWindowTitle(ToQt(window->Caption()));
  area_->addSubWindow(sub);
  sub->resize(640, 420);
  KeepInsideArea(*sub);
  sub->show();
  area_->setActiveSubWindow(sub);
  subWindows_[window.get()] = sub;
  connect(sub, &QObject::destroyed, this, [this, raw = window.get()] { subWindows_.erase(raw); });
  return sub;
}

void MainWindow::DropSubWindows(const std::function<bool(host::Window&)>& keep) {
  std::vector<std::pair<host::Window*, QMdiSubWindow*>> gone;
  for (auto& [window, sub] : subWindows_)
    if (!keep(*window)) gone.emplace_back(window, sub);
  for (auto& [window, sub] : gone) {
    static_cast<HostSubWindow*>(sub)->closedByModel = true;
    subWindows_.erase(window);
    sub->close();
  }
}

void MainWindow::SyncCodeWindows() {
  std::map<host::Window*, std::shared_ptr<host::CodePane>> open;
  for (auto& item : desk_.ide->CodePanes()->Items()) {
    auto pane = std::static_pointer_cast<host::CodePane>(item);
    auto window = pane->CodeWindow();
    if (window && window->Alive() && window->Visible()) open[window.get()] = pane;
  }
  DropSubWindows([&](host::Window& w) {
    return !w.Alive() ? false : w.Type() != vbide::vbext_wt_CodeWindow ? true : open.contains(&w);
  });
  for (auto& [window, pane] : open)
    if (!subWindows_.contains(window)) {
      auto* editor = new CodeEditor(pane);
      editor->SetLineNumbersVisible(lineNumbers_);
      AddSubWindow(pane->CodeWindow(), editor);
    }
}

void MainWindow::SyncDesignerWindows() {
  std::map<host::Window*, std::shared_ptr<host::Component>> open;
  for (auto& project : desk_.ide->ProjectList()->List())
    for (auto& component : project->ComponentList()->List())
      if (auto window = std::static_pointer_cast<host::Window>(component->DesignerWindow());
          window && window->Visible())
        open[window.get()] = component;
  DropSubWindows([&](host::Window& w) {
    return !w.Alive() ? false : w.Type() != vbide::vbext_wt_Designer ? true : open.contains(&w);
  });
  for (auto& [window, component] : open) {
    if (subWindows_.contains(window)) {
      if (auto* view = DesignerIn(*subWindows_[window]))
        view->update();  // the selection may have changed
      continue;
    }
    auto* view = new DesignerView(component);
    connect(view, &DesignerView::selectionChanged, this, [this] { SyncProperties(); });
    // A form larger than the window scrolls, as in VB's designer windows.
    auto* scroller = new QScrollArea;
    scroller->setBackgroundRole(QPalette::Dark);
    scroller->setWidget(view);
    auto* sub =
        AddSubWindow(std::static_pointer_cast<host::Window>(component->DesignerWindow()), scroller);
    sub->resize(DesignerWindowSize(view->sizeHint(), sub->size() - scroller->viewport()->size()));
    KeepInsideArea(*sub);
  }
}

void MainWindow::KeepInsideArea(QMdiSubWindow& sub) const {
  // The area cascades new windows from where the last one stood; one that would hang past the
  // area's edge (its title cut off, its surface out of reach) moves back in where it fits.
  QSize room = area_->viewport()->size();
  QRect place = sub.geometry();
  int left = std::max(0, std::min(place.left(), room.width() - place.width()));
  int top = std::max(0, std::min(place.top(), room.height() - place.height()));
  // A floating toolbar over the window's first lines would hide them: the window opens below
  // it when the area has the room.
  for (QToolBar* bar : findChildren<QToolBar*>()) {
    if (!bar->isWindow() || !bar->isVisible()) continue;
    QRect over(area_->viewport()->mapFromGlobal(bar->frameGeometry().topLeft()),
               bar->frameGeometry().size());
    QRect head(left, top, place.width(), 80);
    if (over.intersects(head) && over.bottom() + 1 + place.height() <= room.height())
      top = over.bottom() + 1;
  }
  sub.move(left, top);
}

QSize MainWindow::DesignerWindowSize(QSize content, QSize chrome) const {
  // Room for the whole surface when the area has it; never so small that a little user control
  // opens as a sliver nobody can work in.
  QSize wanted = (content + chrome).expandedTo(kMinimumDesignerWindow);
  return wanted.boundedTo(area_->viewport()->size().expandedTo(kMinimumDesignerWindow));
}

void MainWindow::SyncToolWindows() {
  for (auto& window : desk_.ide->WindowList()->List()) {
    if (window->Type() != vbide::vbext_wt_ToolWindow || !window->Document()) continue;
    QDockWidget*& dock = toolDocks_[window.get()];
    if (!dock) {
      dock = new QDockWidget(ToQt(window->Caption()), this);
      // The persistent id keys the place the dock is given back on the next run.
      dock->setObjectName(ToQt(window->PersistentId()));
      dock->setWidget(ToolWindowContent(*window->Document(), dock));
      // Only a dock not yet added can take its remembered place; one just added is "restored"
      // where it was added.
      if (!restoreDockWidget(dock)) PlaceNewToolDock(*dock);
      std::weak_ptr<host::Window> weak = window;
      connect(dock, &QDockWidget::visibilityChanged, this, [this, dock, weak](bool) {
        auto held = weak.lock();
        if (!closing_ && held && held->Alive() && !dock->isHidden() != held->Visible())
          Guard([&] { held->SetVisible(!dock->isHidden()); });
      });
    }
    dock->setWindowTitle(ToQt(window->Caption()));
    SyncDock(*dock, *window);
    // Shown by the add-in (its results are in), also when it already was: the user is meant
    // to see it, not a tab under the Immediate window.
    int& seen = dockShowRequests_[window.get()];
    if (seen != window->ShowRequests() && !dock->isHidden()) dock->raise();
    seen = window->ShowRequests();
  }
}

void MainWindow::PlaceNewToolDock(QDockWidget& dock) {
  // Where VB users look for output: a tab beside the Immediate window, across the bottom, tall
  // enough for a list. Beside it, both would share the width and neither could be read.
  addDockWidget(Qt::BottomDockWidgetArea, &dock);
  if (dockWidgetArea(immediateDock_) == Qt::BottomDockWidgetArea && !immediateDock_->isFloating())
    tabifyDockWidget(immediateDock_, &dock);
  int height = std::max(kToolDockHeight, immediateDock_->height());
  resizeDocks({&dock}, {std::min(height, this->height() / 2)}, Qt::Vertical);
}

void MainWindow::SyncProperties() {
  std::vector<std::pair<std::u16string, std::u16string>> list;
  if (auto* sub = area_->activeSubWindow())
    if (auto* view = DesignerIn(*sub); view && view->Component()->Form()) {
      for (auto& control : view->Component()->Form()->List())
        if (control->InSelection()) {
          list = control->PropertyList();
          break;
        }
    }
  if (list.empty())
    if (auto component = desk_.ide->SelectedVBComponent())
      list.emplace_back(u"Name", component->Name());
  properties_->setRowCount(static_cast<int>(list.size()));
  for (int row = 0; row < static_cast<int>(list.size()); ++row) {
    properties_->setItem(row, 0,
                         new QTableWidgetItem(ToQt(list[static_cast<std::size_t>(row)].first)));
    properties_->setItem(row, 1,
                         new QTableWidgetItem(ToQt(list[static_cast<std::size_t>(row)].second)));
  }
}

void MainWindow::SyncTitle() {
  auto project = desk_.ide->ActiveVBProject();
  QString name =
      project ? ToQt(project->Name()) + (project->IsDirty() ? QStringLiteral("*") : QString())
              : QString();
  setWindowTitle((name.isEmpty() ? QString() : name + QStringLiteral(" - ")) +
                 tr("Quillmark Studio [design]"));
}

std::vector<CodeEditor*> MainWindow::CodeEditors() const {
  std::vector<CodeEditor*> editors;
  for (auto* sub : area_->subWindowList())
    if (auto* editor = qobject_cast<CodeEditor*>(sub->widget())) editors.push_back(editor);
  return editors;
}

std::vector<DesignerView*> MainWindow::Designers() const {
  std::vector<DesignerView*> views;
  for (auto* sub : area_->subWindowList())
    if (auto* view = DesignerIn(*sub)) views.push_back(view);
  return views;
}

DesignerView* MainWindow::DesignerIn(QMdiSubWindow& sub) {
  auto* scroller = qobject_cast<QScrollArea*>(sub.widget());
  return scroller ? qobject_cast<DesignerView*>(scroller->widget()) : nullptr;
}

QDockWidget* MainWindow::ToolDock(const QString& persistentId) const {
  for (auto& [window, dock] : toolDocks_)
    if (dock->objectName() == persistentId) return dock;
  return nullptr;
}

void MainWindow::SetLineNumbersVisible(bool visible) {
  lineNumbers_ = visible;
  for (auto* editor : CodeEditors()) editor->SetLineNumbersVisible(visible);
}

void MainWindow::OnSysKey(std::intptr_t virtualKey) {
  if (virtualKey > 0 && virtualKey < 0x10000)
    bars_->OpenMenu(QChar(static_cast<char16_t>(virtualKey)));
}

}  // namespace studio
