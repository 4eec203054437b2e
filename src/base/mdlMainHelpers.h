// The main module's routines that several forms and tool windows share: the type list, form
// placement and list-column widths in the settings, full-row selection, Alt-key forwarding.
#pragma once

#include <string_view>

#include "base/Fields.h"
#include "base/mdlMain.h"
#include "runtime/WindowSystem.h"

namespace vb {
class Form;
class ListView;
class Runtime;
class UserDocument;
}  // namespace vb

namespace quillmark {

// gTypeList: the intrinsic types, then (with `refresh` and an active project) the names of its
// classes, forms, MDI forms, forms-2 designers and user documents, in collection order.
void RefreshTypeList(mdlMain& main, bool refresh);

// Placement in the section named after the form: Left and Top, with size also Width, Height and
// WindowState. A form not in its normal state keeps its saved position untouched.
void SaveFormPosition(vb::Runtime& runtime, vb::Form& form, bool withSize);
// With nothing saved (Left and Top both below 1) a normal form is centred on the screen.
void LoadFormPosition(vb::Runtime& runtime, vb::Form& form, bool withSize);

// Column widths under `prefix` + the 1-based column number. Loading: default 1440, more than
// 15000 loads as 1440. Saving: only a width more than 5 twips from the stored one is written,
// and it is written less 285 twips — not added back on loading. Intended; keep it.
void LoadColumnWidths(vb::Runtime& runtime, std::u16string_view section, vb::ListView& listView,
                      std::u16string_view prefix);
void SaveColumnWidths(vb::Runtime& runtime, std::u16string_view section, vb::ListView& listView,
                      std::u16string_view prefix);

// Sets the list view's full-row-select extended style (read, set bit 32, write back).
void SetFullRowSelect(vb::Runtime& runtime, vb::Hwnd listView);

// Alt+letter pressed in a tool window goes to the IDE's main frame so its menus stay reachable:
// the frame gets the focus and a system-key-down message, and keyCode becomes 0. Only while the
// IDE has an active window to take the accelerator. Errors are ignored.
void PassAltKeyToIDE(mdlMain& main, vb::UserDocument& document, int& keyCode, int shift);

// The outermost ancestor of `hwnd` (GetParent until it gives 0).
vb::Hwnd TopLevelParent(vb::Runtime& runtime, vb::Hwnd hwnd);

}  // namespace quillmark
