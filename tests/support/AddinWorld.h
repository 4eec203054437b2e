// qmtest::AddinWorld: a connected add-in in a world of its own — an embedded IDE built from
// inline VB text, a headless runtime with a virtual clock and scripted message boxes, settings
// in memory, files in memory and a shell that starts nothing.
#pragma once

#include <memory>

#include "addin/Connect.h"
#include "host/Ide.h"
#include "runtime/FileSystem.h"
#include "runtime/Runtime.h"
#include "runtime/SettingsStore.h"
#include "runtime/Shell.h"
#include "support/IdeBuilder.h"

namespace qmtest {

class AddinWorld {
 public:
  // The IDE is built from `projects` (its Options are replaced by the world's).
  explicit AddinWorld(const IdeBuilder& projects = IdeBuilder());
  ~AddinWorld();

  // Connects as the IDE would: at its start-up (then OnStartupComplete follows when asked) or
  // into a running IDE from the Add-In Manager.
  void ConnectAtStartup(bool thenStartupComplete = true);
  void ConnectLater();
  void Disconnect(vbide::ext_DisconnectMode mode = vbide::ext_dm_HostShutdown);

  // The connected add-in (null before connecting and after disconnecting).
  quillmark::Connect* Addin() const;
  quillmark::mdlMain& Main() const { return Addin()->Main(); }

  std::shared_ptr<vb::Runtime> runtime;
  std::shared_ptr<vb::MemorySettingsStore> settings;
  std::shared_ptr<vb::MemoryFileSystem> files;
  std::shared_ptr<vb::HeadlessShell> shell;
  std::shared_ptr<vbide::ClassRegistry> classes;
  std::shared_ptr<host::Ide> ide;

  // Reads a stored setting of "Quillmark Tools" ("" when absent).
  std::u16string Setting(std::u16string_view section, std::u16string_view key) const;
  void Store(std::u16string_view section, std::u16string_view key, std::u16string_view value);
};

}  // namespace qmtest
