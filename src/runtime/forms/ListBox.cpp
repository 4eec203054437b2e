// ListBox: selection and check marks.
#include "runtime/forms/ListBox.h"

#include <algorithm>

#include "runtime/ScriptError.h"
#include "runtime/Utf.h"
#include "runtime/forms/ControlError.h"
#include "runtime/forms/ControlPeer.h"

namespace vb {

void ListBox::SetStyle(int value) {
  if (value != 0 && value != 1) throw ctlerr::InvalidPropertyValue(Name() + u".Style");
  style_ = value;
  Notify(Property::Style);
}

void ListBox::SetMultiSelect(int value) {
  if (value < 0 || value > 2) throw ctlerr::InvalidPropertyValue(Name() + u".MultiSelect");
  multiSelect_ = value;
  Notify(Property::MultiSelect);
}

bool ListBox::Selected(int index) const {
  CheckIndex(index, u"Selected");
  return entries_[index].selected;
}

void ListBox::SetSelected(int index, bool value) {
  CheckIndex(index, u"Selected");
  if (style_ == 0 && multiSelect_ == 0) {
    // A single-select list: selecting is choosing the entry; deselecting it leaves none.
    if (value) return SetListIndex(index);
    if (listIndex_ == index) {
      entries_[index].selected = false;
      listIndex_ = -1;
      if (auto* p = Peer()) p->RowChanged(index);
    }
    return;
  }
  if (entries_[index].selected == value) return;
  entries_[index].selected = value;
  if (auto* p = Peer()) p->RowChanged(index);
  if (style_ == 1) Raise(ItemCheck, index);
}

int ListBox::SelCount() const {
  return static_cast<int>(
      std::count_if(entries_.begin(), entries_.end(), [](const Entry& e) { return e.selected; }));
}

void ListBox::OnListIndexChanged() {
  if (style_ != 0 || multiSelect_ != 0) return;
  for (int i = 0; i < ListCount(); ++i) {
    bool selected = i == listIndex_;
    if (entries_[i].selected != selected) {
      entries_[i].selected = selected;
      if (auto* p = Peer()) p->RowChanged(i);
    }
  }
}

void ListBox::UserCheck(int index, bool checked) {
  if (style_ != 1) {
    throw ScriptError(ToUtf8(Name()) + " has no check boxes (Style is not 1)");
  }
  Dispatch([&] {
    SetListIndex(index);
    SetSelected(index, checked);
  });
}

}  // namespace vb
