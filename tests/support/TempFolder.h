// A fresh folder under the system's temporary directory, removed with everything in it.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace qmtest {

class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    path_ = std::filesystem::temp_directory_path() /
            ("qm-test-" + std::to_string(random()) + std::to_string(random()));
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path operator/(std::string_view relative) const { return path_ / relative; }

  // Writes `bytes` to the file at `relative`, creating folders as needed.
  std::filesystem::path Write(const std::filesystem::path& relative, std::string_view bytes) const {
    std::filesystem::path file = path_ / relative;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }

  static std::string Read(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace qmtest
