// studio::VbKeyOf: a Qt key press as the form engine's key code and shift state.
#pragma once

#include <Qt>

namespace studio {

struct VbKey {
  int keyCode = 0;  // 0: a key the engine has no code for (the widget handles it alone)
  int shift = 0;    // vbShiftMask | vbCtrlMask | vbAltMask
};

VbKey VbKeyOf(int qtKey, Qt::KeyboardModifiers modifiers);

// Whether the engine itself types this key into a text box (so the widget must not as well):
// the keys the engine turns into a character, without Ctrl or Alt.
bool EngineTypes(const VbKey& key);

}  // namespace studio
