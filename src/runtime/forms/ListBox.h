// vb::ListBox: a list, plain or with a check box per entry (Style 1), single or multi-select.
#pragma once

#include <functional>
#include <string>

#include "runtime/forms/ListControl.h"

namespace vb {

// Selected(i) is the highlight in a plain list and the check mark in a check-box list (where
// ListIndex is the highlighted entry, apart from the checks). Without MultiSelect a plain list
// has one selected entry, the one at ListIndex.
class ListBox : public ListControl {
 public:
  ListBox(FormBase& owner, std::u16string name, int index = -1)
      : ListControl(owner, std::move(name), index) {}
  std::u16string_view TypeName() const override { return u"ListBox"; }

  int Style() const { return style_; }
  void SetStyle(int value);
  int MultiSelect() const { return multiSelect_; }
  void SetMultiSelect(int value);  // 0 none, 1 simple, 2 extended
  bool Selected(int index) const;
  // In a check-box list this checks or unchecks the entry and raises ItemCheck.
  void SetSelected(int index, bool value);
  int SelCount() const;
  const std::u16string& Text() const { return List(listIndex_); }

  std::function<void(int item)> ItemCheck;

  // The user ticks or clears the check box of entry `index` (check-box style).
  void UserCheck(int index, bool checked);

 protected:
  void OnListIndexChanged() override;

 private:
  int style_ = 0;
  int multiSelect_ = 0;
};

}  // namespace vb
