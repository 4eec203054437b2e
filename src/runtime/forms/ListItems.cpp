// ListItems and ListItem: rows, keys, sub-items, selection and text sorting.
#include "runtime/forms/ListItems.h"

#include <algorithm>

#include "runtime/CaseFold.h"
#include "runtime/FoldTable.h"
#include "runtime/Utf.h"
#include "runtime/forms/ControlError.h"
#include "runtime/forms/ControlPeer.h"
#include "runtime/forms/ImageList.h"
#include "runtime/forms/ListView.h"

namespace vb {

// ListItem

void ListItem::Changed() {
  owner_->RowChanged(*this);
}

void ListItem::SetKey(std::u16string value) {
  owner_->Rekey(*this, std::move(value));
}

void ListItem::SetText(std::u16string value) {
  text_ = std::move(value);
  Changed();
}

const std::u16string& ListItem::SubItems(int index) const {
  if (index < 1 || index >= owner_->view_.ColumnHeaders().Count()) {
    throw ctlerr::IndexOutOfBounds(u"SubItems(" + FromUtf8(std::to_string(index)) + u")");
  }
  static const std::u16string kEmpty;
  return static_cast<std::size_t>(index) < subItems_.size() ? subItems_[index] : kEmpty;
}

void ListItem::SetSubItems(int index, std::u16string value) {
  SubItems(index);  // the range check
  if (subItems_.size() <= static_cast<std::size_t>(index)) {
    // Room for every column at once: rows are filled column by column.
    subItems_.reserve(static_cast<std::size_t>(owner_->view_.ColumnHeaders().Count()));
    subItems_.resize(index + 1);
  }
  subItems_[index] = std::move(value);
  Changed();
}

void ListItem::SetSmallIcon(std::u16string value) {
  auto* images = owner_->view_.SmallIcons();
  if (images && !value.empty() && !images->Exists(value)) {
    throw ctlerr::ElementNotFound(u"SmallIcon \"" + value + u"\"");
  }
  smallIcon_ = std::move(value);
  Changed();
}

void ListItem::SetSelected(bool value) {
  if (value == selected_) return;
  if (value) owner_->Selecting(*this);
  selected_ = value;
  if (!value && owner_->view_.selected_ == this) owner_->view_.selected_ = nullptr;
  Changed();
}

int ListItem::Index() const {
  owner_->Settle();
  return static_cast<int>(position_) + 1;
}

// ListItems

ListItem& ListItems::Add(int index, std::u16string key, std::u16string text, std::u16string icon,
                         std::u16string smallIcon) {
  if (index < 0 || index > Count() + 1) throw ctlerr::IndexOutOfBounds(u"ListItems.Add");
  auto* images = view_.SmallIcons();
  if (images && !smallIcon.empty() && !images->Exists(smallIcon)) {
    throw ctlerr::ElementNotFound(u"SmallIcon \"" + smallIcon + u"\"");
  }
  auto item = std::make_unique<ListItem>();
  item->owner_ = this;
  item->key_ = std::move(key);
  item->text_ = std::move(text);
  item->icon_ = std::move(icon);
  item->smallIcon_ = std::move(smallIcon);
  ListItem& added = *item;
  if (!added.key_.empty() && !keys_.Insert(&added)) throw ctlerr::KeyNotUnique(added.key_);
  bool sorted = view_.Sorted();
  std::size_t at = (index == 0 || sorted) ? items_.size() : static_cast<std::size_t>(index - 1);
  if (!sorted) Settle();
  items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(at), std::move(item));
  if (sorted) {
    unsorted_ = true;
    added.position_ = at;
    // Announced where it lies now, at the end; the sort that settles it resets the rows.
    if (auto* p = view_.Peer()) p->RowsInserted(static_cast<int>(at), 1);
  } else {
    Renumber(at);
    if (auto* p = view_.Peer()) p->RowsInserted(static_cast<int>(at), 1);
  }
  return added;
}

void ListItems::Remove(int index) {
  ListItem& item = Item(index);
  if (view_.selected_ == &item) view_.selected_ = nullptr;
  if (view_.editing_ == &item) view_.editing_ = nullptr;
  if (!item.key_.empty()) keys_.Erase(&item);
  items_.erase(items_.begin() + (index - 1));
  Renumber(static_cast<std::size_t>(index - 1));
  if (auto* p = view_.Peer()) p->RowsRemoved(index - 1, 1);
}

void ListItems::Clear() {
  view_.selected_ = nullptr;
  view_.editing_ = nullptr;
  keys_.Clear();
  items_.clear();
  unsorted_ = false;
  if (auto* p = view_.Peer()) p->RowsReset();
}

ListItem& ListItems::Item(int index) {
  if (index < 1 || index > Count()) {
    throw ctlerr::IndexOutOfBounds(u"ListItems(" + FromUtf8(std::to_string(index)) + u")");
  }
  Settle();
  return *items_[index - 1];
}

ListItem& ListItems::Item(std::u16string_view key) {
  if (auto* item = Find(key)) return *item;
  throw ctlerr::ElementNotFound(u"ListItems(\"" + std::u16string(key) + u"\")");
}

ListItem* ListItems::Find(std::u16string_view key) const {
  if (key.empty()) return nullptr;
  return keys_.Find(key);
}

void ListItems::Rekey(ListItem& item, std::u16string key) {
  if (!key.empty()) {
    ListItem* holder = keys_.Find(key);
    if (holder && holder != &item) throw ctlerr::KeyNotUnique(key);
  }
  if (!item.key_.empty()) keys_.Erase(&item);
  item.key_ = std::move(key);
  if (!item.key_.empty()) keys_.Insert(&item);
}

void ListItems::Selecting(ListItem& item) {
  if (!view_.MultiSelect() && view_.selected_ && view_.selected_ != &item) {
    view_.selected_->selected_ = false;
    RowChanged(*view_.selected_);
  }
  view_.selected_ = &item;
}

void ListItems::RowChanged(const ListItem& item) {
  if (auto* p = view_.Peer(); p && !unsorted_) p->RowChanged(static_cast<int>(item.position_));
}

void ListItems::Renumber(std::size_t from) {
  for (std::size_t i = from; i < items_.size(); ++i) items_[i]->position_ = i;
}

void ListItems::Settle() {
  if (!unsorted_) return;
  unsorted_ = false;
  Sort();
}

void ListItems::Sort() {
  // The control's sort compares the column's text ignoring case, so "10" comes before "9".
  int column = view_.SortKey();
  bool descending = view_.SortOrder() == lvwDescending;
  auto text = [column](const ListItem& item) -> const std::u16string& {
    static const std::u16string kEmpty;
    if (column == 0) return item.text_;
    auto at = static_cast<std::size_t>(column);
    return at < item.subItems_.size() ? item.subItems_[at] : kEmpty;
  };
  std::vector<std::pair<std::u16string, std::unique_ptr<ListItem>>> keyed;
  keyed.reserve(items_.size());
  for (auto& item : items_) keyed.emplace_back(FoldCase(text(*item)), std::move(item));
  std::stable_sort(keyed.begin(), keyed.end(), [descending](const auto& a, const auto& b) {
    return descending ? b.first < a.first : a.first < b.first;
  });
  for (std::size_t i = 0; i < keyed.size(); ++i) items_[i] = std::move(keyed[i].second);
  Renumber(0);
  if (auto* p = view_.Peer()) p->RowsReset();
}

}  // namespace vb
