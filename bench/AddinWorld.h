// The world the add-in's benchmarks run in: a headless runtime with the add-in's pictures,
// settings and files in memory, and an embedded IDE that knows the add-in, which is disconnected
// when the world goes.
#pragma once

#include <memory>

#include "QuillmarkResources.h"
#include "addin/Connect.h"
#include "addin/Registration.h"
#include "host/Addins.h"
#include "host/Ide.h"
#include "host/RuntimeBridge.h"
#include "runtime/AppInfo.h"
#include "runtime/FileSystem.h"
#include "runtime/Resources.h"
#include "runtime/Runtime.h"
#include "runtime/SettingsStore.h"
#include "runtime/Shell.h"

namespace bench {

struct AddinWorld {
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
  std::shared_ptr<vbide::ClassRegistry> classes = std::make_shared<vbide::ClassRegistry>();
  std::shared_ptr<host::Ide> ide;

  AddinWorld() {
    auto resources = std::make_shared<vb::Resources>();
    quillmark::RegisterQuillmarkResources(*resources);
    runtime->SetResources(resources);
    runtime->SetSettings(std::make_shared<vb::MemorySettingsStore>());
    auto files = std::make_shared<vb::MemoryFileSystem>();
    runtime->SetFiles(files);
    runtime->SetShell(std::make_shared<vb::HeadlessShell>(*files));
    runtime->SetApp(std::make_shared<vb::AppInfo>(u"/opt/quillmark", u"Quillmark Tools", 1, 0, 0));
    quillmark::RegisterQuillmarkTools(*classes, runtime);
    ide = host::CreateIdeFor(runtime, classes);
    ide->RegisterAddIn(std::u16string(quillmark::kProgId));
  }
  ~AddinWorld() { ide->DisconnectAddIn(quillmark::kProgId, vbide::ext_dm_HostShutdown); }
  AddinWorld(const AddinWorld&) = delete;
  AddinWorld& operator=(const AddinWorld&) = delete;

  // The connected add-in.
  quillmark::Connect& Addin() {
    return *static_cast<quillmark::Connect*>(
        ide->AddinList()->Find(quillmark::kProgId)->Instance().get());
  }
  quillmark::mdlMain& Main() { return Addin().Main(); }
};

}  // namespace bench
