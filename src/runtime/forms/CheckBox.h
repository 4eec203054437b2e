// vb::CheckBox: Value 0 unchecked, 1 checked, 2 grayed; every change of Value raises Click.
#pragma once

#include <string>

#include "runtime/forms/Control.h"

namespace vb {

class CheckBox : public Control {
 public:
  CheckBox(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index) {}
  std::u16string_view TypeName() const override { return u"CheckBox"; }
  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string value) {
    caption_ = std::move(value);
    Notify(Property::Caption);
  }
  int Value() const { return value_; }
  // Raises Click when the value changes, by code as by the user (VB does); error 380 outside 0-2.
  void SetValue(int value);

 protected:
  // A click checks an unchecked or grayed box and unchecks a checked one.
  void OnUserClick() override { SetValue(value_ == 1 ? 0 : 1); }

 private:
  std::u16string caption_;
  int value_ = 0;
};

}  // namespace vb
