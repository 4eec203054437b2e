// The in-memory settings store and the ordered section model shared with the file-backed one.
#include "runtime/SettingsStore.h"

#include <algorithm>
#include <utility>

namespace vb {

namespace {
char16_t FoldAscii(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}
}  // namespace

bool SameSettingName(std::u16string_view a, std::u16string_view b) {
  return std::ranges::equal(a, b,
                            [](char16_t x, char16_t y) { return FoldAscii(x) == FoldAscii(y); });
}

namespace {
std::u16string Folded(std::u16string_view name) {
  std::u16string folded(name);
  for (char16_t& unit : folded) unit = FoldAscii(unit);
  return folded;
}
}  // namespace

const SettingsSections::Section* SettingsSections::FindSection(std::u16string_view section) const {
  auto it = index_.find(Folded(section));
  return it == index_.end() ? nullptr : &sections_[it->second];
}

const std::u16string* SettingsSections::Find(std::u16string_view section,
                                             std::u16string_view key) const {
  const Section* found = FindSection(section);
  if (!found) return nullptr;
  auto it = found->index.find(Folded(key));
  return it == found->index.end() ? nullptr : &found->keys[it->second].second;
}

void SettingsSections::Set(std::u16string_view section, std::u16string_view key,
                           std::u16string_view value) {
  auto [place, newSection] = index_.try_emplace(Folded(section), sections_.size());
  if (newSection) sections_.push_back(Section{std::u16string(section), {}, {}});
  Section& target = sections_[place->second];
  auto [slot, newKey] = target.index.try_emplace(Folded(key), target.keys.size());
  if (!newKey) {
    target.keys[slot->second].second = value;
    return;
  }
  target.keys.emplace_back(std::u16string(key), std::u16string(value));
}

SettingsSections* MemorySettingsStore::FindApp(std::u16string_view app) {
  auto it = std::ranges::find_if(
      apps_, [&](const auto& entry) { return SameSettingName(entry.first, app); });
  return it == apps_.end() ? nullptr : &it->second;
}

std::u16string MemorySettingsStore::GetSetting(std::u16string_view app, std::u16string_view section,
                                               std::u16string_view key,
                                               std::u16string_view defaultValue) {
  const SettingsSections* sections = FindApp(app);
  const std::u16string* value = sections ? sections->Find(section, key) : nullptr;
  return std::u16string(value ? std::u16string_view(*value) : defaultValue);
}

void MemorySettingsStore::SaveSetting(std::u16string_view app, std::u16string_view section,
                                      std::u16string_view key, std::u16string_view value) {
  SettingsSections* sections = FindApp(app);
  if (!sections) sections = &apps_.emplace_back(std::u16string(app), SettingsSections{}).second;
  sections->Set(section, key, value);
}

std::vector<SettingPair> MemorySettingsStore::GetAllSettings(std::u16string_view app,
                                                             std::u16string_view section) {
  const SettingsSections* sections = FindApp(app);
  const SettingsSections::Section* found = sections ? sections->FindSection(section) : nullptr;
  return found ? found->keys : std::vector<SettingPair>{};
}

void MemorySettingsStore::DeleteSetting(std::u16string_view app) {
  std::erase_if(apps_, [&](const auto& entry) { return SameSettingName(entry.first, app); });
}

}  // namespace vb
