// FileSink: staging, complete writes and the final move of the generated group.
#include "FileSink.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <system_error>

namespace vbgen {
namespace fs = std::filesystem;

namespace {

fs::path Normalised(fs::path path) {
  path = path.lexically_normal();
  if (!path.has_filename()) path = path.parent_path();
  return path;
}

[[noreturn]] void Fail(const std::string& what, const fs::path& path, const std::string& why) {
  throw std::runtime_error(what + " " + path.string() + ": " + why);
}

}  // namespace

FileSink::FileSink(fs::path outDir, std::string marker) : outDir_(Normalised(std::move(outDir))) {
  std::error_code error;
  if (fs::exists(outDir_, error)) {
    if (!fs::is_directory(outDir_, error)) Fail("cannot write into", outDir_, "not a folder");
    bool empty = fs::is_empty(outDir_, error);
    if (!empty && !fs::exists(outDir_ / marker, error)) {
      Fail("refusing to replace", outDir_, "the folder is not empty and holds no " + marker);
    }
  }
  staging_ = outDir_;
  staging_ += ".vbgen-staging";
  fs::remove_all(staging_, error);
  if (!fs::create_directories(staging_, error) && error) {
    Fail("cannot create", staging_, error.message());
  }
}

FileSink::~FileSink() {
  if (committed_) return;
  std::error_code ignored;  // cleanup after a failure; the first error was already reported
  fs::remove_all(staging_, ignored);
}

void FileSink::Add(const fs::path& relative, std::string_view bytes) {
  fs::path target = staging_ / relative;
  std::error_code error;
  fs::create_directories(target.parent_path(), error);
  if (error) Fail("cannot create", target.parent_path(), error.message());
  std::FILE* file = std::fopen(target.string().c_str(), "wb");
  if (file == nullptr) Fail("cannot create", outDir_ / relative, std::strerror(errno));
  bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  bool closed = std::fclose(file) == 0;
  if (!written || !closed) Fail("cannot write", outDir_ / relative, std::strerror(errno));
  ++count_;
}

void FileSink::Commit() {
  std::error_code error;
  fs::path old = outDir_;
  old += ".vbgen-old";
  fs::remove_all(old, error);
  if (fs::exists(outDir_, error)) {
    fs::rename(outDir_, old, error);
    if (error) Fail("cannot replace", outDir_, error.message());
  }
  fs::rename(staging_, outDir_, error);
  if (error) Fail("cannot move the new group to", outDir_, error.message());
  committed_ = true;
  fs::remove_all(old, error);
}

}  // namespace vbgen
