// Fuzz target: the settings file. Whatever the bytes, what is read, written and read again is
// what was read, and the text the store writes is never damaged.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "FuzzCheck.h"
#include "runtime/SettingsIni.h"

namespace {

bool SameSections(const vb::SettingsSections& a, const vb::SettingsSections& b) {
  if (a.All().size() != b.All().size()) return false;
  for (std::size_t i = 0; i < a.All().size(); ++i)
    if (a.All()[i].name != b.All()[i].name || a.All()[i].keys != b.All()[i].keys) return false;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  vb::SettingsIniParse first = vb::ParseSettingsIni(bytes);
  std::string written = vb::FormatSettingsIni(first.sections);
  vb::SettingsIniParse second = vb::ParseSettingsIni(written);
  QM_FUZZ_REQUIRE(!second.problem, "the store's own text reads without a problem");
  QM_FUZZ_REQUIRE(SameSections(first.sections, second.sections), "parse of format of parse");
  QM_FUZZ_REQUIRE(vb::FormatSettingsIni(second.sections) == written, "format is stable");
  return 0;
}
