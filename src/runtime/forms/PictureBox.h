// vb::PictureBox: a picture and a container whose inner size its Resize handler lays out.
#pragma once

#include <algorithm>
#include <functional>
#include <string>

#include "runtime/Picture.h"
#include "runtime/forms/Control.h"

namespace vb {

// ScaleWidth/ScaleHeight are the inner size: the outer size less the border (2 pixels a side,
// 30 twips, with BorderStyle 1, the default).
class PictureBox : public Control {
 public:
  PictureBox(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index) {}
  std::u16string_view TypeName() const override { return u"PictureBox"; }
  bool IsContainer() const override { return true; }

  float ScaleWidth() const { return std::max(0.0f, Width() - 2 * Border()); }
  float ScaleHeight() const { return std::max(0.0f, Height() - 2 * Border()); }
  int BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(int value) {
    borderStyle_ = value;
    Notify(Property::BorderStyle);
  }
  const vb::Picture& Picture() const { return picture_; }
  void SetPicture(vb::Picture value) {
    picture_ = std::move(value);
    Notify(Property::Picture);
  }

  std::function<void()> Resize;

 protected:
  void OnMoved() override { Raise(Resize); }

 private:
  float Border() const { return borderStyle_ == 1 ? 30.0f : 0.0f; }
  int borderStyle_ = 1;
  vb::Picture picture_;
};

}  // namespace vb
