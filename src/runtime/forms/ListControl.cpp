// The list behind combo and list boxes.
#include "runtime/forms/ListControl.h"

#include <algorithm>

#include "runtime/CaseFold.h"
#include "runtime/forms/ControlError.h"
#include "runtime/forms/ControlPeer.h"

namespace vb {
namespace {

// The list's text order: case ignored, then code units, as the control compares.
bool TextLess(std::u16string_view a, std::u16string_view b) {
  return FoldCase(a) < FoldCase(b);
}

}  // namespace

void ListControl::CheckIndex(int index, const char16_t* what) const {
  if (index < 0 || index >= ListCount()) {
    throw ctlerr::InvalidArrayIndex(Name() + u"." + what);
  }
}

const std::u16string& ListControl::List(int index) const {
  // VB answers "" for List(i) past the end instead of failing.
  static const std::u16string kEmpty;
  if (index < 0 || index >= ListCount()) return kEmpty;
  return entries_[index].text;
}

void ListControl::SetList(int index, std::u16string text) {
  CheckIndex(index, u"List");
  entries_[index].text = std::move(text);
  if (auto* p = Peer()) p->RowChanged(index);
}

std::int32_t ListControl::ItemData(int index) const {
  CheckIndex(index, u"ItemData");
  return entries_[index].itemData;
}

void ListControl::SetItemData(int index, std::int32_t value) {
  CheckIndex(index, u"ItemData");
  entries_[index].itemData = value;
}

void ListControl::NotifyRows(int first, int count, bool inserted) {
  auto* p = Peer();
  if (!p) return;
  if (inserted) {
    p->RowsInserted(first, count);
  } else {
    p->RowsRemoved(first, count);
  }
}

void ListControl::AddItem(std::u16string text, int index) {
  if (index < -1 || index > ListCount()) throw ctlerr::InvalidProcedureCall(Name() + u".AddItem");
  int at = index == -1 ? ListCount() : index;
  if (sorted_) {
    auto it = std::upper_bound(
        entries_.begin(), entries_.end(), text,
        [](const std::u16string& t, const Entry& e) { return TextLess(t, e.text); });
    at = static_cast<int>(it - entries_.begin());
  }
  entries_.insert(entries_.begin() + at, Entry{std::move(text)});
  if (listIndex_ >= at) ++listIndex_;
  newIndex_ = at;
  NotifyRows(at, 1, true);
}

void ListControl::RemoveItem(int index) {
  if (index < 0 || index >= ListCount())
    throw ctlerr::InvalidProcedureCall(Name() + u".RemoveItem");
  entries_.erase(entries_.begin() + index);
  if (listIndex_ == index) {
    listIndex_ = -1;
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  OnEntryRemoved(index);
  NotifyRows(index, 1, false);
}

void ListControl::Clear() {
  entries_.clear();
  listIndex_ = -1;
  newIndex_ = -1;
  OnCleared();
  if (auto* p = Peer()) p->RowsReset();
}

void ListControl::SetListIndex(int index) {
  if (index < -1 || index >= ListCount())
    throw ctlerr::InvalidPropertyValue(Name() + u".ListIndex");
  listIndex_ = index;
  OnListIndexChanged();
  Notify(Property::ListIndex);
  Raise(Click);
}

void ListControl::UserPick(int index) {
  Dispatch([&] {
    if (TakesFocusOnClick() && IsUsable() && !HasFocus()) SetFocus();
    SetListIndex(index);
  });
}

}  // namespace vb
