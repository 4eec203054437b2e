// File operations on disk and in memory, failing with VB's error numbers.
#include "runtime/FileSystem.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "runtime/Error.h"
#include "runtime/Utf.h"

namespace vb {

namespace {

// errno values as POSIX reports them for open, write and unlink.
int VbNumberOf(int errorNumber, bool missingMeansFile) {
  switch (errorNumber) {
    case ENOENT:
      return missingMeansFile ? err::kFileNotFound : err::kPathNotFound;
    case ENOTDIR:
      return err::kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return err::kPermissionDenied;
    default:
      return err::kPathFileAccess;
  }
}

[[noreturn]] void Fail(int number, std::u16string_view path) {
  throw Error::Standard(number, path);
}

std::u16string FolderOf(std::u16string_view path) {
  auto slash = path.find_last_of(u"/\\");
  return std::u16string(slash == std::u16string_view::npos ? std::u16string_view{}
                                                           : path.substr(0, slash));
}

}  // namespace

void DiskFileSystem::WriteFile(std::u16string_view path, std::string_view bytes) {
  std::FILE* file = std::fopen(PathFromVb(path).c_str(), "wb");
  if (!file) Fail(VbNumberOf(errno, false), path);
  bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  int writeError = errno;
  bool closed = std::fclose(file) == 0;
  if (!written || !closed) Fail(VbNumberOf(written ? errno : writeError, false), path);
}

void DiskFileSystem::Kill(std::u16string_view path) {
  std::error_code ec;
  std::filesystem::path target(PathFromVb(path));
  if (!std::filesystem::is_regular_file(target, ec)) {
    Fail(std::filesystem::exists(target, ec) ? err::kPathFileAccess : err::kFileNotFound, path);
  }
  if (!std::filesystem::remove(target, ec)) Fail(VbNumberOf(ec.value(), true), path);
}

bool DiskFileSystem::FileExists(std::u16string_view path) const {
  std::error_code ec;
  return std::filesystem::is_regular_file(std::filesystem::path(PathFromVb(path)), ec);
}

void MemoryFileSystem::WriteFile(std::u16string_view path, std::string_view bytes) {
  if (unwritableFolders.contains(FolderOf(path))) Fail(err::kPermissionDenied, path);
  files[std::u16string(path)] = std::string(bytes);
}

void MemoryFileSystem::Kill(std::u16string_view path) {
  if (files.erase(std::u16string(path)) == 0) Fail(err::kFileNotFound, path);
}

}  // namespace vb
