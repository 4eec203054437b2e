// TabStrip: tabs and the selected tab.
#include "runtime/forms/TabStrip.h"

#include "runtime/CaseFold.h"
#include "runtime/Utf.h"
#include "runtime/forms/ControlError.h"

namespace vb {

Tab& TabStrip::Add(int index, std::u16string key, std::u16string caption) {
  if (index < 0 || index > Count() + 1) throw ctlerr::IndexOutOfBounds(Name() + u".Tabs.Add");
  for (const auto& t : tabs_) {
    if (!key.empty() && EqualsText(t->key, key)) throw ctlerr::KeyNotUnique(key);
  }
  auto tab = std::make_unique<Tab>(Tab{std::move(key), std::move(caption), {}, {}, 0});
  auto at = index == 0 ? tabs_.end() : tabs_.begin() + (index - 1);
  Tab& added = **tabs_.insert(at, std::move(tab));
  Renumber();
  if (!selected_) selected_ = &added;
  Notify(Property::Tabs);
  return added;
}

void TabStrip::Remove(int index) {
  Tab& tab = Tabs(index);
  if (selected_ == &tab) selected_ = nullptr;
  tabs_.erase(tabs_.begin() + (index - 1));
  Renumber();
  if (!selected_ && !tabs_.empty()) selected_ = tabs_.front().get();
  Notify(Property::Tabs);
}

void TabStrip::Clear() {
  tabs_.clear();
  selected_ = nullptr;
  Notify(Property::Tabs);
}

Tab& TabStrip::Tabs(int index) const {
  if (index < 1 || index > Count()) {
    throw ctlerr::IndexOutOfBounds(Name() + u".Tabs(" + FromUtf8(std::to_string(index)) + u")");
  }
  return *tabs_[index - 1];
}

Tab& TabStrip::Tabs(std::u16string_view key) const {
  for (const auto& t : tabs_) {
    if (!t->key.empty() && EqualsText(t->key, key)) return *t;
  }
  throw ctlerr::ElementNotFound(Name() + u".Tabs(\"" + std::u16string(key) + u"\")");
}

void TabStrip::SetSelectedItem(Tab& tab) {
  if (selected_ == &tab) return;
  selected_ = &tab;
  Notify(Property::SelectedItem);
  Raise(Click);
}

void TabStrip::UserSelectTab(int index) {
  Dispatch([&] { SetSelectedItem(Tabs(index)); });
}

void TabStrip::Renumber() {
  for (std::size_t i = 0; i < tabs_.size(); ++i) tabs_[i]->index = static_cast<int>(i) + 1;
}

}  // namespace vb
