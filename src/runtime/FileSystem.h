// vb::FileSystem: the few file operations the add-in makes (write a text file, Kill, exists).
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace vb {

// Paths are VB strings (UTF-8 on disk). Failures raise vb::Error with VB's numbers and the path
// in the description: 53 file not found, 70 permission denied, 75 path/file access error,
// 76 path not found.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  // Creates or replaces the file with exactly `bytes`.
  virtual void WriteFile(std::u16string_view path, std::string_view bytes) = 0;
  // Deletes the file (VB's Kill); a missing file raises 53.
  virtual void Kill(std::u16string_view path) = 0;
  virtual bool FileExists(std::u16string_view path) const = 0;
};

class DiskFileSystem : public FileSystem {
 public:
  void WriteFile(std::u16string_view path, std::string_view bytes) override;
  void Kill(std::u16string_view path) override;
  bool FileExists(std::u16string_view path) const override;
};

// Files held in memory; folders are implied by the paths written, except that a path listed in
// `unwritableFolders` (no trailing separator) refuses new files with error 70.
class MemoryFileSystem : public FileSystem {
 public:
  void WriteFile(std::u16string_view path, std::string_view bytes) override;
  void Kill(std::u16string_view path) override;
  bool FileExists(std::u16string_view path) const override {
    return files.contains(std::u16string(path));
  }

  std::map<std::u16string, std::string> files;
  std::set<std::u16string> unwritableFolders;
};

}  // namespace vb
