// vb::Control: what every control of the form engine shares (name, place, colours, focus, events).
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/WindowSystem.h"
#include "runtime/forms/ControlPeer.h"

namespace vb {

class ControlPeer;
class FormBase;
class Runtime;

struct Font {
  std::u16string name = u"MS Sans Serif";
  float size = 8.25f;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool operator==(const Font&) const = default;
};

// Raises a VB-style event: handlers are optional, an unset one is an event nobody handles.
template <class Event, class... Args>
void Raise(const Event& event, Args&&... args) {
  if (event) event(std::forward<Args>(args)...);
}

// A control lives inside its form (or document) object and registers itself there, so a
// script finds it by name and index. Positions and sizes are twips, as Single values; colours
// are OLE colours (0x00BBGGRR). Setting a property notifies the peer with the property's name.
class Control {
 public:
  // `index` is the VB Index within a control array, -1 for a control outside any array.
  // Windowless controls (labels, images, timers, menus, image lists) have hWnd 0.
  Control(FormBase& owner, std::u16string name, int index = -1, bool windowed = true);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  virtual std::u16string_view TypeName() const = 0;
  const std::u16string& Name() const { return name_; }
  int Index() const { return index_; }
  FormBase& Parent() const { return owner_; }
  Hwnd hWnd() const { return hwnd_; }

  // The frame or picture box holding this control; null when the form itself holds it.
  Control* Container() const { return container_; }
  void SetContainer(Control* container);
  virtual bool IsContainer() const { return false; }

  float Left() const { return left_; }
  float Top() const { return top_; }
  float Width() const { return width_; }
  float Height() const { return height_; }
  void SetLeft(float value) { Move(value, top_, width_, height_); }
  void SetTop(float value) { Move(left_, value, width_, height_); }
  void SetWidth(float value) { Move(left_, top_, value, height_); }
  void SetHeight(float value) { Move(left_, top_, width_, value); }
  // A negative width or height raises error 380 and moves nothing.
  void Move(float left, std::optional<float> top = {}, std::optional<float> width = {},
            std::optional<float> height = {});

  bool Visible() const { return visible_; }
  void SetVisible(bool value);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool value);
  // Enabled and visible, and so is every container up to the form: what a user can reach.
  bool IsUsable() const;

  std::uint32_t ForeColor() const { return foreColor_; }
  void SetForeColor(std::uint32_t value);
  std::uint32_t BackColor() const { return backColor_; }
  void SetBackColor(std::uint32_t value);
  const vb::Font& Font() const { return font_; }
  void SetFont(vb::Font value);
  int TabIndex() const { return tabIndex_; }
  void SetTabIndex(int value);
  const std::u16string& ToolTipText() const { return toolTipText_; }
  void SetToolTipText(std::u16string value);
  const std::u16string& Tag() const { return tag_; }
  void SetTag(std::u16string value);

  // Error 5 when the control cannot take the focus (windowless, hidden or disabled).
  void SetFocus();
  bool HasFocus() const;

  void SetPeer(ControlPeer* peer) { peer_ = peer; }
  ControlPeer* Peer() const { return peer_; }

  // Events. KeyDown/KeyUp carry the key code by reference (set it to 0 to swallow the key),
  // KeyPress the character.
  std::function<void()> Click, DblClick, GotFocus, LostFocus;
  std::function<void(int button, int shift, float x, float y)> MouseDown, MouseUp, MouseMove;
  std::function<void(int&keyCode, int shift)> KeyDown, KeyUp;
  std::function<void(int& keyAscii)> KeyPress;

  // User actions, as a toolkit or a script reports them. Errors escaping the handlers are
  // reported through the runtime's guard, never thrown back.
  void UserClick();
  // A press from the keyboard (Enter on the default button, Escape on the cancel button): the
  // click without the mouse's events and without moving the focus.
  void UserPress();
  void UserDblClick();
  void UserMouseDown(int button, int shift, float x, float y);
  void UserMouseUp(int button, int shift, float x, float y);

  // What a typed character does to the control after its KeyPress let it through (a text box
  // edits its text). Called by the form's key routing.
  virtual void ApplyCharacter(char16_t /*character*/) {}
  // Whether the control takes the focus when clicked.
  virtual bool TakesFocusOnClick() const { return hwnd_ != 0; }
  // The form was loaded or unloaded (timers run only while it is loaded).
  virtual void OwnerLoadedChanged() {}

 protected:
  // The control's own part of a click (a check box toggles) before Click is raised.
  virtual void OnUserClick() { Raise(Click); }
  virtual void OnMoved() {}
  void Notify(Property property);
  Runtime& GetRuntime() const;
  void Dispatch(const std::function<void()>& action) const;

 private:
  FormBase& owner_;
  std::u16string name_;
  int index_;
  Hwnd hwnd_ = 0;
  Control* container_ = nullptr;
  float left_ = 0, top_ = 0, width_ = 1215, height_ = 495;
  bool visible_ = true;
  bool enabled_ = true;
  std::uint32_t foreColor_ = 0x80000012;  // system colour: button text
  std::uint32_t backColor_ = 0x8000000F;  // system colour: button face
  vb::Font font_;
  int tabIndex_ = 0;
  std::u16string toolTipText_;
  std::u16string tag_;
  ControlPeer* peer_ = nullptr;
};

}  // namespace vb
