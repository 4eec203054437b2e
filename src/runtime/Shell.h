// vb::Shell: FindExecutable and ShellExecute with the Win32 contracts, and a headless shell.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vb {

class FileSystem;

// Return values as the Win32 calls give them: greater than 32 on success, else one of these.
namespace shellResult {
inline constexpr std::intptr_t kOutOfResources = 0;
inline constexpr std::intptr_t kFileNotFound = 2;
inline constexpr std::intptr_t kPathNotFound = 3;
inline constexpr std::intptr_t kAccessDenied = 5;
inline constexpr std::intptr_t kNoAssociation = 31;
inline constexpr std::intptr_t kSuccess = 42;  // any value above 32 means success
}  // namespace shellResult

class Shell {
 public:
  virtual ~Shell() = default;
  // The program that opens `file` (looked up in `directory` when that is not empty). On success
  // `result` is the program's path; on failure it is emptied.
  virtual std::intptr_t FindExecutable(std::u16string_view file, std::u16string_view directory,
                                       std::u16string& result) = 0;
  // Opens `file`: a program is started with `parameters`; a document is opened with the program
  // FindExecutable names. Only the verb "open" (or none) is known. `hwnd` and `showCmd` are
  // accepted for the contract's sake; a desktop has no use for them.
  virtual std::intptr_t ShellExecute(std::intptr_t hwnd, std::u16string_view verb,
                                     std::u16string_view file, std::u16string_view parameters,
                                     std::u16string_view directory, int showCmd) = 0;
};

// For tests and the command line: no program is ever started. FindExecutable answers `browser`
// for every file that exists in the file system given; every call is recorded.
class HeadlessShell : public Shell {
 public:
  struct Call {
    std::u16string operation;  // "FindExecutable" or "ShellExecute"
    std::u16string verb, file, parameters, directory;
    int showCmd = 0;
    bool operator==(const Call&) const = default;
  };

  explicit HeadlessShell(const FileSystem& files) : files_(files) {}

  std::intptr_t FindExecutable(std::u16string_view file, std::u16string_view directory,
                               std::u16string& result) override;
  std::intptr_t ShellExecute(std::intptr_t hwnd, std::u16string_view verb, std::u16string_view file,
                             std::u16string_view parameters, std::u16string_view directory,
                             int showCmd) override;

  std::optional<std::u16string> browser;  // nothing: no program is registered
  std::intptr_t executeResult = shellResult::kSuccess;
  std::vector<Call> calls;

 private:
  const FileSystem& files_;
};

}  // namespace vb
