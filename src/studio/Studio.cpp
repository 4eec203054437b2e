// studio::Studio.
#include "studio/Studio.h"

#include <QApplication>
#include <QMessageBox>

#include "addin/Connect.h"
#include "host/Addins.h"
#include "runtime/Utf.h"
#include "studio/AddInManager.h"
#include "studio/MainWindow.h"
#include "studio/ScreenComposite.h"

namespace studio {

Studio::Studio(const std::filesystem::path& configFolder, QtToolkitOptions toolkit)
    : desk_(composition::MakeDesk(configFolder, 1252)),
      toolkit_(AttachQtToolkit(*desk_->runtime, toolkit)),
      addIns_(configFolder / "vbaddin.ini") {
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
  Shutdown();
  window_.reset();
  toolkit_.reset();
}

void Studio::Start(const std::filesystem::path& project) {
  if (!project.empty()) window_->OpenProject(project);
  for (auto& entry : addIns_.Entries())
    if (entry.loadOnStartup)
      desk_->ide->ConnectAddIn(vb::FromUtf8(entry.progId), vbide::ext_cm_Startup);
  window_->show();
  Settle();
  window_->FitDocksToContent();
  desk_->ide->StartupComplete();
  Settle();
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

}  // namespace studio
