// UserDocument: Show, Hide and Resize as the host's tool window changes.
#include "runtime/UserDocument.h"

#include "runtime/forms/ControlError.h"

namespace vb {

UserDocument::UserDocument(vb::Runtime& runtime, std::u16string name)
    : FormBase(runtime, std::move(name)) {}

void UserDocument::Display(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  NotifyPeer(Property::Visible);
  if (visible) {
    UserDocument_Show();
  } else {
    UserDocument_Hide();
  }
}

void UserDocument::SetExtent(float width, float height) {
  Dispatch([&] {
    if (width < 0 || height < 0) throw ctlerr::InvalidPropertyValue(Name() + u".Extent");
    width_ = width;
    height_ = height;
    NotifyPeer(Property::Extent);
    UserDocument_Resize();
  });
}

}  // namespace vb
