// Fuzz target: the whole load through the embedded IDE. The input is the one form of a fixed
// project; the IDE loads it, its members, procedures and controls are walked as the add-in walks
// them, and the form saved back through the IDE is the input, byte for byte.
#include <stdlib.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "FuzzCheck.h"
#include "host/Ide.h"
#include "host/files/FileIo.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"
#include "vbide/CodeModule.h"
#include "vbide/Member.h"
#include "vbide/VBComponent.h"
#include "vbide/VBForm.h"
#include "vbide/VBProject.h"

namespace {

namespace fs = std::filesystem;

// A folder of this process holding the project; made once, removed at exit.
const fs::path& Folder() {
  static const fs::path folder = [] {
    std::string pattern = (fs::temp_directory_path() / "qm-fuzz-ide-XXXXXX").string();
    fs::path made = ::mkdtemp(pattern.data());
    std::ofstream(made / "Fuzz.vbp", std::ios::binary)
        << "Type=Exe\r\nForm=Input.frm\r\nName=\"Fuzz\"\r\n";
    std::atexit([] { fs::remove_all(Folder()); });
    return made;
  }();
  return folder;
}

void Walk(const vbide::VBComponentPtr& component) {
  if (auto code = component->CodeModule()) {
    int lines = code->CountOfLines();
    for (int line = 1; line <= lines; ++line) {
      vbide::vbext_ProcKind kind{};
      code->ProcOfLine(line, kind);
      code->LineView(line);
    }
    for (auto& member : code->Members()->Items()) {
      member->Name();
      QM_FUZZ_REQUIRE(member->CodeLocation() >= 0 && member->CodeLocation() <= lines + 1,
                      "a member's line");
    }
  }
  if (auto designer = component->Designer()) {
    for (auto& control : designer->VBControls()->Items()) {
      control->PropertyList();
      control->Container();
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string input(reinterpret_cast<const char*>(data), size);
  std::ofstream(Folder() / "Input.frm", std::ios::binary | std::ios::trunc) << input;
  auto ide = host::Ide::Create({});
  ide->Open(Folder() / "Fuzz.vbp");
  for (auto& project : ide->VBProjects()->Items()) {
    for (auto& component : project->VBComponents()->Items()) {
      Walk(component);
      fs::path out = Folder() / "Output.frm";
      component->SaveAs(vb::FromUtf8(out.string()));
      QM_FUZZ_REQUIRE(host::files::ReadFileBytes(out) == input, "the form saved back");
    }
  }
  return 0;
}
