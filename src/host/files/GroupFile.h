// host::files::GroupFile: a .vbg project group kept as its raw lines, with its project entries.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/files/CodeLines.h"
#include "host/files/Problem.h"
#include "runtime/CodePage.h"

namespace host::files {

struct GroupFile {
  struct Entry {
    std::u16string path;   // as written: relative to the group's folder, backslashes
    bool startup = false;  // written as StartupProject=, at its own place in the list
    int line = 0;          // 0-based index into `lines`
  };
  std::vector<RawLine> lines;   // every line as the file's bytes
  std::vector<Entry> projects;  // in file order
};

// Reads a group file. A first line other than "VBGROUP 5.0", lines that are not Key=Value and
// unknown keys are reported with their 1-based line and kept.
GroupFile ReadGroup(std::string_view bytes, const vb::CodePage& codePage, const std::string& file,
                    Problems& problems);
std::string WriteGroup(const GroupFile& group);

}  // namespace host::files
