// vb::OptionButton: one choice of a group; the group is the options in the same container.
#pragma once

#include <string>

#include "runtime/forms/Control.h"

namespace vb {

class OptionButton : public Control {
 public:
  OptionButton(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index) {}
  std::u16string_view TypeName() const override { return u"OptionButton"; }
  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string value) {
    caption_ = std::move(value);
    Notify(Property::Caption);
  }
  bool Value() const { return value_; }
  // True clears the other options of the container and raises Click on this one (by code as
  // by the user, as in VB); setting an option that already is true raises nothing.
  void SetValue(bool value);

 protected:
  void OnUserClick() override;

 private:
  std::u16string caption_;
  bool value_ = false;
};

}  // namespace vb
