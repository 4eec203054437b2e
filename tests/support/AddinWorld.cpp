// qmtest::AddinWorld.
#include "support/AddinWorld.h"

#include "QuillmarkResources.h"
#include "addin/Registration.h"
#include "host/Addins.h"
#include "host/RuntimeBridge.h"
#include "runtime/AppInfo.h"
#include "runtime/Resources.h"
#include "vbide/AddIn.h"

namespace qmtest {

AddinWorld::AddinWorld(const IdeBuilder& projects) {
  runtime = vb::Runtime::CreateHeadless();
  settings = std::make_shared<vb::MemorySettingsStore>();
  files = std::make_shared<vb::MemoryFileSystem>();
  shell = std::make_shared<vb::HeadlessShell>(*files);
  auto resources = std::make_shared<vb::Resources>();
  quillmark::RegisterQuillmarkResources(*resources);
  runtime->SetSettings(settings);
  runtime->SetFiles(files);
  runtime->SetShell(shell);
  runtime->SetResources(resources);
  runtime->SetApp(std::make_shared<vb::AppInfo>(u"/opt/quillmark", u"Quillmark Tools", 1, 2, 3));
  classes = std::make_shared<vbide::ClassRegistry>();
  quillmark::RegisterQuillmarkTools(*classes, runtime);
  // Build the projects on an IDE wired to this runtime.
  auto wired = host::CreateIdeFor(runtime, classes);
  ide = projects.BuildOn(wired);
  ide->RegisterAddIn(std::u16string(quillmark::kProgId));
}

AddinWorld::~AddinWorld() {
  // Disconnect first, while the IDE and the runtime still stand.
  if (Addin()) Disconnect();
}

void AddinWorld::ConnectAtStartup(bool thenStartupComplete) {
  ide->ConnectAddIn(quillmark::kProgId, vbide::ext_cm_Startup);
  if (thenStartupComplete) ide->StartupComplete();
}

void AddinWorld::ConnectLater() {
  ide->ConnectAddIn(quillmark::kProgId, vbide::ext_cm_AfterStartup);
}

void AddinWorld::Disconnect(vbide::ext_DisconnectMode mode) {
  ide->DisconnectAddIn(quillmark::kProgId, mode);
}

quillmark::Connect* AddinWorld::Addin() const {
  auto addIn = ide->AddinList()->Find(quillmark::kProgId);
  return addIn && addIn->Instance() ? static_cast<quillmark::Connect*>(addIn->Instance().get())
                                    : nullptr;
}

std::u16string AddinWorld::Setting(std::u16string_view section, std::u16string_view key) const {
  return settings->GetSetting(u"Quillmark Tools", section, key, u"");
}

void AddinWorld::Store(std::u16string_view section, std::u16string_view key,
                       std::u16string_view value) {
  settings->SaveSetting(u"Quillmark Tools", section, key, value);
}

}  // namespace qmtest
