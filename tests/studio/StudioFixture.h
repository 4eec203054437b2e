// A started studio on Qt's offscreen platform, in a config folder of its own, on a copy of the
// bundled sample group, with message boxes answered by the test's script.
#pragma once

#include <gtest/gtest.h>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>

#include <memory>

#include "host/Component.h"
#include "host/Project.h"
#include "studio/MainWindow.h"
#include "studio/Studio.h"
#include "support/TempFolder.h"

namespace studiotest {

// Qt allows one application object per process; every studio test shares it.
inline QApplication& App() {
  static int argc = 1;
  static char name[] = "studio_tests";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM",
          qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
  static QApplication app(argc, argv);
  return app;
}

class StudioTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // One application object per process at a time: made here unless one already stands.
    if (!QApplication::instance()) app_ = std::make_unique<QApplication>(argc_, argv_);
    std::filesystem::copy(std::filesystem::path(QM_SOURCE_DIR) / "samples",
                          folder.Path() / "samples", std::filesystem::copy_options::recursive);
  }
  // Starts the studio on the copied sample (or `project`); boxes are headless: only OK boxes
  // answer themselves, any other box must be scripted.
  studio::Studio& Start(std::filesystem::path project = {}) {
    studioPtr = std::make_unique<studio::Studio>(
        folder.Path() / "config",
        studio::QtToolkitOptions{.realClock = false, .showMessageBoxes = false});
    studioPtr->Start(project.empty() ? folder.Path() / "samples" / "Ledger.vbg" : project);
    return *studioPtr;
  }
  studio::MainWindow& Window() { return studioPtr->Window(); }
  host::Ide& Ide() { return *studioPtr->Desk().ide; }
  // The component of that name in whichever project holds it; null when none does.
  std::shared_ptr<host::Component> Named(std::u16string_view name) {
    for (auto& project : Ide().ProjectList()->List())
      if (auto found = project->ComponentList()->Find(name)) return found;
    return nullptr;
  }

  // The drawn menu with this caption, searched from the menu bar down; null when not drawn.
  static QMenu* FindMenu(const QList<QAction*>& actions, const QString& caption) {
    for (QAction* action : actions) {
      if (!action->menu()) continue;
      if (action->text() == caption) return action->menu();
      if (QMenu* inner = FindMenu(action->menu()->actions(), caption)) return inner;
    }
    return nullptr;
  }
  QMenu* Menu(const QString& caption) { return FindMenu(Window().menuBar()->actions(), caption); }
  static QAction* Item(QMenu* menu, const QString& caption) {
    if (!menu) return nullptr;
    for (QAction* action : menu->actions())
      if (action->text() == caption) return action;
    return nullptr;
  }
  void Settle() { studioPtr->Settle(); }

  void TearDown() override { studioPtr.reset(); }

  int argc_ = 1;
  char name_[13] = "studio_tests";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> app_;  // declared first among the Qt objects: destroyed last
  qmtest::TempFolder folder;
  std::unique_ptr<studio::Studio> studioPtr;
};

}  // namespace studiotest
