// vb::TabStrip: tabs with Key, Caption and Index (from 1); choosing one raises Click.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/forms/Control.h"

namespace vb {

struct Tab {
  std::u16string key;
  std::u16string caption;
  std::u16string toolTipText;
  std::u16string tag;
  int index = 0;  // from 1
};

// Tabs(i) out of range raises 35600, Tabs(key) with an unknown key 35601 (so selecting a tab
// the strip lacks fails and the selection stays). The first tab added is selected. Setting
// SelectedItem to another tab raises Click, by code as by the user, as the control does.
class TabStrip : public Control {
 public:
  TabStrip(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index) {}
  std::u16string_view TypeName() const override { return u"TabStrip"; }

  Tab& Add(int index = 0, std::u16string key = {}, std::u16string caption = {});
  void Remove(int index);
  void Clear();
  int Count() const { return static_cast<int>(tabs_.size()); }
  Tab& Tabs(int index) const;
  Tab& Tabs(std::u16string_view key) const;

  Tab* SelectedItem() const { return selected_; }
  void SetSelectedItem(Tab& tab);

  // The user chooses tab `index` (from 1).
  void UserSelectTab(int index);

 private:
  void Renumber();
  std::vector<std::unique_ptr<Tab>> tabs_;
  Tab* selected_ = nullptr;
};

}  // namespace vb
