// Helpers shared by the VB6 file reader/writer tests: fixture bytes and code pages.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "runtime/CodePage.h"
#include "support/TempFolder.h"

namespace host::files::testing {

inline std::string Fixture(std::string_view name) {
  return qmtest::TempFolder::Read(std::filesystem::path(QM_SOURCE_DIR) / "tests/fixtures/formats" /
                                  name);
}

inline const vb::CodePage& Cp1252() {
  return vb::CodePage::Windows1252();
}
inline const vb::CodePage& Cp932() {
  return *vb::CodePage::Find(932);
}

}  // namespace host::files::testing
