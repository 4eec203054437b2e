// cli::RecordingSettings: a settings store that passes everything to another and remembers what
// was written, so the tour can show the settings the add-in wrote.
#pragma once

#include <memory>
#include <vector>

#include "runtime/SettingsStore.h"

namespace cli {

class RecordingSettings final : public vb::SettingsStore {
 public:
  struct Write {
    std::u16string app, section, key, value;
  };
  explicit RecordingSettings(std::shared_ptr<vb::SettingsStore> store) : store_(std::move(store)) {}

  std::u16string GetSetting(std::u16string_view app, std::u16string_view section,
                            std::u16string_view key, std::u16string_view defaultValue) override {
    return store_->GetSetting(app, section, key, defaultValue);
  }
  void SaveSetting(std::u16string_view app, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) override {
    store_->SaveSetting(app, section, key, value);
    writes_.push_back(
        {std::u16string(app), std::u16string(section), std::u16string(key), std::u16string(value)});
  }
  std::vector<vb::SettingPair> GetAllSettings(std::u16string_view app,
                                              std::u16string_view section) override {
    return store_->GetAllSettings(app, section);
  }
  void DeleteSetting(std::u16string_view app) override { store_->DeleteSetting(app); }

  const std::vector<Write>& Writes() const { return writes_; }
  void Clear() { writes_.clear(); }

 private:
  std::shared_ptr<vb::SettingsStore> store_;
  std::vector<Write> writes_;
};

}  // namespace cli
