// studio::Studio.
#include "studio/Studio.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTimer>
#include <QToolBar>

#include "addin/Connect.h"
#include "host/Addins.h"
#include "host/Ide.h"
#include "host/Project.h"
#include "runtime/Utf.h"
#include "runtime/forms/Control.h"
#include "runtime/forms/Form.h"
#include "studio/AddInManager.h"
#include "studio/MainWindow.h"
#include "studio/QtText.h"
#include "studio/ScreenComposite.h"
#include "studio/peers/UserActionGuard.h"
#include "vbide/VBComponent.h"
#include "vbide/VBForm.h"

namespace studio {

void NameApplication() {
  QApplication::setApplicationName(QStringLiteral("quillmark-studio"));
}

Studio::Studio(const std::filesystem::path& configFolder, QtToolkitOptions toolkit,
               std::optional<int> codePage)
    : desk_(composition::MakeDesk(configFolder, codePage.value_or(1252))),
      toolkit_(AttachQtToolkit(*desk_->runtime, toolkit)),
      addIns_(configFolder / "vbaddin.ini"),
      codePage_(codePage) {
  // First run: the add-in is listed to load at start-up, as its setup would have done.
  addIns_.WriteDefaultIfMissing(vb::ToUtf8(quillmark::kProgId));
  addIns_.Load();
  for (auto& problem : addIns_.Problems()) desk_->runtime->MsgBox(vb::FromUtf8(problem), 48);
  for (auto& entry : addIns_.Entries()) desk_->ide->RegisterAddIn(vb::FromUtf8(entry.progId));
  window_ = std::make_unique<MainWindow>(*desk_, configFolder / "studio-places.ini");
  window_->onAddInManager = [this] { ShowAddInManager(); };
  window_->onBeforeWindowsGo = [this] { Shutdown(); };
}

Studio::~Studio() {
  // The add-in disconnects and unloads its forms while everything stands; then the peers go
  // (the documents' widgets still sit in the main window's docks), then the widgets.
  Shutdown();
  toolkit_.reset();
  window_.reset();
}

void Studio::Start(const std::filesystem::path& project) {
  if (!project.empty()) window_->OpenProject(project, codePage_);
  for (auto& entry : addIns_.Entries())
    if (entry.loadOnStartup)
      desk_->ide->ConnectAddIn(vb::FromUtf8(entry.progId), vbide::ext_cm_Startup);
  window_->show();
  Settle();
  window_->FitDocksToContent();
  desk_->ide->StartupComplete();
  Settle();
  // What the settings store found damaged while the add-in started, shown once.
  for (auto& problem : desk_->settings->TakeProblems())
    desk_->runtime->MsgBox(vb::FromUtf8(problem), 48);
}

void Studio::Shutdown() {
  if (shutDown_) return;
  shutDown_ = true;
  desk_->ide->Shutdown();
}

void Studio::ApplyAddInChoice(const std::string& progId, bool loaded, bool loadOnStartup) {
  std::u16string id = vb::FromUtf8(progId);
  if (loaded && !IsLoaded(progId)) desk_->ide->ConnectAddIn(id, vbide::ext_cm_AfterStartup);
  if (!loaded && IsLoaded(progId)) desk_->ide->DisconnectAddIn(id, vbide::ext_dm_UserClosed);
  addIns_.SetLoadOnStartup(progId, loadOnStartup);
  try {
    addIns_.Save();
  } catch (const std::exception& e) {
    desk_->runtime->MsgBox(vb::FromUtf8(e.what()), 48);
  }
  window_->Sync();
}

bool Studio::IsLoaded(const std::string& progId) const {
  auto addIn = desk_->ide->AddinList()->Find(vb::FromUtf8(progId));
  return addIn && addIn->Connect();
}

void Studio::ShowAddInManager() {
  AddInManager dialog(*this, window_.get());
  dialog.exec();
}

void Studio::Settle() {
  // Posted work may post more (a tool window shown after start-up); a few rounds settle it.
  for (int round = 0; round < 4; ++round) {
    desk_->runtime->DoEvents();
    QApplication::processEvents();
  }
  window_->Sync();
}

QImage Studio::Screenshot() {
  Settle();
  return ComposeScreen(*window_);
}

bool Studio::WriteScreenshot(const QString& file) {
  return Screenshot().save(file);
}

namespace {

QAction* ActionNamed(const QList<QAction*>& actions, const QString& caption) {
  for (QAction* action : actions) {
    if (action->text() == caption) return action;
    if (action->menu())
      if (QAction* inner = ActionNamed(action->menu()->actions(), caption)) return inner;
  }
  return nullptr;
}

void Type(QWidget& widget, int key, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
  QApplication::sendEvent(&widget, &press);
  QApplication::sendEvent(&widget, &release);
}

// The first form whose designer holds a control array, else the first with any control.
vbide::VBComponentPtr FormToPicture(host::Ide& ide) {
  vbide::VBComponentPtr withControls;
  for (auto& project : ide.ProjectList()->List()) {
    for (auto& component : project->VBComponents()->Items()) {
      auto designer = component->Designer();
      if (!designer) continue;
      for (auto& control : designer->VBControls()->Items()) {
        if (!withControls) withControls = component;
        if (control->Index() >= 0) return component;
      }
    }
  }
  return withControls;
}

}  // namespace

bool Studio::SearchThroughToolbar(const QString& text) {
  Settle();
  // The add-in's toolbar is the one with a search box.
  QComboBox* box = nullptr;
  for (QToolBar* toolBar : window_->findChildren<QToolBar*>())
    if (!box) box = toolBar->findChild<QComboBox*>();
  if (!box || !box->lineEdit()) return false;
  QLineEdit& edit = *box->lineEdit();
  edit.setFocus();
  edit.selectAll();
  for (QChar c : text) Type(edit, c.unicode() < 128 ? c.toUpper().unicode() : 0, QString(c));
  Type(edit, Qt::Key_Return);
  Settle();
  return true;
}

void Studio::ExitThroughMenu() {
  if (QAction* exit = ActionNamed(window_->menuBar()->actions(), QStringLiteral("E&xit")))
    exit->trigger();
}

bool Studio::OpenAddInWindow(const QString& name) {
  auto* connect = desk_->Addin();
  if (!connect) return false;
  auto click = [this](const QString& caption) {
    QAction* action = ActionNamed(window_->menuBar()->actions(), caption);
    for (QToolBar* toolBar : window_->findChildren<QToolBar*>())
      if (!action) action = ActionNamed(toolBar->actions(), caption);
    if (action) action->trigger();
    return action != nullptr;
  };
  if (name == u"docResults") return connect->ShowResults(), true;
  if (name == u"docListView") {
    // Pictured as a user sees it at work: the designer of a form with controls (one with a
    // control array when there is one) open and selected in the Project window.
    if (auto form = FormToPicture(*desk_->ide)) {
      form->Activate();
      desk_->ide->SelectComponent(form);
    }
    return click(QStringLiteral("Component Viewer"));
  }
  if (name == u"frmSearch") {
    bool show = true;
    connect->ShowSearch(show);
    return true;
  }
  if (name == u"frmAbout") return click(QStringLiteral("&About Quillmark Tools"));
  if (name == u"frmOptions") {
    // The IDE's Tools menu has an "&Options..." of its own, before the add-in's popup.
    QAction* popup = ActionNamed(window_->menuBar()->actions(), QStringLiteral("&Quillmark Tools"));
    QAction* options = popup && popup->menu()
                           ? ActionNamed(popup->menu()->actions(), QStringLiteral("&Options..."))
                           : nullptr;
    if (options) options->trigger();
    return options != nullptr;
  }
  if (name == u"frmNewMember") return click(QStringLiteral("New Member"));
  if (name == u"frmReplace") {
    // Replace works on the rows of a search: the user searches, then presses Replace.
    if (!SearchThroughToolbar(QStringLiteral("Dim"))) return false;
    auto* results = desk_->runtime->FindLoaded(u"docResults");
    auto* button = results ? results->FindControl(u"cmdToolbar", 2) : nullptr;
    if (!button) return false;
    button->UserClick();
    return true;
  }
  // A form the add-in keeps loaded but hidden (the Auto-Save count-down) is shown.
  if (auto* form = dynamic_cast<vb::Form*>(desk_->runtime->FindLoaded(FromQt(name)))) {
    form->Show(vb::vbModeless);
    return true;
  }
  return false;
}

bool Studio::WriteScreenshotShowing(const QString& file, const QString& name) {
  std::optional<bool> written;
  // A modal dialog runs its own loop (perhaps after a search the opening took): it is pictured
  // from inside that loop once it is up, then cancelled.
  QTimer watch;
  watch.setInterval(0);
  QObject::connect(&watch, &QTimer::timeout, [&] {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || written) return;
    watch.stop();
    written = WriteScreenshot(file);
    modal->close();
  });
  watch.start();
  bool opened = false;
  GuardUserAction(*desk_->runtime, [&] { opened = OpenAddInWindow(name); });
  watch.stop();
  if (!opened) return false;
  if (!written) written = WriteScreenshot(file);
  return *written;
}

}  // namespace studio
