// vb::SettingsStore: VB's per-user settings (GetSetting, SaveSetting, GetAllSettings,
// DeleteSetting).
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vb {

using SettingPair = std::pair<std::u16string, std::u16string>;  // key, value

// Text values addressed by application, section and key. Names match without regard to ASCII
// letter case, as the registry's keys do; the spelling kept is the one written first. Order is
// the order in which sections and keys were first written.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  // The stored text, or `defaultValue` when the key is absent. Never fails.
  virtual std::u16string GetSetting(std::u16string_view app, std::u16string_view section,
                                    std::u16string_view key, std::u16string_view defaultValue) = 0;
  // Creates or overwrites the key, creating the section as needed.
  virtual void SaveSetting(std::u16string_view app, std::u16string_view section,
                           std::u16string_view key, std::u16string_view value) = 0;
  // Every key of the section with its value, in the store's order; empty when it is absent.
  virtual std::vector<SettingPair> GetAllSettings(std::u16string_view app,
                                                  std::u16string_view section) = 0;
  // Removes everything stored under the application name.
  virtual void DeleteSetting(std::u16string_view app) = 0;
};

// One application's sections, in the order they were first written. Shared by the in-memory
// store and the file-backed one (which keeps one of these per file). Sections and keys are
// found through hash indexes of their folded names, so a section of many thousand keys loads in
// linear time.
class SettingsSections {
 public:
  struct Section {
    std::u16string name;
    std::vector<SettingPair> keys;
    std::unordered_map<std::u16string, std::size_t> index;  // folded key name -> place in keys
  };

  const std::u16string* Find(std::u16string_view section, std::u16string_view key) const;
  const Section* FindSection(std::u16string_view section) const;
  void Set(std::u16string_view section, std::u16string_view key, std::u16string_view value);
  const std::vector<Section>& All() const { return sections_; }
  bool Empty() const { return sections_.empty(); }

 private:
  std::vector<Section> sections_;
  std::unordered_map<std::u16string, std::size_t> index_;  // folded section name -> place
};

// ASCII-case-insensitive equality of two names.
bool SameSettingName(std::u16string_view a, std::u16string_view b);

// Everything in memory: the store of tests and of runs that must leave no trace on disk.
class MemorySettingsStore : public SettingsStore {
 public:
  std::u16string GetSetting(std::u16string_view app, std::u16string_view section,
                            std::u16string_view key, std::u16string_view defaultValue) override;
  void SaveSetting(std::u16string_view app, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) override;
  std::vector<SettingPair> GetAllSettings(std::u16string_view app,
                                          std::u16string_view section) override;
  void DeleteSetting(std::u16string_view app) override;

 private:
  std::vector<std::pair<std::u16string, SettingsSections>> apps_;
  SettingsSections* FindApp(std::u16string_view app);
};

}  // namespace vb
