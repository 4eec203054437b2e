// host::Ide: the embedded VB6 IDE. It implements the VBE root object and, for its front ends
// (the studio, the command line, the tests), the things a user does: open and save projects,
// select and activate components, type keys, click menus, connect add-ins.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/CommandBars.h"
#include "host/EventHub.h"
#include "host/Window.h"
#include "host/files/Problem.h"
#include "host/files/ProjectLoader.h"
#include "runtime/AtomicWriter.h"
#include "runtime/Clipboard.h"
#include "runtime/WindowSystem.h"
#include "vbide/ClassRegistry.h"
#include "vbide/VBE.h"

namespace host {

class Project;
class Projects;
class Component;
class CodePane;
class CodePanes;
class Addins;

class Ide final : public vbide::VBE, public std::enable_shared_from_this<Ide> {
 public:
  struct Options {
    std::shared_ptr<vb::Clipboard> clipboard;             // shared with the form engine
    std::shared_ptr<const vbide::ClassRegistry> classes;  // add-ins and tool-window documents
    int codePage = 1252;                                  // for files opened from now on
    // When given, the IDE's windows are windows of this window system: FindWindow finds the
    // main window by its title, and a tool window is the parent of its document.
    vb::WindowSystem* windowSystem = nullptr;
    // How the IDE reports an error that escaped an add-in (a message box in the studio).
    std::function<void(const std::u16string&)> reportAddInError;
  };
  static std::shared_ptr<Ide> Create(Options options);
  ~Ide() override;

  // ---- VBE
  vbide::VBProjectsPtr VBProjects() override;
  vbide::VBProjectPtr ActiveVBProject() override;
  void SetActiveVBProject(const vbide::VBProjectPtr& project) override;
  vbide::VBComponentPtr SelectedVBComponent() override;
  vbide::CodePanePtr ActiveCodePane() override;
  void SetActiveCodePane(const vbide::CodePanePtr& pane) override;
  vbide::CodePanesPtr CodePanes() override;
  vbide::WindowsPtr Windows() override;
  vbide::WindowPtr MainWindow() override;
  vbide::WindowPtr ActiveWindow() override;
  vbide::CommandBarsPtr CommandBars() override;
  vbide::EventsPtr Events() override;
  vbide::AddinsPtr Addins() override;
  std::u16string Version() override { return u"6.00"; }

  // ---- Files
  // Opens a .vbg or .vbp and adds its projects (ItemAdded fires for each). What can load, loads;
  // the problems found are returned (and nothing is dropped on save). A file that cannot be read
  // at all raises vb::Error naming it.
  files::Problems Open(const std::filesystem::path& file);
  // Creates a new, never-saved project.
  std::shared_ptr<Project> NewProject(vbide::vbext_ProjectType type, std::u16string name);
  void RemoveProject(std::shared_ptr<Project> project);
  // The group file last opened (empty when a single project was opened) and its path.
  const std::filesystem::path& GroupPath() const { return groupPath_; }
  // Saves every project (and its changed components) to where it came from.
  void SaveAll();
  // Writes the group file of the open projects to `path` (the bytes it was read with when nothing
  // changed).
  void SaveGroupAs(const std::filesystem::path& path);
  int CodePage() const { return options_.codePage; }
  // The writer every save of this IDE goes through (tests make it fail at a chosen step).
  vb::AtomicWriter& Writer() { return writer_; }
  void SetCodePage(int codePage) { options_.codePage = codePage; }

  // ---- What the user does
  // Selects a component in the Project window (fires ItemSelected); null clears the selection.
  void SelectComponent(const vbide::VBComponentPtr& component);
  std::shared_ptr<ImmediateWindow> Immediate() const { return immediate_; }
  std::shared_ptr<Window> ProjectWindow() const { return projectWindow_; }
  std::shared_ptr<Window> PropertiesWindow() const { return propertiesWindow_; }
  std::shared_ptr<Window> Main() const { return mainWindow_; }
  // Delivers keystrokes to the window that has the focus (only the Immediate window takes them).
  void SendKeyStrokes(const std::vector<KeyStroke>& keys);
  std::shared_ptr<host::CommandBars> Bars() const { return commandBars_; }
  const std::shared_ptr<vb::Clipboard>& Clipboard() const { return options_.clipboard; }

  // ---- Add-ins
  // The add-ins the IDE knows (its vbaddin.ini list). Connecting creates the class by name.
  void RegisterAddIn(std::u16string progId);
  // Connects an add-in: ext_cm_Startup while the IDE starts, ext_cm_AfterStartup from the
  // Add-In Manager. Errors escaping the add-in are returned as text, as the IDE reports them.
  void ConnectAddIn(std::u16string_view progId, vbide::ext_ConnectMode mode);
  void DisconnectAddIn(std::u16string_view progId, vbide::ext_DisconnectMode mode);
  // After start-up: OnStartupComplete for every add-in connected with ext_cm_Startup.
  void StartupComplete();
  // At exit: every connected add-in is disconnected (host shutdown), before the windows go.
  void Shutdown();

  // ---- For the object model's own classes
  EventHub& Hub() { return *hub_; }
  // A handle for a new IDE window (a child of the main window unless it is the main window).
  std::intptr_t NewHandle(std::u16string_view title, bool topLevel = false);
  void WindowRetitled(std::intptr_t hwnd, std::u16string_view title);
  void WindowGone(std::intptr_t hwnd);
  vb::WindowSystem* WindowSystem() const { return options_.windowSystem; }
  void WindowFocused(Window* window);
  void WindowHidden(Window* window);     // it loses the focus
  void WindowDestroyed(Window* window);  // closed for good (code and designer windows)
  void PaneShown(const std::shared_ptr<CodePane>& pane);
  void ComponentRemoved(Component* component);
  const std::shared_ptr<host::Projects>& ProjectList() const { return projects_; }
  const std::shared_ptr<host::Windows>& WindowList() const { return windows_; }
  const std::shared_ptr<host::Addins>& AddinList() const { return addins_; }

  // Tells a front end that something it draws changed (projects, components, windows).
  vbide::Event<> changed;

 private:
  explicit Ide(Options options);
  void Init();
  std::shared_ptr<Project> AddLoadedProject(files::LoadedProject loaded,
                                            const vb::CodePage& codePage,
                                            files::Problems& problems);

  Options options_;
  vb::AtomicWriter writer_;
  std::shared_ptr<EventHub> hub_;
  std::shared_ptr<host::Projects> projects_;
  std::shared_ptr<host::Windows> windows_;
  std::shared_ptr<host::CodePanes> panes_;
  std::shared_ptr<host::CommandBars> commandBars_;
  std::shared_ptr<host::Addins> addins_;
  std::shared_ptr<Window> mainWindow_, projectWindow_, propertiesWindow_;
  std::shared_ptr<ImmediateWindow> immediate_;
  std::weak_ptr<Project> activeProject_;
  std::weak_ptr<Component> selected_;
  std::weak_ptr<CodePane> activePane_;
  Window* focused_ = nullptr;
  std::intptr_t nextHandle_ = 0x1000;
  std::filesystem::path groupPath_;
  std::string groupBytesRead_;
};

}  // namespace host
