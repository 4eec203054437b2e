// vb::Label: a caption the user reads (and, with a click handler, a link to click).
#pragma once

#include <string>

#include "runtime/forms/Control.h"

namespace vb {

class Label : public Control {
 public:
  Label(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index, false) {}
  std::u16string_view TypeName() const override { return u"Label"; }
  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string value) {
    caption_ = std::move(value);
    Notify(Property::Caption);
  }
  int Alignment() const { return alignment_; }
  void SetAlignment(int value) {
    alignment_ = value;
    Notify(Property::Alignment);
  }

 private:
  std::u16string caption_;
  int alignment_ = 0;
};

}  // namespace vb
