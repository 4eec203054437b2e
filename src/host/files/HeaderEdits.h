// host::files header edits: renaming the component or a control, removing a control and bringing
// one to the front, written into the raw header so that every other byte stays as it was.
#pragma once

#include <string_view>

#include "host/files/ModuleFile.h"
#include "runtime/CodePage.h"

namespace host::files {

// Each edit changes only the lines it names, then re-reads `module.designer`. `beginLine` is a
// control's DesignerControl::beginLine. A name that is empty, holds a blank, a quote or a line
// break, or has a character the code page cannot write raises vb::Error 5; so does a
// `beginLine` that is not the Begin line of a control (the root is not a control).

// The VB_Name attribute and the root Begin line. A module without a VB_Name line gets one, at
// the start of its module attributes.
void RenameComponent(ModuleFile& module, std::u16string_view newName, const vb::CodePage& codePage);

// The control's Begin line only; the elements of a control array are renamed one by one.
void RenameControl(ModuleFile& module, int beginLine, std::u16string_view newName,
                   const vb::CodePage& codePage);

// Removes the control's block with everything nested in it.
void RemoveControl(ModuleFile& module, int beginLine, const vb::CodePage& codePage);

// Adds an empty control block on top of the form's z-order (before its menus) with the usual
// place and size, and returns the 0-based header line of its Begin line.
int AddControl(ModuleFile& module, std::u16string_view className, std::u16string_view name,
               const vb::CodePage& codePage);

// Moves the control's block after its last sibling that is not a menu: the top of the z-order.
// Menus have no z-order; for a menu, and for a control already on top, nothing changes.
void BringControlToFront(ModuleFile& module, int beginLine, const vb::CodePage& codePage);

}  // namespace host::files
