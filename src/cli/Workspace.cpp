// cli::Workspace.
#include "cli/Workspace.h"

#include "cli/Args.h"
#include "host/ComponentKinds.h"
#include "runtime/CaseFold.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "runtime/forms/ComboBox.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace cli {

namespace {

// A file or code page the composition cannot open is the user's mistake on the command line.
template <class Open>
auto AsUsageError(Open&& open) {
  try {
    return open();
  } catch (const composition::OpenError& e) {
    throw UsageError(e.what());
  }
}

}  // namespace

Workspace OpenWorkspace(const std::string& file, int codePage, std::ostream& err) {
  AsUsageError([&] {
    composition::CheckCodePage(codePage);
    return 0;
  });
  Workspace ws;
  ws.file = file;
  ws.ide = host::Ide::Create(
      {.clipboard = nullptr, .classes = nullptr, .codePage = codePage, .reportAddInError = {}});
  ws.problems = AsUsageError([&] { return composition::OpenProjectFile(*ws.ide, ws.file, err); });
  return ws;
}

int OpenInDesk(composition::Desk& desk, const std::string& file, std::ostream& err) {
  return AsUsageError([&] { return composition::OpenProjectFile(*desk.ide, file, err); });
}

std::string KindName(int type) {
  bool known = type >= vbide::vbext_ct_StdModule && type <= vbide::vbext_ct_ActiveXDesigner;
  if (!known) return "Unknown";
  return vb::ToUtf8(host::KindOf(static_cast<vbide::vbext_ComponentType>(type)).name);
}

std::string ProjectKindName(int type) {
  switch (type) {
    case vbide::vbext_pt_ActiveXExe:
      return "ActiveX EXE";
    case vbide::vbext_pt_ActiveXDll:
      return "ActiveX DLL";
    case vbide::vbext_pt_ActiveXControl:
      return "ActiveX Control";
    default:
      return "Standard EXE";
  }
}

vbide::VBComponentPtr FindComponent(composition::Desk& desk, const std::string& path) {
  auto slash = path.find('/');
  if (slash == std::string::npos)
    throw UsageError("--component needs PROJECT/MODULE, not '" + path + "'");
  std::u16string project = vb::FromUtf8(path.substr(0, slash));
  std::u16string module = vb::FromUtf8(path.substr(slash + 1));
  for (auto& p : desk.ide->VBProjects()->Items()) {
    if (!vb::EqualsText(p->Name(), project)) continue;
    for (auto& c : p->VBComponents()->Items())
      if (vb::EqualsText(c->Name(), module)) return c;
  }
  throw UsageError("--component " + path + ": no such project and module");
}

void PickEntry(vb::FormBase& dialog, vb::ComboBox& box, const std::string& option,
               const std::u16string& text) {
  for (int i = 0; i < box.ListCount(); ++i) {
    if (!vb::EqualsText(box.List(i), text)) continue;
    vb::UserActions(dialog).Pick(box.Name(), i);
    return;
  }
  std::string choices;
  for (int i = 0; i < box.ListCount(); ++i) choices += (i ? ", " : "") + vb::ToUtf8(box.List(i));
  throw UsageError("--" + option + " '" + vb::ToUtf8(text) + "' is not one of: " + choices);
}

}  // namespace cli
