// CheckBox values.
#include "runtime/forms/CheckBox.h"

#include "runtime/forms/ControlError.h"

namespace vb {

void CheckBox::SetValue(int value) {
  if (value < 0 || value > 2) throw ctlerr::InvalidPropertyValue(Name() + u".Value");
  if (value == value_) return;
  value_ = value;
  Notify(Property::Value);
  Raise(Click);
}

}  // namespace vb
