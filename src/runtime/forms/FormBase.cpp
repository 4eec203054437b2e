// Controls, key routing, popup menus and the error guard shared by forms and documents.
#include "runtime/forms/FormBase.h"

#include <algorithm>
#include <utility>

#include "runtime/CaseFold.h"
#include "runtime/Runtime.h"
#include "runtime/VbConstants.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/Control.h"
#include "runtime/forms/ControlPeer.h"

namespace vb {
namespace {

// The character a key types, as the keyboard would (US layout); 0 for keys that type nothing.
char16_t CharacterOf(int keyCode, int shift) {
  if (shift & (vbCtrlMask | vbAltMask)) return 0;
  bool shifted = (shift & vbShiftMask) != 0;
  if (keyCode >= vbKeyA && keyCode <= vbKeyA + 25) {
    return static_cast<char16_t>(shifted ? keyCode : keyCode + 32);
  }
  if (keyCode >= '0' && keyCode <= '9' && !shifted) return static_cast<char16_t>(keyCode);
  switch (keyCode) {
    case vbKeyBack:
    case vbKeyTab:
    case vbKeyReturn:
    case vbKeyEscape:
    case vbKeySpace:
      return static_cast<char16_t>(keyCode);
    default:
      return 0;
  }
}

}  // namespace

FormBase::FormBase(vb::Runtime& runtime, std::u16string name)
    : runtime_(runtime), name_(std::move(name)) {
  hwnd_ = runtime_.Windows().Create(name_);
  runtime_.Register(this);
}

FormBase::~FormBase() {
  runtime_.Unregister(this);
  runtime_.Windows().Destroy(hwnd_);
}

void FormBase::SetWindowTitle(std::u16string title) {
  runtime_.Windows().SetTitle(hwnd_, std::move(title));
}

void FormBase::NotifyPeer(Property property) {
  if (peer_) peer_->Changed(property);
}

Control* FormBase::FindControl(std::u16string_view name, int index) const {
  for (auto* c : controls_) {
    if (c->Index() == index && EqualsText(c->Name(), name)) return c;
  }
  return nullptr;
}

void FormBase::Register(Control* control) {
  controls_.push_back(control);
  if (peer_) peer_->ControlAdded(*control);
}

void FormBase::Unregister(Control* control) {
  std::erase(controls_, control);
  if (activeControl_ == control) activeControl_ = nullptr;
  if (peer_) peer_->ControlRemoved(*control);
}

void FormBase::FocusChanged(Control* control, bool gained) {
  if (gained) {
    activeControl_ = control;
    Raise(control->GotFocus);
  } else {
    Raise(control->LostFocus);
  }
}

void FormBase::RaiseInitialize() {
  if (std::exchange(initialized_, true)) return;
  // The object and its controls are complete here: a toolkit attaches its peers now.
  if (runtime_.onObjectReady) runtime_.onObjectReady(*this);
  OnInitialize();
}

void FormBase::RaiseTerminate() {
  if (!initialized_ || std::exchange(terminated_, true)) return;
  // Runs from a deleter, where nothing may be thrown: errors are reported.
  runtime_.Dispatch([this] { OnTerminate(); });
}

void FormBase::NotifyLoadedChanged() {
  auto controls = controls_;
  for (auto* c : controls) c->OwnerLoadedChanged();
}

void FormBase::Dispatch(const std::function<void()>& action) const {
  runtime_.Dispatch(action);
}

bool FormBase::PressDefaultOrCancel(int keyCode) {
  if (keyCode == vbKeyReturn) {
    if (auto* focused = dynamic_cast<CommandButton*>(activeControl_)) {
      focused->UserPress();
      return true;
    }
  }
  for (auto* c : controls_) {
    auto* button = dynamic_cast<CommandButton*>(c);
    if (!button || !button->IsUsable()) continue;
    if ((keyCode == vbKeyReturn && button->Default()) ||
        (keyCode == vbKeyEscape && button->Cancel())) {
      button->UserPress();
      return true;
    }
  }
  return false;
}

void FormBase::UserKey(int keyCode, int shift, char16_t typed) {
  Dispatch([&] {
    if (shift == 0 && (keyCode == vbKeyReturn || keyCode == vbKeyEscape) &&
        PressDefaultOrCancel(keyCode)) {
      return;
    }
    Control* target = activeControl_;
    bool formSees = keyPreview_ || target == nullptr;
    int code = keyCode;
    if (formSees) OnKeyDown(code, shift);
    if (code != 0 && target && IsLoaded()) Raise(target->KeyDown, code, shift);
    // As in VB, zeroing the key code in KeyDown does not stop the character: only KeyPress can.
    int ascii = CharacterOf(keyCode, shift);
    if (ascii != 0 && typed != 0) ascii = typed;
    if (ascii != 0 && IsLoaded()) {
      if (formSees) OnKeyPress(ascii);
      if (ascii != 0 && target && activeControl_ == target) {
        Raise(target->KeyPress, ascii);
        if (ascii != 0) target->ApplyCharacter(static_cast<char16_t>(ascii));
      }
    }
    code = keyCode;
    if (!IsLoaded()) return;
    if (formSees) OnKeyUp(code, shift);
    if (code != 0 && target && activeControl_ == target) Raise(target->KeyUp, code, shift);
  });
}

void FormBase::PopupMenu(Menu& menu, float x, float y) {
  if (peer_ && peer_->PopupMenu(menu, x, y)) return;
  popped_.push_back(&menu);
}

}  // namespace vb
