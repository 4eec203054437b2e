// Reading a freedesktop.org .desktop file: the command line its Exec key starts.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vb {

// The Exec key of the [Desktop Entry] group as separate arguments, quoting and escapes undone.
// Field codes that stand for files or URLs (%f %F %u %U, and the deprecated %d %D %n %N) mark
// where the files go: `fileSlot` is the index in `arguments` at which they are inserted (the
// end when the line has none). %i %c %k %v %m are dropped; "%%" is a percent sign.
struct DesktopCommand {
  std::string program;                 // the first word, as written (may need a PATH search)
  std::vector<std::string> arguments;  // the words after it, field codes removed
  std::size_t fileSlot = 0;

  // The argument vector for opening `files`.
  std::vector<std::string> WithFiles(const std::vector<std::string>& files) const;
};

// Nothing when the text has no [Desktop Entry] group, no Exec key in it, or an Exec value whose
// quoting is broken.
std::optional<DesktopCommand> ParseDesktopEntry(std::string_view text);

// Splits an Exec value into words (the second level of the format's escaping: double quotes,
// and backslash before " ` $ \ inside them). Nothing when a quote is left open.
std::optional<std::vector<std::string>> SplitExecLine(std::string_view exec);

}  // namespace vb
