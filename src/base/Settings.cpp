// The add-in's typed view of the settings store.
#include "base/Settings.h"

#include <algorithm>

namespace quillmark::options {

std::u16string Settings::Text(const Key& key) const {
  return store_.GetSetting(kApp, key.section, key.name, key.defaultValue);
}

std::int32_t Settings::Whole(const Key& key) const {
  return WholeOf(Text(key));
}

std::int16_t Settings::Short(const Key& key) const {
  return ShortOf(Text(key));
}

bool Settings::Flag(const Key& key) const {
  return FlagOf(Text(key));
}

bool Settings::WordBoolean(const Key& key) const {
  return WordBooleanOf(Text(key));
}

void Settings::Write(const Key& key, std::u16string_view text) {
  store_.SaveSetting(kApp, key.section, key.name, text);
}

std::vector<std::pair<int, std::u16string>> Settings::RecentSearches() const {
  std::vector<std::pair<int, std::u16string>> entries;
  for (auto& [name, text] : store_.GetAllSettings(kHistoryApp, SearchHistory::kSection))
    entries.emplace_back(RecentPositionOf(name), std::move(text));
  return entries;
}

void Settings::SaveRecentSearches(const std::vector<std::u16string>& texts) {
  store_.DeleteSetting(kHistoryApp);
  auto count = std::min<std::size_t>(texts.size(), SearchHistory::kMaxEntries);
  for (std::size_t i = 0; i < count; ++i)
    store_.SaveSetting(kHistoryApp, SearchHistory::kSection, RecentKeyName(static_cast<int>(i + 1)),
                       texts[i]);
}

}  // namespace quillmark::options
