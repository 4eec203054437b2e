// composition::Composition: the runtime, the IDE and the connected add-in as a front end puts
// them together (the command line headless; the studio with its own toolkit on top), and opening
// a project file in that IDE.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>

#include "addin/Connect.h"
#include "host/Ide.h"
#include "runtime/IniSettingsStore.h"
#include "runtime/ProcessRunner.h"
#include "runtime/Runtime.h"
#include "vbide/ClassRegistry.h"

namespace composition {

struct Desk {
  std::shared_ptr<vb::Runtime> runtime;
  std::shared_ptr<vb::IniSettingsStore> settings;
  std::shared_ptr<vb::PosixProcessRunner> processes;
  std::shared_ptr<vbide::ClassRegistry> classes;
  std::shared_ptr<host::Ide> ide;
  std::filesystem::path configDir;

  ~Desk();
  // The add-in once connected (null before and after).
  quillmark::Connect* Addin() const;
  // Connects the add-in as the IDE does at start-up (OnConnection, then OnStartupComplete).
  void ConnectAtStartup();
  void Disconnect();
};

// The folder of per-user files: `configDir` when given, else $QUILLMARK_HOME, else
// ${XDG_CONFIG_HOME:-$HOME/.config}/quillmark.
std::filesystem::path ConfigFolder(const std::optional<std::string>& configDir);

// A headless runtime (message boxes with only an OK button are answered and recorded) with the
// real services: settings in `configFolder`, files on disk, the desktop's shell, the add-in's
// pictures and the build's version; an IDE wired to it, knowing the add-in.
std::unique_ptr<Desk> MakeDesk(const std::filesystem::path& configFolder, int codePage);

// A file a front end was asked to open that is no project: not a .vbg or .vbp, or not there;
// or a code page the IDE cannot read with.
struct OpenError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Throws OpenError for a code page no table decodes.
void CheckCodePage(int codePage);

// Opens FILE (a .vbg or .vbp) in `ide`, writing each problem to `err` as "file:line: message";
// returns how many there were. What could be loaded stays open. Throws OpenError for a file
// that is not a .vbg or .vbp, or that does not exist.
int OpenProjectFile(host::Ide& ide, const std::filesystem::path& file, std::ostream& err);

}  // namespace composition
