// The shared part of every control: registration, place, common properties, focus, clicks.
#include "runtime/forms/Control.h"

#include "runtime/Runtime.h"
#include "runtime/VbConstants.h"
#include "runtime/forms/ControlError.h"
#include "runtime/forms/ControlPeer.h"
#include "runtime/forms/FormBase.h"

namespace vb {

Control::Control(FormBase& owner, std::u16string name, int index, bool windowed)
    : owner_(owner), name_(std::move(name)), index_(index) {
  if (windowed) {
    auto& windows = owner_.GetRuntime().Windows();
    hwnd_ = windows.Create(u"", owner_.hWnd());
    windows.SetFocusHandler(hwnd_, [this](bool gained) { owner_.FocusChanged(this, gained); });
  }
  owner_.Register(this);
}

Control::~Control() {
  owner_.Unregister(this);
  if (hwnd_ != 0) owner_.GetRuntime().Windows().Destroy(hwnd_);
}

Runtime& Control::GetRuntime() const {
  return owner_.GetRuntime();
}

void Control::Dispatch(const std::function<void()>& action) const {
  owner_.Dispatch(action);
}

void Control::Notify(Property property) {
  if (peer_) peer_->Changed(property);
}

void Control::SetContainer(Control* container) {
  if (container && (!container->IsContainer() || &container->Parent() != &owner_)) {
    throw ctlerr::InvalidProcedureCall(name_ + u" cannot be placed in " + container->Name());
  }
  container_ = container;
  if (hwnd_ != 0) {
    Hwnd parent = owner_.hWnd();
    for (auto* c = container_; c; c = c->Container()) {
      if (c->hWnd() != 0) {
        parent = c->hWnd();
        break;
      }
    }
    GetRuntime().Windows().SetParent(hwnd_, parent);
  }
  Notify(Property::Container);
}

void Control::Move(float left, std::optional<float> top, std::optional<float> width,
                   std::optional<float> height) {
  float newWidth = width.value_or(width_);
  float newHeight = height.value_or(height_);
  if (newWidth < 0 || newHeight < 0) throw ctlerr::InvalidPropertyValue(name_);
  bool resized = newWidth != width_ || newHeight != height_;
  left_ = left;
  top_ = top.value_or(top_);
  width_ = newWidth;
  height_ = newHeight;
  Notify(Property::Move);
  if (resized) OnMoved();
}

void Control::SetVisible(bool value) {
  if (visible_ == value) return;
  visible_ = value;
  Notify(Property::Visible);
}

void Control::SetEnabled(bool value) {
  if (enabled_ == value) return;
  enabled_ = value;
  Notify(Property::Enabled);
}

bool Control::IsUsable() const {
  for (const Control* c = this; c; c = c->container_) {
    if (!c->visible_ || !c->enabled_) return false;
  }
  return true;
}

void Control::SetForeColor(std::uint32_t value) {
  foreColor_ = value;
  Notify(Property::ForeColor);
}

void Control::SetBackColor(std::uint32_t value) {
  backColor_ = value;
  Notify(Property::BackColor);
}

void Control::SetFont(vb::Font value) {
  font_ = std::move(value);
  Notify(Property::Font);
}

void Control::SetTabIndex(int value) {
  tabIndex_ = value;
  Notify(Property::TabIndex);
}

void Control::SetToolTipText(std::u16string value) {
  toolTipText_ = std::move(value);
  Notify(Property::ToolTipText);
}

void Control::SetTag(std::u16string value) {
  tag_ = std::move(value);
}

void Control::SetFocus() {
  // VB's error 5 for a control that cannot take the focus.
  if (hwnd_ == 0 || !IsUsable()) throw ctlerr::InvalidProcedureCall(name_ + u".SetFocus");
  GetRuntime().Windows().SetFocus(hwnd_);
}

bool Control::HasFocus() const {
  return hwnd_ != 0 && GetRuntime().Windows().GetFocus() == hwnd_;
}

void Control::UserClick() {
  Dispatch([this] {
    if (TakesFocusOnClick() && IsUsable() && !HasFocus()) SetFocus();
    Raise(MouseDown, vbLeftButton, 0, 0.0f, 0.0f);
    Raise(MouseUp, vbLeftButton, 0, 0.0f, 0.0f);
    OnUserClick();
  });
}

void Control::UserPress() {
  Dispatch([this] { OnUserClick(); });
}

void Control::UserDblClick() {
  UserClick();
  Dispatch([this] { Raise(DblClick); });
}

void Control::UserMouseDown(int button, int shift, float x, float y) {
  Dispatch([&] { Raise(MouseDown, button, shift, x, y); });
}

void Control::UserMouseUp(int button, int shift, float x, float y) {
  Dispatch([&] { Raise(MouseUp, button, shift, x, y); });
}

}  // namespace vb
