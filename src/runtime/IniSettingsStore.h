// vb::IniSettingsStore: the settings store kept as one UTF-8 file per application on disk.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/AtomicWriter.h"
#include "runtime/SettingsStore.h"

namespace vb {

// The per-user folder: $QUILLMARK_HOME, else ${XDG_CONFIG_HOME:-$HOME/.config}/quillmark, from
// the three variables' values (empty when unset). With all three empty there is no such folder
// (the current folder is nobody's settings folder): vb::Error 76 says which variables to set.
// The composition root passes the result in.
std::filesystem::path DefaultUserFolder(std::string_view quillmarkHome,
                                        std::string_view xdgConfigHome, std::string_view home);
// The same, from this process's environment.
std::filesystem::path DefaultUserFolderFromEnvironment();

// Files are <folder>/settings/<application>.ini (the text form is in SettingsIni.h). Each file
// is read once and then served from memory; every write replaces the whole file through the
// AtomicWriter, so a failed write leaves the old file and the values read before it. A damaged
// file gives the keys that could be read, is reported once, and is never lost: the first write
// (or delete) of its application keeps it beside the new one as "<application>.ini.damaged".
// Write failures raise vb::Error 75 (76 when the folder cannot be made) naming the file and why.
class IniSettingsStore : public SettingsStore {
 public:
  explicit IniSettingsStore(std::filesystem::path userFolder,
                            std::shared_ptr<const AtomicWriter> writer = nullptr);

  std::u16string GetSetting(std::u16string_view app, std::u16string_view section,
                            std::u16string_view key, std::u16string_view defaultValue) override;
  void SaveSetting(std::u16string_view app, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) override;
  std::vector<SettingPair> GetAllSettings(std::u16string_view app,
                                          std::u16string_view section) override;
  void DeleteSetting(std::u16string_view app) override;

  // "file:line: what is wrong", one entry per damaged file, in the order they were found.
  const std::vector<std::string>& Problems() const { return problems_; }
  // The problems not taken before, so that a front end shows each one once.
  std::vector<std::string> TakeProblems();

  // The file that holds `app`. Characters a file name cannot hold are written as %XX.
  std::filesystem::path FileOf(std::u16string_view app) const;

 private:
  const SettingsSections& Load(std::u16string_view app);
  void Write(std::u16string_view app, const SettingsSections& sections);
  // Keeps a damaged file of `app` as "<file>.damaged" before it is replaced or removed.
  void KeepDamaged(std::u16string_view app);

  std::filesystem::path folder_;
  std::shared_ptr<const AtomicWriter> writer_;
  std::map<std::u16string, SettingsSections> cache_;  // by ASCII-lower-cased application name
  std::map<std::u16string, std::string> damaged_;     // the same key -> the damaged file's bytes
  std::vector<std::string> problems_;
  std::size_t problemsTaken_ = 0;
};

}  // namespace vb
