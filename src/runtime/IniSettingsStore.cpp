// The file-backed settings store: reading once, writing atomically, reporting damaged files.
#include "runtime/IniSettingsStore.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>
#include <system_error>

#include "runtime/Error.h"
#include "runtime/SettingsIni.h"
#include "runtime/Utf.h"

namespace vb {

namespace fs = std::filesystem;

namespace {

std::u16string CacheKey(std::u16string_view app) {
  std::u16string key(app);
  for (char16_t& u : key)
    if (u >= u'A' && u <= u'Z') u = static_cast<char16_t>(u + (u'a' - u'A'));
  return key;
}

std::u16string PathText(const fs::path& path) {
  return FromUtf8(path.string());
}

[[noreturn]] void Fail(int number, const fs::path& path) {
  throw Error::Standard(number, PathText(path));
}

std::optional<std::string> ReadWholeFile(const fs::path& file) {
  std::error_code ec;
  if (!fs::is_regular_file(file, ec)) return std::nullopt;
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) return std::nullopt;
  return bytes;
}

}  // namespace

fs::path DefaultUserFolder(std::string_view quillmarkHome, std::string_view xdgConfigHome,
                           std::string_view home) {
  if (!quillmarkHome.empty()) return fs::path(quillmarkHome);
  if (!xdgConfigHome.empty()) return fs::path(xdgConfigHome) / "quillmark";
  return fs::path(home) / ".config" / "quillmark";
}

fs::path DefaultUserFolderFromEnvironment() {
  auto value = [](const char* name) -> std::string_view {
    const char* text = std::getenv(name);
    return text ? text : "";
  };
  return DefaultUserFolder(value("QUILLMARK_HOME"), value("XDG_CONFIG_HOME"), value("HOME"));
}

IniSettingsStore::IniSettingsStore(fs::path userFolder) : folder_(std::move(userFolder)) {}

fs::path IniSettingsStore::FileOf(std::u16string_view app) const {
  std::string name;
  static constexpr char kHex[] = "0123456789ABCDEF";
  for (unsigned char c : ToUtf8(app)) {
    bool unsafe = c < 0x20 || c == 0x7F || c == '/' || c == '\\' || c == '%' || c == ':' ||
                  (name.empty() && c == '.');
    if (!unsafe) {
      name += static_cast<char>(c);
      continue;
    }
    ((name += '%') += kHex[c >> 4]) += kHex[c & 0xF];
  }
  return folder_ / "settings" / (name + ".ini");
}

const SettingsSections& IniSettingsStore::Load(std::u16string_view app) {
  std::u16string key = CacheKey(app);
  if (auto it = cache_.find(key); it != cache_.end()) return it->second;
  fs::path file = FileOf(app);
  SettingsSections& entry = cache_[key];
  std::error_code ec;
  if (!fs::exists(file, ec)) return entry;
  std::optional<std::string> bytes = ReadWholeFile(file);
  if (!bytes) {
    problems_.push_back(file.string() + ":0: cannot be read; using the defaults");
    return entry;
  }
  SettingsIniParse parsed = ParseSettingsIni(*bytes);
  if (parsed.problem) {
    problems_.push_back(file.string() + ":" + std::to_string(parsed.problem->line) + ": " +
                        parsed.problem->message + "; using the defaults");
    return entry;
  }
  entry = std::move(parsed.sections);
  return entry;
}

void IniSettingsStore::ReplaceFile(const fs::path& from, const fs::path& to) {
  fs::rename(from, to);
}

void IniSettingsStore::Write(std::u16string_view app, const SettingsSections& sections) {
  fs::path file = FileOf(app);
  std::error_code ec;
  fs::create_directories(file.parent_path(), ec);
  if (ec) Fail(err::kPathNotFound, file.parent_path());

  std::random_device random;
  fs::path temp = file;
  temp += ".tmp" + std::to_string(random());
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    out << FormatSettingsIni(sections);
    out.flush();
    if (!out) {
      fs::remove(temp, ec);
      Fail(err::kPathFileAccess, file);
    }
  }
  try {
    ReplaceFile(temp, file);
  } catch (const std::exception&) {
    fs::remove(temp, ec);
    Fail(err::kPathFileAccess, file);
  }
}

std::u16string IniSettingsStore::GetSetting(std::u16string_view app, std::u16string_view section,
                                            std::u16string_view key,
                                            std::u16string_view defaultValue) {
  const std::u16string* value = Load(app).Find(section, key);
  return std::u16string(value ? std::u16string_view(*value) : defaultValue);
}

void IniSettingsStore::SaveSetting(std::u16string_view app, std::u16string_view section,
                                   std::u16string_view key, std::u16string_view value) {
  // Change a copy so that the cache keeps matching the disk when the write fails.
  SettingsSections changed = Load(app);
  changed.Set(section, key, value);
  Write(app, changed);
  cache_[CacheKey(app)] = std::move(changed);
}

std::vector<SettingPair> IniSettingsStore::GetAllSettings(std::u16string_view app,
                                                          std::u16string_view section) {
  const SettingsSections::Section* found = Load(app).FindSection(section);
  return found ? found->keys : std::vector<SettingPair>{};
}

void IniSettingsStore::DeleteSetting(std::u16string_view app) {
  // Deleting an application that has nothing stored is not an error: the search history is
  // deleted before every rewrite, including the first one.
  fs::path file = FileOf(app);
  std::error_code ec;
  fs::remove(file, ec);
  if (ec) Fail(err::kPathFileAccess, file);
  cache_[CacheKey(app)] = SettingsSections{};
}

}  // namespace vb
