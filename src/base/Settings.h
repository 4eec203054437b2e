// quillmark::options::Settings: the add-in's typed view of the settings store.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/SettingsVocabulary.h"
#include "runtime/SettingsStore.h"

namespace quillmark::options {

// Reads and writes the keys of SettingsVocabulary.h under application kApp, applying their
// reading rules and defaults; the search history lives under kHistoryApp. Holds no values
// itself, so two Settings over one store always agree.
class Settings {
 public:
  explicit Settings(vb::SettingsStore& store) : store_(store) {}

  std::u16string Text(const Key& key) const;
  std::int32_t Whole(const Key& key) const;
  std::int16_t Short(const Key& key) const;
  bool Flag(const Key& key) const;
  bool WordBoolean(const Key& key) const;
  bool AutoSave() const { return AutoSaveIsOn(Text(Options::kAutoSave)); }

  void Write(const Key& key, std::u16string_view text);
  void WriteWhole(const Key& key, std::int64_t value) { Write(key, NumberText(value)); }
  void WriteFlag(const Key& key, bool value) { Write(key, FlagText(value)); }
  void WriteWordBoolean(const Key& key, bool value) { Write(key, WordBooleanText(value)); }

  // The stored history as (1-based list position, text), in the store's order. A key whose
  // number is missing gives position 0; the caller decides what such an entry means.
  std::vector<std::pair<int, std::u16string>> RecentSearches() const;
  // Replaces the whole history: the application is deleted, then at most kMaxEntries texts are
  // written as Recent1, Recent2, ... in the order given.
  void SaveRecentSearches(const std::vector<std::u16string>& texts);

 private:
  vb::SettingsStore& store_;
};

}  // namespace quillmark::options
