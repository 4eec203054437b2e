// cli::Workspace: an embedded IDE opened on the file the user named, with its problems printed.
#pragma once

#include <filesystem>
#include <memory>
#include <ostream>
#include <string>

#include "host/Ide.h"

namespace cli {

struct Workspace {
  std::shared_ptr<host::Ide> ide;
  std::filesystem::path file;
  int problems = 0;  // problems printed while loading
};

// Opens FILE (a .vbg or .vbp) with the code page given. Problems go to `err` as "file:line:
// message". Throws UsageError for a file that does not exist or is not a .vbg/.vbp, and for an
// unsupported code page.
Workspace OpenWorkspace(const std::string& file, int codePage, std::ostream& err);

// The kind of a component as the Project window names it ("Module", "Class", "Form" ...).
std::string KindName(int componentType);
std::string ProjectKindName(int projectType);

}  // namespace cli
