// vb::UserDocument: the base of a document that an IDE tool window hosts (docResults, docListView).
#pragma once

#include <string>

#include "runtime/forms/FormBase.h"

namespace vb {

// A document class derives from UserDocument, owns its controls and overrides the
// UserDocument_* handlers. The IDE's object model creates documents by their registered class
// name (through New<T>, which raises Initialize) and drives them as its tool window changes:
// Display raises Show or Hide, SetExtent sizes the document and raises Resize. A document is
// loaded for its whole life; its hWnd's parent is whatever window the host puts it in.
class UserDocument : public FormBase {
 public:
  UserDocument(vb::Runtime& runtime, std::u16string name);

  bool IsLoaded() const override { return true; }
  float ScaleWidth() const override { return width_; }
  float ScaleHeight() const override { return height_; }
  bool Visible() const { return visible_; }

  // The tool window was shown or hidden: Show or Hide, once per change.
  void Display(bool visible);
  // The tool window's inner size changed (twips): Resize, guarded like a user action.
  void SetExtent(float width, float height);

 protected:
  virtual void UserDocument_Initialize() {}
  virtual void UserDocument_Show() {}
  virtual void UserDocument_Hide() {}
  virtual void UserDocument_Resize() {}
  virtual void UserDocument_Terminate() {}
  virtual void UserDocument_KeyDown(int& /*keyCode*/, int /*shift*/) {}
  virtual void UserDocument_KeyPress(int& /*keyAscii*/) {}
  virtual void UserDocument_KeyUp(int& /*keyCode*/, int /*shift*/) {}

 private:
  void OnInitialize() override { UserDocument_Initialize(); }
  void OnTerminate() override { UserDocument_Terminate(); }
  void OnKeyDown(int& keyCode, int shift) override { UserDocument_KeyDown(keyCode, shift); }
  void OnKeyPress(int& keyAscii) override { UserDocument_KeyPress(keyAscii); }
  void OnKeyUp(int& keyCode, int shift) override { UserDocument_KeyUp(keyCode, shift); }

  float width_ = 4800, height_ = 3600;
  bool visible_ = false;
};

}  // namespace vb
