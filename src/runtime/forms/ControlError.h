// The run-time errors that controls raise, with VB's numbers and descriptions.
#pragma once

#include <string>
#include <string_view>

#include "runtime/Error.h"

namespace vb::ctlerr {

inline Error Make(int number, std::u16string_view text, std::u16string_view detail) {
  std::u16string description(text);
  if (!detail.empty()) {
    description += u": ";
    description.append(detail);
  }
  return Error(number, std::move(description));
}

inline Error InvalidPropertyValue(std::u16string_view detail = {}) {
  return Make(380, u"Invalid property value", detail);
}
inline Error InvalidArrayIndex(std::u16string_view detail = {}) {
  return Make(381, u"Invalid property array index", detail);
}
inline Error TextReadOnly(std::u16string_view detail = {}) {
  return Make(383, u"'Text' property is read-only", detail);
}
inline Error NoArrayElement(std::u16string_view detail = {}) {
  return Make(340, u"Control array element doesn't exist", detail);
}
inline Error AlreadyShown(std::u16string_view detail = {}) {
  return Make(400, u"Form already displayed; can't show modally", detail);
}
inline Error IndexOutOfBounds(std::u16string_view detail = {}) {
  return Make(35600, u"Index out of bounds", detail);
}
inline Error ElementNotFound(std::u16string_view detail = {}) {
  return Make(35601, u"Element not found", detail);
}
inline Error KeyNotUnique(std::u16string_view detail = {}) {
  return Make(35602, u"Key is not unique in collection", detail);
}
inline Error InvalidProcedureCall(std::u16string_view detail = {}) {
  return Make(5, u"Invalid procedure call or argument", detail);
}

}  // namespace vb::ctlerr
