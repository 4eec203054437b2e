// FileSink: writes a set of files into a staging folder and moves it into place only when all
// succeeded.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace vbgen {

class FileSink {
 public:
  // `outDir` must be missing, empty, or an earlier output holding `marker` (which is replaced
  // whole). Throws std::runtime_error naming the folder otherwise.
  FileSink(std::filesystem::path outDir, std::string marker);
  ~FileSink();  // removes the staging folder when Commit was not reached
  FileSink(const FileSink&) = delete;
  FileSink& operator=(const FileSink&) = delete;

  // Throws std::runtime_error naming the file when it cannot be written completely.
  void Add(const std::filesystem::path& relative, std::string_view bytes);
  std::size_t Count() const { return count_; }
  void Commit();

 private:
  std::filesystem::path outDir_;
  std::filesystem::path staging_;
  std::size_t count_ = 0;
  bool committed_ = false;
};

}  // namespace vbgen
