// The two one-shot window commands: Close All Windows and Clear Debug Window. Neither traps
// errors: a failing IDE call ends the command and the IDE reports it.
#pragma once

#include "runtime/Runtime.h"
#include "vbide/VBE.h"

namespace quillmark {

// Closes every code and designer window, without asking and without saving.
void CloseAllWindows(vbide::VBE& vbe);

// Empties every visible Immediate window with Ctrl+End, Shift+Ctrl+Home, Delete; a hidden one is
// left alone (the command never opens it). The focus goes back to the main window afterwards.
void ClearDebugWindow(vbide::VBE& vbe, vb::Runtime& runtime);

}  // namespace quillmark
