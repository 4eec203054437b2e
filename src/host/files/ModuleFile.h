// host::files::ModuleFile: a module file (.bas .cls .frm .ctl .pag .dob .dsr) split into its raw
// hidden header and its visible code, read and written back byte for byte.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/files/CodeLines.h"
#include "host/files/Problem.h"
#include "runtime/CodePage.h"

namespace host::files {

enum class ModuleKind {
  Standard,      // .bas
  Class,         // .cls
  Form,          // .frm
  MdiForm,       // .frm whose root block is VB.MDIForm
  UserControl,   // .ctl
  PropertyPage,  // .pag
  UserDocument,  // .dob
  Designer       // .dsr
};

// True for the kinds whose header holds a designer block (everything but Standard and Class).
bool HasDesigner(ModuleKind kind);

// One Begin block of a designer header: the designer itself (the root) or one of its controls.
struct DesignerControl {
  std::u16string className;  // "VB.CommandButton", "MSComctlLib.ListView", "{GUID}" for designers
  std::u16string name;
  int index = -1;  // the Index property; -1 outside a control array
  // In file order, names and values trimmed, values as written ("-1  'True", "\"OK\"",
  // "\"Form1.frx\":0000"). A BeginProperty block is one entry: its name and the rest of its
  // BeginProperty line (usually the GUID), its contents left in the raw header.
  std::vector<std::pair<std::u16string, std::u16string>> properties;
  // Bottom of the z-order first; menus (VB.Menu) after all other controls, submenus nested.
  std::vector<DesignerControl> children;
  // 0-based indexes into ModuleFile::header of the block's Begin and End lines. A block cut off
  // by the end of the header ends at the header's last line.
  int beginLine = 0;
  int endLine = 0;

  bool IsMenu() const;

  // Nesting has no limit a file could exceed: the tree is taken apart without recursion, and
  // copies are not made (a copy would recurse as deep as the nesting).
  DesignerControl() = default;
  DesignerControl(DesignerControl&&) noexcept = default;
  DesignerControl& operator=(DesignerControl&& other) noexcept;
  DesignerControl(const DesignerControl&) = delete;
  DesignerControl& operator=(const DesignerControl&) = delete;
  ~DesignerControl();
};

struct ModuleFile {
  ModuleKind kind = ModuleKind::Standard;
  // Every hidden line before the code, as the file's bytes: the VERSION line, Object lines, the
  // Begin/BEGIN block and the module attributes. Code line c is file line header.size() + c plus
  // the member-attribute lines above it.
  std::vector<RawLine> header;
  std::u16string name;                      // Attribute VB_Name; empty when the file has none
  std::optional<DesignerControl> designer;  // the root Begin block, for the designer kinds
  CodeLines code;                           // visible lines, member attributes attached

  // The 0-based index in `header` of the first module-attribute line; header.size() when none.
  // The header edits keep it right.
  std::size_t attributesStart = 0;
};

// Reads a module. Never throws for bad content: what is odd is reported in `problems` and kept,
// so WriteModule gives the same bytes back. `kind` is what the project file says; a Form whose
// root block is VB.MDIForm comes back as MdiForm (and an MdiForm whose root is VB.Form as Form).
ModuleFile ReadModule(std::string_view bytes, ModuleKind kind, const vb::CodePage& codePage,
                      const std::string& fileForProblems, Problems& problems);

// The file's bytes: the raw header, then each code line encoded with its own terminator and its
// member-attribute lines under it. A character the code page cannot write comes out as '?' and
// is counted in `unmappable` when given, so a save can refuse to change the user's text.
std::string WriteModule(const ModuleFile& module, const vb::CodePage& codePage,
                        std::size_t* unmappable = nullptr);

// Re-reads `designer` from the header (after an edit of the header lines).
void ParseDesigner(ModuleFile& module, const vb::CodePage& codePage);

}  // namespace host::files
