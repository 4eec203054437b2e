// cli::Workspace: an embedded IDE opened on the file the user named, with its problems printed.
#pragma once

#include <filesystem>
#include <memory>
#include <ostream>
#include <string>

#include "composition/Composition.h"
#include "host/Ide.h"
#include "vbide/Fwd.h"

namespace vb {
class ComboBox;
class FormBase;
}  // namespace vb

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

// Opens FILE in the desk's IDE, printing its problems as "file:line: message"; returns how many.
// Throws UsageError for a file that is not a .vbg/.vbp that exists.
int OpenInDesk(composition::Desk& desk, const std::string& file, std::ostream& err);

// The component `path` names as PROJECT/MODULE, both ignoring case. Throws UsageError for a
// path without "/" and for one that names no component.
vbide::VBComponentPtr FindComponent(composition::Desk& desk, const std::string& path);

// Picks, as a user would, the entry of a dialog's list box equal to `text` (ignoring case, as VB
// names do). Throws UsageError naming --`option` and the entries when there is none.
void PickEntry(vb::FormBase& dialog, vb::ComboBox& box, const std::string& option,
               const std::u16string& text);

// The kind of a component as the Project window names it ("Module", "Class", "Form" ...).
std::string KindName(int componentType);
std::string ProjectKindName(int projectType);

}  // namespace cli
