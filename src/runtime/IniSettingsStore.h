// vb::IniSettingsStore: the settings store kept as one UTF-8 file per application on disk.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/SettingsStore.h"

namespace vb {

// The per-user folder: $QUILLMARK_HOME, else ${XDG_CONFIG_HOME:-$HOME/.config}/quillmark, from
// the three variables' values (empty when unset). The composition root passes the result in.
std::filesystem::path DefaultUserFolder(std::string_view quillmarkHome,
                                        std::string_view xdgConfigHome, std::string_view home);
// The same, from this process's environment.
std::filesystem::path DefaultUserFolderFromEnvironment();

// Files are <folder>/settings/<application>.ini (the text form is in SettingsIni.h). Each file
// is read once and then served from memory; every write replaces the whole file atomically
// (a temporary file in the same folder, flushed, then renamed over the old one), so a failed
// write leaves the old file and the values read before it. A damaged file reads as empty, is
// reported once through Problems(), and stays on disk untouched until the application is
// written to. Write failures raise vb::Error 75 (or 76 when the folder cannot be made) naming
// the file.
class IniSettingsStore : public SettingsStore {
 public:
  explicit IniSettingsStore(std::filesystem::path userFolder);

  std::u16string GetSetting(std::u16string_view app, std::u16string_view section,
                            std::u16string_view key, std::u16string_view defaultValue) override;
  void SaveSetting(std::u16string_view app, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) override;
  std::vector<SettingPair> GetAllSettings(std::u16string_view app,
                                          std::u16string_view section) override;
  void DeleteSetting(std::u16string_view app) override;

  // "file:line: what is wrong", one entry per damaged file, in the order they were found.
  const std::vector<std::string>& Problems() const { return problems_; }

  // The file that holds `app`. Characters a file name cannot hold are written as %XX.
  std::filesystem::path FileOf(std::u16string_view app) const;

 protected:
  // The last step of an atomic write; tests replace it to simulate a failing rename.
  virtual void ReplaceFile(const std::filesystem::path& from, const std::filesystem::path& to);

 private:
  const SettingsSections& Load(std::u16string_view app);
  void Write(std::u16string_view app, const SettingsSections& sections);

  std::filesystem::path folder_;
  std::map<std::u16string, SettingsSections> cache_;  // by ASCII-lower-cased application name
  std::vector<std::string> problems_;
};

}  // namespace vb
