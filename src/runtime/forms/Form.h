// vb::Form: a VB form: load, show (modeless or modal), hide, unload, with VB's event order.
#pragma once

#include <optional>
#include <string>

#include "runtime/VbConstants.h"
#include "runtime/forms/FormBase.h"

namespace vb {

// A form class derives from Form, owns its controls as members and overrides the Form_*
// handlers it needs. Events, in VB's order: Initialize (on New), Load, Resize (when first
// shown), Activate; Deactivate when another form becomes active; QueryUnload and Unload (either
// may cancel); Terminate when the last reference goes (see New<T>).
//
// The form keeps its controls' state across Unload and Load (VB would rebuild them from the
// designer); the add-in creates a new form object wherever it relies on fresh controls.
class Form : public FormBase {
 public:
  Form(vb::Runtime& runtime, std::u16string name);
  ~Form() override;

  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string value);

  // The outer rectangle; a maximised form reports the screen's size. Setting a size while
  // loaded raises Resize; a negative size raises error 380.
  float Left() const;
  float Top() const;
  float Width() const;
  float Height() const;
  void SetLeft(float value) { Move(value, top_, width_, height_); }
  void SetTop(float value) { Move(left_, value, width_, height_); }
  void SetWidth(float value) { Move(left_, top_, value, height_); }
  void SetHeight(float value) { Move(left_, top_, width_, value); }
  void Move(float left, std::optional<float> top = {}, std::optional<float> width = {},
            std::optional<float> height = {});
  // The inner size: the outer size less the border and title bar of the border style.
  float ScaleWidth() const override;
  float ScaleHeight() const override;

  int WindowState() const { return windowState_; }
  void SetWindowState(int value);  // 0 normal, 1 minimised, 2 maximised; raises Resize
  int BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(int value);  // 0 none .. 5 sizable tool window
  int MousePointer() const { return mousePointer_; }
  void SetMousePointer(int value);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool value);
  // Made top-most through the window system's SetWindowPos(HWND_TOPMOST).
  bool TopMost() const;

  bool Visible() const { return visible_; }
  void SetVisible(bool value);
  bool IsLoaded() const override { return loaded_; }
  bool IsModal() const { return modal_; }

  // VB's Load statement: Initialize (once) and Load; nothing when already loaded.
  void Load();
  // Loads when needed, shows, activates. vbModal returns only when the form is hidden or
  // unloaded; showing a visible form modally raises error 400.
  void Show(int modal = vbModeless);
  void Hide();
  // VB's Unload from code (unload mode vbFormCode). False when QueryUnload or Unload cancelled.
  bool Unload() { return UnloadWith(vbFormCode); }
  // The user closes the window from its control box (unload mode vbFormControlMenu).
  void UserClose();

 protected:
  virtual void Form_Initialize() {}
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_Deactivate() {}
  virtual void Form_Resize() {}
  virtual void Form_QueryUnload(int& /*cancel*/, int /*unloadMode*/) {}
  virtual void Form_Unload(int& /*cancel*/) {}
  virtual void Form_Terminate() {}
  virtual void Form_KeyDown(int& /*keyCode*/, int /*shift*/) {}
  virtual void Form_KeyPress(int& /*keyAscii*/) {}
  virtual void Form_KeyUp(int& /*keyCode*/, int /*shift*/) {}

 private:
  friend class vb::Runtime;
  void OnInitialize() override { Form_Initialize(); }
  void OnTerminate() override { Form_Terminate(); }
  void OnKeyDown(int& keyCode, int shift) override { Form_KeyDown(keyCode, shift); }
  void OnKeyPress(int& keyAscii) override { Form_KeyPress(keyAscii); }
  void OnKeyUp(int& keyCode, int shift) override { Form_KeyUp(keyCode, shift); }
  void RaiseActivate() { Form_Activate(); }
  void RaiseDeactivate() { Form_Deactivate(); }
  bool UnloadWith(int unloadMode);
  void Place(int x, int y, int cx, int cy, int flags);

  std::u16string caption_;
  float left_ = 0, top_ = 0, width_ = 4800, height_ = 3600;
  int windowState_ = vbNormal;
  int borderStyle_ = 2;
  int mousePointer_ = vbDefault;
  bool enabled_ = true;
  bool visible_ = false;
  bool loaded_ = false;
  bool modal_ = false;
  bool shownOnce_ = false;
};

}  // namespace vb
