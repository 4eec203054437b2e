// host::files::ProjectFile: a .vbp project file kept as its raw lines, with the items and the
// settings the object model needs read from them; edits replace single lines.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/files/CodeLines.h"
#include "host/files/ModuleFile.h"
#include "host/files/Problem.h"
#include "runtime/CodePage.h"

namespace host::files {

enum class ItemKind {
  Reference,     // Reference=*\G{...}#ver#lcid#path#description, or *\A<path>.vbp
  Object,        // Object={...}#ver#flags; file.ocx, or *\A<path>.vbp
  Form,          // Form=path (forms and MDI forms)
  Module,        // Module=Name; path
  Class,         // Class=Name; path
  UserControl,   // UserControl=path
  PropertyPage,  // PropertyPage=path
  UserDocument,  // UserDocument=path
  Designer,      // Designer=path
  RelatedDoc,    // RelatedDoc=path
  ResFile        // ResFile32="path"
};

// The main-section settings the IDE writes, "Type" first, in the order it writes them.
std::span<const std::string_view> ProjectSettingKeys();

// The key that writes the kind: "Form", "ResFile32", ...
std::string_view ItemKey(ItemKind kind);
// The module kind a component item is read as; nullopt for references, related documents and
// the resource file.
std::optional<ModuleKind> ModuleKindOf(ItemKind kind);

// One item line. `path` is as written (backslashes, relative to the project's folder);
// `name` is the module name of Module and Class lines, the description of a type-library
// reference, the library part ("{GUID}#2.0#0") of an Object line, and empty otherwise.
struct ProjectItem {
  ItemKind kind = ItemKind::Form;
  std::u16string name;
  std::u16string path;
  int line = 0;  // 0-based index into ProjectFile::lines
};

struct ProjectFile {
  std::vector<RawLine> lines;      // every line as the file's bytes
  std::vector<ProjectItem> items;  // in line order: the item block, plus ResFile32 at its place
  std::u16string type;             // Exe, OleDll, OleExe, Control
  std::u16string name;             // Name="..." without the quotes
};

// Reads a project file. Lines that are not Key=Value and unknown keys of the main section are
// reported (with their 1-based line) and kept; named sections ([...]) are kept untouched.
ProjectFile ReadProject(std::string_view bytes, const vb::CodePage& codePage,
                        const std::string& file, Problems& problems);
// The lines as they are. Edits encode their text when they make a line, so the code page is not
// needed here; it is taken so that every writer has WriteModule's shape.
std::string WriteProject(const ProjectFile& project, const vb::CodePage& codePage);

// The parts of a type-library reference. The path may itself contain '#', so the library id,
// version and lcid are taken from the left and the description from the right. A project
// reference (*\A) has only a path.
struct ReferenceParts {
  bool project = false;
  std::u16string libid;  // "*\G{GUID}"
  std::u16string version;
  std::u16string lcid;
  std::u16string path;
  std::u16string description;
};
std::optional<ReferenceParts> ParseReference(std::u16string_view value);

// Edits. Each rewrites or inserts whole lines, leaves every other line as it was, and re-reads
// `items`, `type` and `name`. Names and paths that cannot be written (a quote or line break, a
// character the code page lacks) raise vb::Error 5, as does an item index out of range.

// Rewrites the Name= line (adds one at the end of the main section when there is none).
void SetProjectName(ProjectFile& project, std::u16string_view name, const vb::CodePage& codePage);
// "Module=New; path" / "Class=New; path"; other kinds have no name in the project file (error 5).
void SetItemName(ProjectFile& project, std::size_t item, std::u16string_view name,
                 const vb::CodePage& codePage);
// Appends a line at the end of the item block and returns the new item's index. `path` is the
// whole value for references and objects; `name` is used by Module and Class only.
std::size_t AddItem(ProjectFile& project, ItemKind kind, std::u16string_view name,
                    std::u16string_view path, const vb::CodePage& codePage);
void RemoveItem(ProjectFile& project, std::size_t item, const vb::CodePage& codePage);

// Re-reads `items`, `type` and `name` from `lines` (the edits call it; problems are not reported
// again).
void ReindexProject(ProjectFile& project, const vb::CodePage& codePage);

}  // namespace host::files
