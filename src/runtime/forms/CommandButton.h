// vb::CommandButton: a push button, the form's Default (Enter) or Cancel (Escape) button.
#pragma once

#include <string>

#include "runtime/Picture.h"
#include "runtime/forms/Control.h"

namespace vb {

// Style 1 (graphical) shows Picture. Default and Cancel are each held by at most one button of
// a form: making one the default clears the others.
class CommandButton : public Control {
 public:
  CommandButton(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index) {}
  std::u16string_view TypeName() const override { return u"CommandButton"; }

  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string value) {
    caption_ = std::move(value);
    Notify(Property::Caption);
  }
  bool Default() const { return default_; }
  void SetDefault(bool value);
  bool Cancel() const { return cancel_; }
  void SetCancel(bool value);
  int Style() const { return style_; }
  void SetStyle(int value);
  const vb::Picture& Picture() const { return picture_; }
  void SetPicture(vb::Picture value) {
    picture_ = std::move(value);
    Notify(Property::Picture);
  }
  // Setting Value to true clicks the button, as in VB.
  void SetValue(bool value) {
    if (value) Raise(Click);
  }

 private:
  std::u16string caption_;
  bool default_ = false;
  bool cancel_ = false;
  int style_ = 0;
  vb::Picture picture_;
};

}  // namespace vb
