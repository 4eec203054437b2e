// cli::Workspace.
#include "cli/Workspace.h"

#include "cli/Args.h"
#include "runtime/CodePage.h"
#include "runtime/Utf.h"

namespace cli {

Workspace OpenWorkspace(const std::string& file, int codePage, std::ostream& err) {
  if (!vb::CodePage::Find(codePage))
    throw UsageError("unsupported code page " + std::to_string(codePage));
  std::filesystem::path path(file);
  std::string ext = path.extension().string();
  for (auto& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (ext != ".vbg" && ext != ".vbp") throw UsageError(file + ": not a .vbg or .vbp file");
  if (!std::filesystem::is_regular_file(path)) throw UsageError(file + ": no such file");

  Workspace ws;
  ws.file = path;
  ws.ide = host::Ide::Create(
      {.clipboard = nullptr, .classes = nullptr, .codePage = codePage, .reportAddInError = {}});
  for (auto& problem : ws.ide->Open(path)) {
    err << host::files::FormatProblem(problem) << "\n";
    ++ws.problems;
  }
  return ws;
}

std::string KindName(int type) {
  switch (type) {
    case 1:
      return "Module";
    case 2:
      return "Class";
    case 3:
      return "UserForm";
    case 4:
      return "Resource";
    case 5:
      return "Form";
    case 6:
      return "MDIForm";
    case 7:
      return "PropertyPage";
    case 8:
      return "UserControl";
    case 9:
      return "UserDocument";
    case 10:
      return "RelatedDocument";
    case 11:
      return "Designer";
    default:
      return "Unknown";
  }
}

std::string ProjectKindName(int type) {
  switch (type) {
    case 1:
      return "ActiveX EXE";
    case 2:
      return "ActiveX DLL";
    case 3:
      return "ActiveX Control";
    default:
      return "Standard EXE";
  }
}

}  // namespace cli
