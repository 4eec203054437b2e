// vb::ListControl: the list that combo boxes and list boxes share (List, ItemData, Sorted ...).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "runtime/forms/Control.h"

namespace vb {

// Entries count from 0, as List(i) does; ListIndex -1 means none. With Sorted, AddItem puts an
// entry in text order ignoring case (an index passed to AddItem is then ignored, as the control
// ignores it), after entries that compare equal.
class ListControl : public Control {
 public:
  using Control::Control;

  int ListCount() const { return static_cast<int>(entries_.size()); }
  const std::u16string& List(int index) const;
  void SetList(int index, std::u16string text);
  std::int32_t ItemData(int index) const;
  void SetItemData(int index, std::int32_t value);
  int NewIndex() const { return newIndex_; }
  bool Sorted() const { return sorted_; }
  void SetSorted(bool value) { sorted_ = value; }  // design-time in VB: affects later AddItems

  // -1 appends; 0..ListCount inserts there; anything else raises error 5.
  void AddItem(std::u16string text, int index = -1);
  void RemoveItem(int index);
  void Clear();

  int ListIndex() const { return listIndex_; }
  // Selects the entry (-1 for none) and raises Click, whether or not it changed (VB does).
  virtual void SetListIndex(int index);

  // The user picks entry `index` from the list.
  void UserPick(int index);

 protected:
  struct Entry {
    std::u16string text;
    std::int32_t itemData = 0;
    bool selected = false;
  };
  void CheckIndex(int index, const char16_t* what) const;
  virtual void OnListIndexChanged() {}
  virtual void OnEntryRemoved(int /*index*/) {}
  virtual void OnCleared() {}
  void NotifyRows(int first, int count, bool inserted);
  std::vector<Entry> entries_;
  int listIndex_ = -1;

 private:
  int newIndex_ = -1;
  bool sorted_ = false;
};

}  // namespace vb
