// host::ComponentKind: what the IDE knows of each type of component, in one table.
#pragma once

#include <string>
#include <string_view>

#include "host/files/ModuleFile.h"
#include "host/files/ProjectFile.h"
#include "vbide/Enums.h"

namespace host {

struct ComponentKind {
  vbide::vbext_ComponentType type;
  std::u16string_view name;     // as the Project window and `quillmark info` name it
  std::u16string_view stem;     // of a new component's name ("Module" for Module1)
  std::string_view extension;   // of its file
  std::u16string_view caption;  // the word its window's title ends with ("Code", "Form" ...)
  files::ItemKind item;         // its line in the project file
  files::ModuleKind module;     // how its file is read (the resource file and related
                                // documents have none; they read as forms and are never read)
};

// The kind of a component type; an unknown type is a standard module.
const ComponentKind& KindOf(vbide::vbext_ComponentType type);
// The component type a module file of this kind is read as.
vbide::vbext_ComponentType ComponentTypeOf(files::ModuleKind kind);
// The word a code window's title ends with.
inline constexpr std::u16string_view kCodeWindowWord = u"Code";
// "Project1 - Module1 (Code)": the title of a component's code or designer window.
std::u16string WindowCaption(std::u16string_view project, std::u16string_view component,
                             std::u16string_view word);

}  // namespace host
