// Default, Cancel and Style of a command button.
#include "runtime/forms/CommandButton.h"

#include "runtime/forms/ControlError.h"
#include "runtime/forms/FormBase.h"

namespace vb {

void CommandButton::SetDefault(bool value) {
  if (value) {
    for (auto* c : Parent().Controls()) {
      if (auto* b = dynamic_cast<CommandButton*>(c); b && b != this && b->default_) {
        b->default_ = false;
        b->Notify(Property::Default);
      }
    }
  }
  default_ = value;
  Notify(Property::Default);
}

void CommandButton::SetCancel(bool value) {
  if (value) {
    for (auto* c : Parent().Controls()) {
      if (auto* b = dynamic_cast<CommandButton*>(c); b && b != this && b->cancel_) {
        b->cancel_ = false;
        b->Notify(Property::Cancel);
      }
    }
  }
  cancel_ = value;
  Notify(Property::Cancel);
}

void CommandButton::SetStyle(int value) {
  if (value != 0 && value != 1) throw ctlerr::InvalidPropertyValue(Name() + u".Style");
  style_ = value;
  Notify(Property::Style);
}

}  // namespace vb
