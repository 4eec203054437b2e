// vb::FormBase: what a form and a user document share: controls, keys, window, the error guard.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/WindowSystem.h"
#include "runtime/forms/ControlPeer.h"

namespace vb {

class Control;
class FormPeer;
class Menu;
class Runtime;

class FormBase {
 public:
  FormBase(vb::Runtime& runtime, std::u16string name);
  virtual ~FormBase();
  FormBase(const FormBase&) = delete;
  FormBase& operator=(const FormBase&) = delete;

  vb::Runtime& GetRuntime() const { return runtime_; }
  const std::u16string& Name() const { return name_; }
  Hwnd hWnd() const { return hwnd_; }
  virtual bool IsLoaded() const = 0;
  virtual float ScaleWidth() const = 0;
  virtual float ScaleHeight() const = 0;

  // Controls in creation order; FindControl matches the name ignoring case, and the index
  // exactly (-1 for a control outside any array).
  const std::vector<Control*>& Controls() const { return controls_; }
  Control* FindControl(std::u16string_view name, int index = -1) const;
  Control* ActiveControl() const { return activeControl_; }

  // With KeyPreview the form's key events run before the focused control's.
  bool KeyPreview() const { return keyPreview_; }
  void SetKeyPreview(bool value) { keyPreview_ = value; }

  void SetPeer(FormPeer* peer) { peer_ = peer; }
  FormPeer* Peer() const { return peer_; }

  // Initialize and Terminate, each raised once: New<T> raises Initialize when the object is
  // made and Terminate when the last reference goes (VB's Set x = Nothing).
  void RaiseInitialize();
  void RaiseTerminate();

  // A key the user pressed, routed as VB routes it: Enter presses the default button and
  // Escape the cancel button; otherwise KeyDown, KeyPress (for keys that type a character) and
  // KeyUp go to the form first when KeyPreview is on, then to the focused control (or to the
  // form when no control has the focus). A handler that zeroes the code or character stops it.
  // `typed` is the character the keyboard produced when the toolkit knows it (Caps Lock makes
  // "A" of an unshifted A key); without it the character follows from the key and Shift.
  void UserKey(int keyCode, int shift = 0, char16_t typed = 0);

  // PopupMenu: a peer shows it; headless, the menu is recorded and the script clicks an item.
  void PopupMenu(Menu& menu, float x = 0, float y = 0);
  const std::vector<Menu*>& PoppedMenus() const { return popped_; }

  // The runtime's guard around user actions and timer ticks.
  void Dispatch(const std::function<void()>& action) const;

 protected:
  virtual void OnInitialize() {}
  virtual void OnTerminate() {}
  virtual void OnKeyDown(int& /*keyCode*/, int /*shift*/) {}
  virtual void OnKeyPress(int& /*keyAscii*/) {}
  virtual void OnKeyUp(int& /*keyCode*/, int /*shift*/) {}
  void NotifyLoadedChanged();
  void NotifyPeer(Property property);
  void SetWindowTitle(std::u16string title);

 private:
  friend class Control;
  void Register(Control* control);
  void Unregister(Control* control);
  void FocusChanged(Control* control, bool gained);
  bool PressDefaultOrCancel(int keyCode);

  vb::Runtime& runtime_;
  std::u16string name_;
  Hwnd hwnd_ = 0;
  std::vector<Control*> controls_;
  Control* activeControl_ = nullptr;
  bool keyPreview_ = false;
  bool initialized_ = false;
  bool terminated_ = false;
  FormPeer* peer_ = nullptr;
  std::vector<Menu*> popped_;
};

// Creates a form or document the way VB's New does: Initialize is raised once the object is
// complete, and Terminate when the last reference is released.
template <class T, class... Args>
std::shared_ptr<T> New(Args&&... args) {
  std::shared_ptr<T> object(new T(std::forward<Args>(args)...), [](T* p) {
    p->RaiseTerminate();
    delete p;
  });
  object->RaiseInitialize();
  return object;
}

}  // namespace vb
