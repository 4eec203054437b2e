// OptionButton: exclusive within its container.
#include "runtime/forms/OptionButton.h"

#include "runtime/forms/FormBase.h"

namespace vb {

void OptionButton::SetValue(bool value) {
  if (value == value_) return;
  value_ = value;
  Notify(Property::Value);
  if (!value) return;
  for (auto* c : Parent().Controls()) {
    auto* other = dynamic_cast<OptionButton*>(c);
    if (other && other != this && other->Container() == Container() && other->value_) {
      other->value_ = false;
      other->Notify(Property::Value);
    }
  }
  Raise(Click);
}

void OptionButton::OnUserClick() {
  // A click on the chosen option changes nothing but is still a click.
  if (value_) {
    Raise(Click);
    return;
  }
  SetValue(true);
}

}  // namespace vb
