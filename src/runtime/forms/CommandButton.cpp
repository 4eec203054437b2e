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
        b->Notify("Default");
      }
    }
  }
  default_ = value;
  Notify("Default");
}

void CommandButton::SetCancel(bool value) {
  if (value) {
    for (auto* c : Parent().Controls()) {
      if (auto* b = dynamic_cast<CommandButton*>(c); b && b != this && b->cancel_) {
        b->cancel_ = false;
        b->Notify("Cancel");
      }
    }
  }
  cancel_ = value;
  Notify("Cancel");
}

void CommandButton::SetStyle(int value) {
  if (value != 0 && value != 1) throw ctlerr::InvalidPropertyValue(Name() + u".Style");
  style_ = value;
  Notify("Style");
}

}  // namespace vb
