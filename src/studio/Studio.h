// studio::Studio: the studio as a program: the runtime, the IDE and the add-ins put together with
// the Qt toolkit, the main window, the add-in list, start-up and exit.
#pragma once

#include <QImage>
#include <QString>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "composition/Composition.h"
#include "studio/AddInList.h"
#include "studio/peers/QtToolkit.h"

namespace studio {

class MainWindow;

// Names the application without a display name: the platform would append a display name to
// every window title ("Ledger - Microsoft Visual Basic [design] — Quillmark Studio").
void NameApplication();

class Studio {
 public:
  // Settings, vbaddin.ini and the docks' places live in `configFolder`.
  // A test keeps the virtual clock and answers message boxes by script through `toolkit`.
  // `codePage`: the code page of the project opened at start (else the one it was last opened
  // in, else 1252).
  explicit Studio(const std::filesystem::path& configFolder, QtToolkitOptions toolkit = {},
                  std::optional<int> codePage = {});
  ~Studio();
  Studio(const Studio&) = delete;
  Studio& operator=(const Studio&) = delete;

  // Opens `project` (when not empty), connects the add-ins listed to load at start-up, shows the
  // main window and tells them start-up is complete.
  void Start(const std::filesystem::path& project);
  // At exit: the add-ins disconnect (host shutdown) while the windows still stand. Idempotent.
  void Shutdown();

  // The Add-In Manager's answer for one add-in: connects (after start-up) or disconnects (the
  // user closed it), and records whether it loads at start-up.
  void ApplyAddInChoice(const std::string& progId, bool loaded, bool loadOnStartup);
  bool IsLoaded(const std::string& progId) const;
  void ShowAddInManager();

  // Lets posted work and the toolkit's pending events finish, then pictures the main window as
  // a user sees it, with the floating toolbars and dialogs over it.
  QImage Screenshot();
  bool WriteScreenshot(const QString& file);
  // Opens the add-in's window `name` (frmSearch, frmReplace, docResults, docListView,
  // frmNewMember, frmOptions, frmAutoSave, frmAbout) the way its user would, pictures the main
  // window with it open, and closes it again if it is a modal dialog. False: no such window, or
  // the picture could not be written.
  bool WriteScreenshotShowing(const QString& file, const QString& name);
  // Types `text` into the add-in toolbar's search box and presses Enter, through the widgets.
  // False when the toolbar has no search box.
  bool SearchThroughToolbar(const QString& text);
  // Chooses File > Exit.
  void ExitThroughMenu();
  void Settle();

  composition::Desk& Desk() { return *desk_; }
  MainWindow& Window() { return *window_; }
  AddInList& AddIns() { return addIns_; }

 private:
  bool OpenAddInWindow(const QString& name);

  std::unique_ptr<composition::Desk> desk_;
  std::unique_ptr<QtToolkit> toolkit_;  // after the desk it draws, gone before it
  AddInList addIns_;
  std::unique_ptr<MainWindow> window_;
  std::optional<int> codePage_;
  bool shutDown_ = false;
};

}  // namespace studio
