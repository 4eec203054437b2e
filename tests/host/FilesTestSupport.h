// Helpers shared by the VB6 file reader/writer tests: fixture bytes and scratch folders.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "runtime/CodePage.h"

namespace host::files::testing {

inline std::filesystem::path FixturePath(std::string_view name) {
  return std::filesystem::path(QM_SOURCE_DIR) / "tests/fixtures/formats" / name;
}

inline std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline std::string Fixture(std::string_view name) {
  return ReadBytes(FixturePath(name));
}

inline void WriteBytes(const std::filesystem::path& path, std::string_view bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream out(path, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline const vb::CodePage& Cp1252() {
  return vb::CodePage::Windows1252();
}
inline const vb::CodePage& Cp932() {
  return *vb::CodePage::Find(932);
}

// A folder of its own for one test, removed afterwards.
class ScratchFolder {
 public:
  ScratchFolder() {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("qm-files-") + std::to_string(::getpid()) + "-" +
                       info->test_suite_name() + "-" + info->name();
    for (char& c : name)
      if (c == '/') c = '_';  // parameterised tests
    path_ = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path operator/(std::string_view relative) const { return path_ / relative; }

 private:
  std::filesystem::path path_;
};

}  // namespace host::files::testing
