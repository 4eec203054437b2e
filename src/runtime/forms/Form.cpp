// Form: the load/show/hide/unload life cycle and the form's place on the screen.
#include "runtime/forms/Form.h"

#include <algorithm>
#include <array>
#include <utility>

#include "runtime/Runtime.h"
#include "runtime/forms/Control.h"
#include "runtime/forms/ControlError.h"
#include "runtime/forms/ControlPeer.h"

namespace vb {
namespace {

struct Frame {
  float width;
  float height;
};

// Border and title bar, in twips, by BorderStyle (none, fixed single, sizable, fixed dialog,
// fixed tool window, sizable tool window): a new sizable 4800 x 3600 form has a 4680 x 3090
// inner area, as in VB on the classic Windows metrics.
constexpr std::array<Frame, 6> kFrames{
    {{0, 0}, {90, 465}, {120, 510}, {90, 465}, {90, 345}, {120, 390}}};

}  // namespace

Form::Form(vb::Runtime& runtime, std::u16string name) : FormBase(runtime, name), caption_(name) {
  GetRuntime().Windows().SetPlaceHandler(
      hWnd(), [this](int x, int y, int cx, int cy, int flags) { Place(x, y, cx, cy, flags); });
}

Form::~Form() = default;

void Form::SetCaption(std::u16string value) {
  caption_ = std::move(value);
  SetWindowTitle(caption_);
  NotifyPeer(Property::Caption);
}

float Form::Left() const {
  return windowState_ == vbMaximized ? 0 : left_;
}
float Form::Top() const {
  return windowState_ == vbMaximized ? 0 : top_;
}
float Form::Width() const {
  return windowState_ == vbMaximized ? GetRuntime().GetScreen().Width() : width_;
}
float Form::Height() const {
  return windowState_ == vbMaximized ? GetRuntime().GetScreen().Height() : height_;
}

float Form::ScaleWidth() const {
  if (windowState_ == vbMinimized) return 0;
  return std::max(0.0f, Width() - kFrames[borderStyle_].width);
}

float Form::ScaleHeight() const {
  if (windowState_ == vbMinimized) return 0;
  return std::max(0.0f, Height() - kFrames[borderStyle_].height);
}

void Form::Move(float left, std::optional<float> top, std::optional<float> width,
                std::optional<float> height) {
  float newWidth = width.value_or(width_);
  float newHeight = height.value_or(height_);
  if (newWidth < 0 || newHeight < 0) throw ctlerr::InvalidPropertyValue(Name() + u".Move");
  bool resized = newWidth != width_ || newHeight != height_;
  left_ = left;
  top_ = top.value_or(top_);
  width_ = newWidth;
  height_ = newHeight;
  NotifyPeer(Property::Move);
  if (resized && loaded_ && windowState_ == vbNormal) Form_Resize();
}

void Form::Place(int x, int y, int cx, int cy, int flags) {
  float tpp = static_cast<float>(GetRuntime().GetScreen().twipsPerPixelX);
  bool move = !(flags & kSwpNoMove);
  bool size = !(flags & kSwpNoSize);
  Move(move ? x * tpp : left_, move ? y * tpp : top_, size ? cx * tpp : width_,
       size ? cy * tpp : height_);
}

void Form::SetWindowState(int value) {
  if (value < vbNormal || value > vbMaximized)
    throw ctlerr::InvalidPropertyValue(Name() + u".WindowState");
  if (windowState_ == value) return;
  windowState_ = value;
  NotifyPeer(Property::WindowState);
  if (loaded_) Form_Resize();
}

void Form::SetBorderStyle(int value) {
  if (value < 0 || value >= static_cast<int>(kFrames.size())) {
    throw ctlerr::InvalidPropertyValue(Name() + u".BorderStyle");
  }
  borderStyle_ = value;
  NotifyPeer(Property::BorderStyle);
}

void Form::SetMousePointer(int value) {
  mousePointer_ = value;
  NotifyPeer(Property::MousePointer);
}

void Form::SetEnabled(bool value) {
  enabled_ = value;
  NotifyPeer(Property::Enabled);
}

bool Form::TopMost() const {
  return GetRuntime().Windows().IsTopMost(hWnd());
}

void Form::SetVisible(bool value) {
  if (value) {
    Show();
  } else {
    Hide();
  }
}

void Form::Load() {
  if (loaded_) return;
  RaiseInitialize();
  loaded_ = true;
  NotifyPeer(Property::Loaded);
  NotifyLoadedChanged();
  Form_Load();
}

void Form::Show(int modal) {
  if (modal == vbModal && visible_) throw ctlerr::AlreadyShown(Name());
  Load();
  if (!loaded_) return;  // Form_Load unloaded it
  if (!visible_) {
    visible_ = true;
    NotifyPeer(Property::Visible);
    if (!std::exchange(shownOnce_, true)) Form_Resize();
  }
  if (!loaded_ || !visible_) return;
  GetRuntime().Activate(this);
  if (modal != vbModal) return;
  modal_ = true;
  auto stillOpen = [this] { return loaded_ && visible_; };
  try {
    if (!(Peer() && Peer()->RunModal(stillOpen))) GetRuntime().Loop().RunModal(stillOpen, Name());
  } catch (...) {
    modal_ = false;
    throw;
  }
  modal_ = false;
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  NotifyPeer(Property::Visible);
  GetRuntime().Deactivated(this);
}

void Form::UserClose() {
  Dispatch([this] { UnloadWith(vbFormControlMenu); });
}

bool Form::UnloadWith(int unloadMode) {
  if (!loaded_) return true;
  int cancel = 0;
  Form_QueryUnload(cancel, unloadMode);
  if (cancel != 0) return false;
  Form_Unload(cancel);
  if (cancel != 0) return false;
  auto& windows = GetRuntime().Windows();
  for (auto* c : Controls()) {
    if (c->hWnd() != 0 && windows.GetFocus() == c->hWnd()) windows.SetFocus(hWnd());
  }
  visible_ = false;
  loaded_ = false;
  NotifyPeer(Property::Loaded);
  NotifyLoadedChanged();
  GetRuntime().Deactivated(this);
  return true;
}

}  // namespace vb
