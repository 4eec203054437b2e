// The one operation of the New Member dialog that another subsystem calls: the Component
// Viewer's New submenu opens it for a member type. Declared here, below the subsystems, and
// defined with frmNewMember, so the caller needs no header of the New Member subsystem.
#pragma once

namespace quillmark {

class frmNewMember;

// frmNewMember.Add: shows the dialog on the tab of the IDE's member type `kind`.
void AddNewMember(frmNewMember& dialog, int kind);

}  // namespace quillmark
