// The key codes of Windows' virtual keys for the keys a Qt widget reports.
#include "studio/peers/KeyMap.h"

#include <array>
#include <utility>

#include "runtime/VbConstants.h"

namespace studio {
namespace {

constexpr std::array<std::pair<int, int>, 20> kNamedKeys{{
    {Qt::Key_Backspace, vb::vbKeyBack},
    {Qt::Key_Tab, vb::vbKeyTab},
    {Qt::Key_Backtab, vb::vbKeyTab},
    {Qt::Key_Return, vb::vbKeyReturn},
    {Qt::Key_Enter, vb::vbKeyReturn},
    {Qt::Key_Escape, vb::vbKeyEscape},
    {Qt::Key_Space, vb::vbKeySpace},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, vb::vbKeyEnd},
    {Qt::Key_Home, vb::vbKeyHome},
    {Qt::Key_Left, vb::vbKeyLeft},
    {Qt::Key_Up, vb::vbKeyUp},
    {Qt::Key_Right, vb::vbKeyRight},
    {Qt::Key_Down, vb::vbKeyDown},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, vb::vbKeyDelete},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
}};

int CodeOf(int qtKey) {
  if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return vb::vbKeyA + (qtKey - Qt::Key_A);
  if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return '0' + (qtKey - Qt::Key_0);
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F16) return vb::vbKeyF1 + (qtKey - Qt::Key_F1);
  for (auto [qt, vbCode] : kNamedKeys) {
    if (qt == qtKey) return vbCode;
  }
  return 0;
}

}  // namespace

VbKey VbKeyOf(int qtKey, Qt::KeyboardModifiers modifiers) {
  VbKey key{CodeOf(qtKey), 0};
  if (modifiers & Qt::ShiftModifier) key.shift |= vb::vbShiftMask;
  if (modifiers & Qt::ControlModifier) key.shift |= vb::vbCtrlMask;
  if (modifiers & Qt::AltModifier) key.shift |= vb::vbAltMask;
  // Shift+Tab travels backwards; Qt names it Backtab, Windows Tab with Shift.
  if (qtKey == Qt::Key_Backtab) key.shift |= vb::vbShiftMask;
  return key;
}

bool EngineTypes(const VbKey& key) {
  if (key.shift & (vb::vbCtrlMask | vb::vbAltMask)) return false;
  bool shifted = (key.shift & vb::vbShiftMask) != 0;
  if (key.keyCode >= vb::vbKeyA && key.keyCode < vb::vbKeyA + 26) return true;
  if (key.keyCode >= '0' && key.keyCode <= '9') return !shifted;
  return key.keyCode == vb::vbKeySpace || key.keyCode == vb::vbKeyBack;
}

}  // namespace studio
