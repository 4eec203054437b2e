// vb::Frame: a captioned group that contains other controls (option buttons are exclusive in it).
#pragma once

#include <string>

#include "runtime/forms/Control.h"

namespace vb {

class Frame : public Control {
 public:
  Frame(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index) {}
  std::u16string_view TypeName() const override { return u"Frame"; }
  bool IsContainer() const override { return true; }
  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string value) {
    caption_ = std::move(value);
    Notify(Property::Caption);
  }

 private:
  std::u16string caption_;
};

}  // namespace vb
