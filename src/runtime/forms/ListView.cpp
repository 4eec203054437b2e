// ListView: properties, selection, sorting, label editing and the user's actions on rows.
#include "runtime/forms/ListView.h"

#include <utility>

#include "runtime/Runtime.h"
#include "runtime/ScriptError.h"
#include "runtime/Utf.h"
#include "runtime/forms/ControlError.h"
#include "runtime/forms/ControlPeer.h"

namespace vb {

ListView::ListView(FormBase& owner, std::u16string name, int index)
    : Control(owner, std::move(name), index), items_(*this), columns_([this] {
        if (auto* p = Peer()) p->ColumnsChanged();
      }) {
  GetRuntime().Windows().SetMessageHandler(
      hWnd(), [this](int m, std::intptr_t w, std::intptr_t l) { return OnMessage(m, w, l); });
}

std::intptr_t ListView::OnMessage(int message, std::intptr_t wParam, std::intptr_t lParam) {
  if (message == kLvmGetExtendedListViewStyle) return exStyle_;
  if (message != kLvmSetExtendedListViewStyle) return 0;
  // wParam is the mask of bits to change; 0 means all of them.
  int previous = exStyle_;
  auto mask = wParam == 0 ? ~0 : static_cast<int>(wParam);
  exStyle_ = (exStyle_ & ~mask) | (static_cast<int>(lParam) & mask);
  Notify(Property::ExtendedStyle);
  return previous;
}

void ListView::SetView(int value) {
  if (value < 0 || value > 3) throw ctlerr::InvalidPropertyValue(Name() + u".View");
  view_ = value;
  Notify(Property::View);
}

void ListView::SetMultiSelect(bool value) {
  multiSelect_ = value;
  Notify(Property::MultiSelect);
}

void ListView::SetLabelEdit(int value) {
  if (value != 0 && value != 1) throw ctlerr::InvalidPropertyValue(Name() + u".LabelEdit");
  labelEdit_ = value;
}

void ListView::SetSmallIcons(ImageList* images) {
  smallIcons_ = images;
  Notify(Property::SmallIcons);
}

void ListView::SortNow() {
  if (!sorted_) return;
  items_.unsorted_ = false;
  items_.Sort();
}

void ListView::SetSorted(bool value) {
  if (!value) items_.Settle();  // rows added while sorted keep their sorted places
  sorted_ = value;
  SortNow();
}

void ListView::SetSortKey(int value) {
  if (value < 0) throw ctlerr::InvalidPropertyValue(Name() + u".SortKey");
  sortKey_ = value;
  SortNow();
}

void ListView::SetSortOrder(int value) {
  if (value != lvwAscending && value != lvwDescending) {
    throw ctlerr::InvalidPropertyValue(Name() + u".SortOrder");
  }
  sortOrder_ = value;
  SortNow();
}

void ListView::SetSelectedItem(ListItem* item) {
  if (!item) {
    if (selected_) selected_->SetSelected(false);
    selected_ = nullptr;
    return;
  }
  item->SetSelected(true);
  selected_ = item;
}

void ListView::StartLabelEdit() {
  if (!selected_) throw ctlerr::InvalidProcedureCall(Name() + u".StartLabelEdit");
  int cancel = 0;
  Raise(BeforeLabelEdit, cancel);
  editing_ = cancel == 0 ? selected_ : nullptr;
  if (editing_) Notify(Property::EditingItem);
}

bool ListView::Commit(std::u16string newText) {
  ListItem* item = std::exchange(editing_, nullptr);
  if (!item) return false;
  int cancel = 0;
  Raise(AfterLabelEdit, cancel, newText);
  // A refused edit leaves the label as it was.
  if (cancel == 0) item->SetText(std::move(newText));
  return cancel == 0;
}

void ListView::UserSelectRows(const std::vector<int>& rows) {
  Dispatch([&] {
    if (!HasFocus() && IsUsable()) SetFocus();
    if (multiSelect_) {
      for (int i = 1; i <= items_.Count(); ++i) items_.Item(i).SetSelected(false);
    }
    ListItem* last = nullptr;
    for (int row : rows) {
      last = &items_.Item(row);
      last->SetSelected(true);
    }
    if (last) Raise(ItemClick, *last);
    Raise(Click);
  });
}

void ListView::UserDblClickRow(int row) {
  UserSelectRows({row});
  Dispatch([this] { Raise(DblClick); });
}

void ListView::UserColumnClick(int column) {
  Dispatch([&] { Raise(ColumnClick, columns_.Item(column)); });
}

void ListView::UserEditLabel(int row, std::u16string newText) {
  if (labelEdit_ != 0) {
    throw ScriptError(ToUtf8(Name()) +
                      " edits labels only through StartLabelEdit (LabelEdit is manual)");
  }
  UserSelectRows({row});
  Dispatch([&] {
    StartLabelEdit();
    Commit(std::move(newText));
  });
}

void ListView::UserCommitLabel(std::u16string newText) {
  if (!editing_) throw ScriptError(ToUtf8(Name()) + " has no label edit in progress");
  Dispatch([&] { Commit(std::move(newText)); });
}

void ListView::UserCancelLabelEdit() {
  editing_ = nullptr;
}

}  // namespace vb
