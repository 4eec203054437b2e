// vb::Image: a windowless picture.
#pragma once

#include <string>

#include "runtime/Picture.h"
#include "runtime/forms/Control.h"

namespace vb {

class Image : public Control {
 public:
  Image(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index, false) {}
  std::u16string_view TypeName() const override { return u"Image"; }
  const vb::Picture& Picture() const { return picture_; }
  void SetPicture(vb::Picture value) {
    picture_ = std::move(value);
    Notify(Property::Picture);
  }
  bool Stretch() const { return stretch_; }
  void SetStretch(bool value) {
    stretch_ = value;
    Notify(Property::Stretch);
  }

 private:
  vb::Picture picture_;
  bool stretch_ = false;
};

}  // namespace vb
