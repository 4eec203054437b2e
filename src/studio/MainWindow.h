// studio::MainWindow: the IDE's main window: menus and toolbars from the command bars, the
// Project, Properties and Immediate windows docked, code and designer windows inside, and the
// add-ins' tool windows as docks that remember their places.
#pragma once

#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "composition/Composition.h"
#include "vbide/Event.h"

class QMdiArea;
class QMdiSubWindow;
class QDockWidget;
class QTableWidget;
class QSettings;
class QFileDialog;

namespace host {
class Window;
}

namespace studio {

class CommandBarView;
class ProjectExplorer;
class ImmediateView;
class CodeEditor;
class DesignerView;

class MainWindow final : public QMainWindow {
  Q_OBJECT
 public:
  // `desk` outlives the window. `placesFile` keeps the docks' places between runs.
  MainWindow(composition::Desk& desk, const std::filesystem::path& placesFile,
             QWidget* parent = nullptr);
  ~MainWindow() override;

  // Draws the IDE's state now (otherwise drawn once per turn of the event loop after a change).
  void Sync();
  CommandBarView& Bars() { return *bars_; }
  ProjectExplorer& Explorer() { return *explorer_; }
  ImmediateView& Immediate() { return *immediate_; }
  QMdiArea& Area() { return *area_; }
  QTableWidget& Properties() { return *properties_; }
  std::vector<CodeEditor*> CodeEditors() const;
  std::vector<DesignerView*> Designers() const;
  QDockWidget* ToolDock(const QString& persistentId) const;
  // The studio's commands, also behind the built-in menu items.
  // Opens in `codePage`, or else in the one this project was last opened in, or else in the
  // IDE's current one; the page is remembered for the project.
  void OpenProject(const std::filesystem::path& file, std::optional<int> codePage = {});
  int RememberedCodePage(const std::filesystem::path& file) const;
  bool SaveProjects();  // false when the user cancelled a Save As
  // Asks about unsaved projects (Yes saves, No discards, Cancel keeps them open). False: cancelled.
  bool ConfirmClose(const std::vector<vbide::VBProjectPtr>& projects);
  void CloseActiveProject();
  void SetLineNumbersVisible(bool visible);
  // Gives the Project and Properties windows room for what they show, unless the user's own
  // places were restored.
  void FitDocksToContent();
  std::function<void()> onAddInManager;
  std::function<void()> onBeforeWindowsGo;              // the add-ins disconnect here, at exit
  std::function<void(QFileDialog&)> prepareOpenDialog;  // a test answers File > Open here

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  class HostSubWindow;
  void BuildDocks();
  void BindCommands();
  void ScheduleSync();
  void SyncCodeWindows();
  void SyncDesignerWindows();
  void SyncToolWindows();
  void SyncDock(QDockWidget& dock, host::Window& window);
  void PlaceNewToolDock(QDockWidget& dock);
  void SyncProperties();
  void SyncTitle();
  static DesignerView* DesignerIn(QMdiSubWindow& sub);
  QSize DesignerWindowSize(QSize content, QSize chrome) const;
  void KeepInsideArea(QMdiSubWindow& sub) const;
  QMdiSubWindow* AddSubWindow(const std::shared_ptr<host::Window>& window, QWidget* content);
  void DropSubWindows(const std::function<bool(host::Window&)>& keep);
  void Guard(const std::function<void()>& action);
  bool SaveProjectAs(const vbide::VBProjectPtr& project);
  void OnSysKey(std::intptr_t virtualKey);

  static constexpr QSize kMinimumDesignerWindow{480, 360};
  static constexpr int kDockWidth = 260;       // pixels: the right-hand docks at their narrowest
  static constexpr int kToolDockHeight = 240;  // pixels: a dozen rows of a list view

  composition::Desk& desk_;
  std::unique_ptr<QSettings> places_;
  CommandBarView* bars_ = nullptr;
  QMdiArea* area_ = nullptr;
  ProjectExplorer* explorer_ = nullptr;
  ImmediateView* immediate_ = nullptr;
  QTableWidget* properties_ = nullptr;
  QDockWidget *projectDock_ = nullptr, *propertiesDock_ = nullptr, *immediateDock_ = nullptr;
  std::map<host::Window*, QMdiSubWindow*> subWindows_;
  std::map<host::Window*, QDockWidget*> toolDocks_;
  std::map<host::Window*, int> dockShowRequests_;  // the window's ShowRequests last drawn
  vbide::Subscription changed_;
  bool syncPending_ = false;
  bool lineNumbers_ = false;
  bool closing_ = false;
  bool placesRestored_ = false;
};

}  // namespace studio
