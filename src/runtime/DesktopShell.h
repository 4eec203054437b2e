// vb::DesktopShell: FindExecutable and ShellExecute on a freedesktop.org desktop (xdg-mime).
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "runtime/DesktopEntry.h"
#include "runtime/ProcessRunner.h"
#include "runtime/Shell.h"

namespace vb {

using Environment = std::map<std::string, std::string>;

// This process's environment, for the composition root to hand to a DesktopShell.
Environment ProcessEnvironment();

// The program for a file is the desktop's default handler of the file's type: `xdg-mime query
// default <type>` names a .desktop file, looked up under $XDG_DATA_HOME/applications (default
// ~/.local/share) and then each of $XDG_DATA_DIRS/applications (default /usr/local/share:
// /usr/share); its Exec line names the program. The type of .htm and .html files is text/html;
// other files ask `xdg-mime query filetype`. Programs run with their arguments as separate
// words: no shell ever sees a URL. The environment is given, not read, so tests control it.
class DesktopShell : public Shell {
 public:
  DesktopShell(Environment environment, ProcessRunner& runner)
      : environment_(std::move(environment)), runner_(runner) {}

  std::intptr_t FindExecutable(std::u16string_view file, std::u16string_view directory,
                               std::u16string& result) override;
  std::intptr_t ShellExecute(std::intptr_t hwnd, std::u16string_view verb, std::u16string_view file,
                             std::u16string_view parameters, std::u16string_view directory,
                             int showCmd) override;

  // The .desktop file with this id, searched as the desktop does ("a-b.desktop" may also live
  // at a/b.desktop); nothing when no folder has it.
  std::optional<std::filesystem::path> FindDesktopFile(const std::string& id) const;

 private:
  std::string Variable(const std::string& name, const std::string& fallback) const;
  std::optional<std::string> MimeTypeOf(const std::filesystem::path& file);
  std::optional<std::filesystem::path> ResolveProgram(const std::string& program) const;
  std::intptr_t Start(const std::vector<std::string>& argv);

  Environment environment_;
  ProcessRunner& runner_;
  // The command of each program FindExecutable has named, so that ShellExecute can start the
  // program with the arguments its desktop entry gives (a browser's "--new-window", ...).
  std::map<std::filesystem::path, DesktopCommand> commands_;
};

}  // namespace vb
