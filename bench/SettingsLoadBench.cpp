// Measures the settings store on big files: loading one section of 40,000, 80,000 and 160,000
// keys, and a 50 MB file. Each doubling of the keys should double the time (linear), not
// quadruple it. Prints figures and the ratios; asserts nothing.
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "runtime/IniSettingsStore.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// Seconds to open a store on a file of `keys` keys (each `valueSize` bytes) and read the last key.
double LoadSeconds(const fs::path& folder, int keys, std::size_t valueSize) {
  fs::create_directories(folder / "settings");
  {
    std::ofstream out(folder / "settings" / "Quillmark Tools.ini", std::ios::binary);
    std::string value(valueSize, 'v');
    out << "[Search]\n";
    for (int i = 0; i < keys; ++i) out << "Key" << i << '=' << value << '\n';
  }
  Clock::time_point start = Clock::now();
  vb::IniSettingsStore store(folder);
  std::string name = "Key" + std::to_string(keys - 1);
  std::u16string key(name.begin(), name.end());
  auto value = store.GetSetting(u"Quillmark Tools", u"Search", key, u"");
  double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  if (value.size() != valueSize) std::printf("  (the last key did not read back)\n");
  return seconds;
}

}  // namespace

int main() {
  fs::path folder = fs::temp_directory_path() / "qm-settings-bench";
  fs::remove_all(folder);
  double previous = 0;
  for (int keys : {40000, 80000, 160000}) {
    double seconds = LoadSeconds(folder, keys, 8);
    std::printf("%7d keys in one section: %.3f s", keys, seconds);
    if (previous > 0)
      std::printf("   ratio to half as many %.2f (linear 2, quadratic 4)", seconds / previous);
    std::printf("\n");
    previous = seconds;
  }
  double big = LoadSeconds(folder, 500000, 96);  // about 50 MB
  std::printf("a 50 MB file (500,000 keys): %.3f s\n", big);
  fs::remove_all(folder);
  return 0;
}
