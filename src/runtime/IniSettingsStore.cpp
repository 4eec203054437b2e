// The file-backed settings store: reading once, writing atomically, reporting damaged files.
#include "runtime/IniSettingsStore.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
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

[[noreturn]] void Fail(int number, const fs::path& path, const std::error_code& why) {
  throw Error::Standard(number, PathText(path) + u" (" + FromUtf8(why.message()) + u")");
}

// The file's bytes, or the reason they cannot be had.
std::optional<std::string> ReadWholeFile(const fs::path& file, std::string& why) {
  std::error_code ec;
  if (!fs::is_regular_file(file, ec)) {
    why = ec ? ec.message() : "not a regular file";
    return std::nullopt;
  }
  std::ifstream in(file, std::ios::binary);
  if (!in) {
    why = std::generic_category().message(errno);
    return std::nullopt;
  }
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) {
    why = "read error";
    return std::nullopt;
  }
  return bytes;
}

// "<file>.damaged", or "<file>.damaged2", ... when an older damaged copy is already kept.
fs::path FreeDamagedName(const fs::path& file) {
  std::error_code ec;
  for (int n = 1;; ++n) {
    fs::path candidate = file;
    candidate += n == 1 ? std::string(".damaged") : ".damaged" + std::to_string(n);
    if (!fs::exists(candidate, ec) && !fs::is_symlink(candidate, ec)) return candidate;
  }
}

}  // namespace

fs::path DefaultUserFolder(std::string_view quillmarkHome, std::string_view xdgConfigHome,
                           std::string_view home) {
  if (!quillmarkHome.empty()) return fs::path(quillmarkHome);
  if (!xdgConfigHome.empty()) return fs::path(xdgConfigHome) / "quillmark";
  if (home.empty())
    throw Error::Standard(err::kPathNotFound,
                          u"no folder for the settings: QUILLMARK_HOME, XDG_CONFIG_HOME and HOME "
                          u"are all unset");
  return fs::path(home) / ".config" / "quillmark";
}

fs::path DefaultUserFolderFromEnvironment() {
  auto value = [](const char* name) -> std::string_view {
    const char* text = std::getenv(name);
    return text ? text : "";
  };
  return DefaultUserFolder(value("QUILLMARK_HOME"), value("XDG_CONFIG_HOME"), value("HOME"));
}

IniSettingsStore::IniSettingsStore(fs::path userFolder, std::shared_ptr<const AtomicWriter> writer)
    : folder_(std::move(userFolder)),
      writer_(writer ? std::move(writer) : std::make_shared<AtomicWriter>()) {}

std::vector<std::string> IniSettingsStore::TakeProblems() {
  std::vector<std::string> fresh(problems_.begin() + static_cast<std::ptrdiff_t>(problemsTaken_),
                                 problems_.end());
  problemsTaken_ = problems_.size();
  return fresh;
}

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
  if (!fs::exists(file, ec) && !ec) return entry;
  std::string why;
  std::optional<std::string> bytes = ReadWholeFile(file, why);
  if (!bytes) {
    problems_.push_back(file.string() + ": cannot be read (" + why + "); using the defaults");
    return entry;
  }
  SettingsIniParse parsed = ParseSettingsIni(*bytes);
  entry = std::move(parsed.sections);
  if (parsed.problem) {
    std::string more = parsed.damagedLines > 1
                           ? " (and " + std::to_string(parsed.damagedLines - 1) + " more line(s))"
                           : "";
    problems_.push_back(
        file.string() + ":" + std::to_string(parsed.problem->line) + ": " +
        parsed.problem->message + more + "; the other keys are read, and the file is kept as " +
        FreeDamagedName(file).filename().string() + " when settings are next written");
    damaged_[key] = std::move(*bytes);
  }
  return entry;
}

void IniSettingsStore::KeepDamaged(std::u16string_view app) {
  auto it = damaged_.find(CacheKey(app));
  if (it == damaged_.end()) return;
  writer_->Write(FreeDamagedName(FileOf(app)), it->second);
  damaged_.erase(it);
}

void IniSettingsStore::Write(std::u16string_view app, const SettingsSections& sections) {
  try {
    fs::path file = FileOf(app);
    std::error_code ec;
    fs::create_directories(file.parent_path(), ec);
    if (ec) Fail(err::kPathNotFound, file.parent_path(), ec);
    KeepDamaged(app);
    writer_->Write(file, FormatSettingsIni(sections));
  } catch (const Error& e) {
    // The add-in ignores errors of its settings writes, as VB's SaveSetting callers do; the
    // front end still learns, once, that the settings are not being kept.
    std::string problem = ToUtf8(e.Description()) + "; the settings were not saved";
    if (std::find(problems_.begin(), problems_.end(), problem) == problems_.end())
      problems_.push_back(std::move(problem));
    throw;
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
  KeepDamaged(app);
  std::error_code ec;
  fs::remove(file, ec);
  if (ec) Fail(err::kPathFileAccess, file, ec);
  cache_[CacheKey(app)] = SettingsSections{};
}

}  // namespace vb
