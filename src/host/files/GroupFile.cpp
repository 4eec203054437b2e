// host::files::GroupFile.
#include "host/files/GroupFile.h"

#include "host/files/AsciiText.h"
#include "host/files/Concat.h"
#include "host/files/LineScanner.h"
#include "runtime/Utf.h"

namespace host::files {

GroupFile ReadGroup(std::string_view bytes, const vb::CodePage& codePage, const std::string& file,
                    Problems& problems) {
  GroupFile group;
  group.lines = SplitRawLines(bytes);
  auto report = [&](std::size_t line, std::string message, bool warning) {
    problems.push_back({file, static_cast<int>(line + 1), std::move(message), warning});
  };
  if (group.lines.empty() || !StartsWithWord(TrimBlanks(group.lines[0].bytes), "VBGROUP"))
    problems.push_back({file, group.lines.empty() ? 0 : 1,
                        "not a project group: the first line is not \"VBGROUP 5.0\"", false});
  for (std::size_t i = 0; i < group.lines.size(); ++i) {
    std::string_view line = group.lines[i].bytes;
    if (i == 0 && StartsWithWord(TrimBlanks(line), "VBGROUP")) continue;
    if (TrimBlanks(line).empty()) continue;
    std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
      report(i, Concat({"not a Key=Value line: \"", vb::ToUtf8(codePage.Decode(line)), "\""}),
             false);
      continue;
    }
    std::string_view key = line.substr(0, equals);
    bool startup = EqualsAsciiNoCase(key, "StartupProject");
    if (!startup && !EqualsAsciiNoCase(key, "Project")) {
      report(i, Concat({"unknown key \"", vb::ToUtf8(codePage.Decode(key)), "\": kept as written"}),
             true);
      continue;
    }
    group.projects.push_back(
        {codePage.Decode(line.substr(equals + 1)), startup, static_cast<int>(i)});
  }
  return group;
}

std::string WriteGroup(const GroupFile& group) {
  std::string out;
  AppendRawLines(group.lines, out, false);
  return out;
}

}  // namespace host::files
