// vb::Error: a VB run-time error (the counterpart of Err) carried as a C++ exception.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace vb {

// Run-time error numbers used across the system. The numbers are VB's own.
namespace err {
inline constexpr int kInvalidProcedureCall = 5;  // "Invalid procedure call or argument"
inline constexpr int kOverflow = 6;              // "Overflow"
inline constexpr int kSubscriptOutOfRange = 9;   // "Subscript out of range"
inline constexpr int kTypeMismatch = 13;         // "Type mismatch"
inline constexpr int kSubNotDefined = 35;        // "Sub or Function not defined"
inline constexpr int kFileNotFound = 53;         // "File not found"
inline constexpr int kPermissionDenied = 70;     // "Permission denied"
inline constexpr int kPathFileAccess = 75;       // "Path/File access error"
inline constexpr int kPathNotFound = 76;         // "Path not found"
inline constexpr int kObjectNotSet = 91;         // "Object variable or With block variable not set"
inline constexpr int kInvalidPropertyValue = 380;  // "Invalid property value"
}  // namespace err

class Error : public std::runtime_error {
 public:
  // `description` is what Err.Description would show; it names the file or item where one applies.
  Error(int number, std::u16string description);

  int Number() const noexcept { return number_; }
  const std::u16string& Description() const noexcept { return description_; }

  // VB's standard description of a run-time error number ("Subscript out of range").
  static std::u16string StandardDescription(int number);
  // An error with the standard description, followed by ": " and `detail` when it is not empty.
  static Error Standard(int number, std::u16string_view detail = {});

 private:
  int number_;
  std::u16string description_;
};

}  // namespace vb
