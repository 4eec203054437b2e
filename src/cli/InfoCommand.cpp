// quillmark info: the projects and components of a group or project, as the Project window
// would list them, with their sizes.
#include <iomanip>
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/Workspace.h"
#include "runtime/Utf.h"
#include "vbide/CodeModule.h"
#include "vbide/Member.h"
#include "vbide/VBComponent.h"
#include "vbide/VBForm.h"
#include "vbide/VBProject.h"

namespace cli {

int InfoCommand(const std::vector<std::string>& argv, Streams io) {
  Args args(argv, {}, {"codepage"});
  if (args.Positional().size() != 1) throw UsageError("info takes one FILE");
  Workspace ws = OpenWorkspace(args.Positional()[0], args.IntOption("codepage", 1252), io.err);

  for (auto& project : ws.ide->VBProjects()->Items()) {
    io.out << vb::ToUtf8(project->Name()) << " (" << ProjectKindName(project->Type()) << ")  "
           << vb::ToUtf8(project->FileName()) << "\n";
    io.out << "  " << std::left << std::setw(24) << "Component" << std::setw(16) << "Kind"
           << std::right << std::setw(8) << "Lines" << std::setw(9) << "Members" << std::setw(10)
           << "Controls"
           << "\n";
    for (auto& component : project->VBComponents()->Items()) {
      auto module = component->CodeModule();
      auto designer = component->Designer();
      io.out << "  " << std::left << std::setw(24) << vb::ToUtf8(component->Name()) << std::setw(16)
             << KindName(component->Type()) << std::right << std::setw(8)
             << (module ? module->CountOfLines() : 0) << std::setw(9)
             << (module ? module->Members()->Count() : 0) << std::setw(10)
             << (designer ? designer->VBControls()->Count() : 0) << "\n";
    }
  }
  return ws.problems ? 1 : 0;
}

}  // namespace cli
