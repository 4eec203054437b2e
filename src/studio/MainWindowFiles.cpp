// studio::MainWindow: the File menu's work: open, save, save as, close, and asking before
// unsaved work is dropped.
#include <QCloseEvent>
#include <QFileDialog>
#include <QSettings>
#include <system_error>

#include "host/Project.h"
#include "runtime/Error.h"
#include "runtime/VbConstants.h"
#include "studio/MainWindow.h"
#include "studio/QtText.h"

namespace studio {

namespace {

// The studio remembers, per project file, the code page it was last opened in.
QString CodePageKey(const std::filesystem::path& file) {
  std::error_code error;
  std::filesystem::path absolute = std::filesystem::absolute(file, error);
  QByteArray path =
      QByteArray::fromStdString((error ? file : absolute).lexically_normal().string());
  return QStringLiteral("CodePages/") + QString::fromLatin1(path.toPercentEncoding());
}

}  // namespace

int MainWindow::RememberedCodePage(const std::filesystem::path& file) const {
  return places_->value(CodePageKey(file), desk_.ide->CodePage()).toInt();
}

void MainWindow::OpenProject(const std::filesystem::path& file, std::optional<int> codePage) {
  int page = codePage.value_or(RememberedCodePage(file));
  desk_.ide->SetCodePage(page);
  places_->setValue(CodePageKey(file), page);
  Guard([&] {
    auto problems = desk_.ide->Open(file);
    // What could be loaded is open; what could not is said, file and line, never dropped quietly.
    std::u16string text;
    for (auto& problem : problems)
      text += vb::FromUtf8(host::files::FormatProblem(problem)) + u"\n";
    if (!text.empty())
      desk_.runtime->MsgBox(u"Some parts could not be loaded:\n\n" + text, vb::vbExclamation);
  });
  Sync();
}

bool MainWindow::SaveProjectAs(const vbide::VBProjectPtr& project) {
  QString suggested =
      ToQt(project->FileName().empty() ? project->Name() + u".vbp" : project->FileName());
  QString file = QFileDialog::getSaveFileName(this, tr("Save Project As"), suggested,
                                              tr("Visual Basic projects (*.vbp)"));
  if (file.isEmpty()) return false;
  Guard([&] { project->SaveAs(FromQt(file)); });
  Sync();
  return !project->IsDirty();
}

bool MainWindow::SaveProjects() {
  for (auto& project : desk_.ide->VBProjects()->Items()) {
    // A project never saved has no place yet: the user names one.
    if (project->FileName().empty() && !SaveProjectAs(project)) return false;
  }
  bool saved = true;
  Guard([&] {
    saved = false;
    desk_.ide->SaveAll();
    saved = true;
  });
  Sync();
  return saved;
}

bool MainWindow::ConfirmClose(const std::vector<vbide::VBProjectPtr>& projects) {
  std::u16string names;
  for (auto& project : projects)
    if (project->IsDirty()) names += u"\n" + project->Name();
  if (names.empty()) return true;
  int answer = desk_.runtime->MsgBox(u"Save changes to the following projects?\n" + names,
                                     vb::vbYesNoCancel | vb::vbExclamation, u"Quillmark Studio");
  if (answer == vb::vbCancel) return false;
  if (answer == vb::vbNo) return true;
  return SaveProjects();
}

void MainWindow::CloseActiveProject() {
  auto project = std::dynamic_pointer_cast<host::Project>(desk_.ide->ActiveVBProject());
  if (!project || !ConfirmClose({project})) return;
  Guard([&] { desk_.ide->RemoveProject(project); });
  Sync();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!ConfirmClose(desk_.ide->VBProjects()->Items())) {
    event->ignore();
    return;
  }
  places_->setValue("MainWindow/geometry", saveGeometry());
  places_->setValue("MainWindow/state", saveState());
  places_->sync();
  // The add-ins go while their windows still stand, as the IDE disconnects them at exit.
  if (onBeforeWindowsGo) onBeforeWindowsGo();
  closing_ = true;
  event->accept();
}

}  // namespace studio
