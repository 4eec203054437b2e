// vb::Error and VB's standard error descriptions.
#include "runtime/Error.h"

#include "runtime/Utf.h"

namespace vb {

Error::Error(int number, std::u16string description)
    : std::runtime_error(ToUtf8(description)),
      number_(number),
      description_(std::move(description)) {}

std::u16string Error::StandardDescription(int number) {
  switch (number) {
    case err::kInvalidProcedureCall:
      return u"Invalid procedure call or argument";
    case err::kOverflow:
      return u"Overflow";
    case err::kSubscriptOutOfRange:
      return u"Subscript out of range";
    case err::kTypeMismatch:
      return u"Type mismatch";
    case err::kSubNotDefined:
      return u"Sub or Function not defined";
    case err::kFileNotFound:
      return u"File not found";
    case err::kPermissionDenied:
      return u"Permission denied";
    case err::kPathFileAccess:
      return u"Path/File access error";
    case err::kPathNotFound:
      return u"Path not found";
    case err::kObjectNotSet:
      return u"Object variable or With block variable not set";
    case err::kInvalidPropertyValue:
      return u"Invalid property value";
    default:
      return u"Application-defined or object-defined error";
  }
}

Error Error::Standard(int number, std::u16string_view detail) {
  std::u16string text = StandardDescription(number);
  if (!detail.empty()) {
    text += u": ";
    text += detail;
  }
  return Error(number, std::move(text));
}

}  // namespace vb
