// ListItems and ListItem: rows, keys, sub-items, selection and text sorting.
#include "runtime/forms/ListItems.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

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

void ListItem::SetKey(std::u16string_view value) {
  owner_->Rekey(*this, value);
}

void ListItem::SetText(std::u16string_view value) {
  text_ = owner_->StoreColumn(0, value);
  Changed();
}

std::u16string_view ListItem::ColumnText(int column) const {
  if (column == 0) return text_;
  auto at = static_cast<std::uint32_t>(column);
  return at < subItemRoom_ ? subItems_[at] : std::u16string_view();
}

std::u16string_view ListItem::SubItems(int index) const {
  if (index < 1 || index >= owner_->view_.ColumnHeaders().Count()) {
    throw ctlerr::IndexOutOfBounds(u"SubItems(" + FromUtf8(std::to_string(index)) + u")");
  }
  return ColumnText(index);
}

void ListItem::SetSubItems(int index, std::u16string_view value) {
  SubItems(index);  // the range check
  auto at = static_cast<std::uint32_t>(index);
  if (at >= subItemRoom_) {
    // Room for every column at once: rows are filled column by column.
    auto room = static_cast<std::uint32_t>(owner_->view_.ColumnHeaders().Count());
    auto* grown = owner_->arena_.Allocate<std::u16string_view>(room);
    std::uninitialized_default_construct_n(grown, room);
    std::copy_n(subItems_, subItemRoom_, grown);
    subItems_ = grown;
    subItemRoom_ = room;
  }
  subItems_[at] = owner_->StoreColumn(at, value);
  Changed();
}

void ListItem::SetTag(std::u16string_view value) {
  tag_ = owner_->arena_.Store(value);
}

void ListItem::SetSmallIcon(std::u16string_view value) {
  owner_->CheckSmallIcon(value);
  smallIcon_ = owner_->StoreShared(owner_->lastSmallIcon_, value);
  Changed();
}

void ListItem::SetIcon(std::u16string_view value) {
  icon_ = owner_->StoreShared(owner_->lastIcon_, value);
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

namespace {

bool SameText(std::u16string_view a, std::u16string_view b) {
  if (a.size() != b.size()) return false;
  return a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
}

}  // namespace

std::u16string_view ListItems::StoreColumn(std::size_t column, std::u16string_view text) {
  if (column >= lastColumnText_.size()) lastColumnText_.resize(column + 1);
  return StoreShared(lastColumnText_[column], text);
}

std::u16string_view ListItems::StoreShared(std::u16string_view& last, std::u16string_view text) {
  if (!SameText(last, text)) last = arena_.Store(text);
  return last;
}

void ListItems::CheckSmallIcon(std::u16string_view key) const {
  auto* images = view_.SmallIcons();
  if (images && !key.empty() && !images->Exists(key)) {
    throw ctlerr::ElementNotFound(u"SmallIcon \"" + std::u16string(key) + u"\"");
  }
}

ListItem& ListItems::Add(int index, std::u16string_view key, std::u16string_view text,
                         std::u16string_view icon, std::u16string_view smallIcon) {
  if (index < 0 || index > Count() + 1) throw ctlerr::IndexOutOfBounds(u"ListItems.Add");
  CheckSmallIcon(smallIcon);
  std::uint64_t keyHash = key.empty() ? 0 : keys_.Prefetch(key);
  ListItem* item;
  if (free_.empty()) {
    auto row = static_cast<std::uint32_t>(rows_.size());
    item = new (arena_.Allocate<ListItem>(1)) ListItem(*this, row);
    rows_.push_back(item);
  } else {
    item = new (free_.back()) ListItem(*this, free_.back()->row_);
    free_.pop_back();
  }
  item->key_ = arena_.Store(key);
  item->text_ = StoreColumn(0, text);
  item->icon_ = StoreShared(lastIcon_, icon);
  item->smallIcon_ = StoreShared(lastSmallIcon_, smallIcon);
  if (!item->key_.empty() && !keys_.Insert(item, keyHash)) {
    free_.push_back(item);
    throw ctlerr::KeyNotUnique(key);
  }
  bool sorted = view_.Sorted();
  std::size_t at = (index == 0 || sorted) ? items_.size() : static_cast<std::size_t>(index - 1);
  if (!sorted) Settle();
  items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(at), item);
  if (sorted) {
    unsorted_ = true;
    item->position_ = static_cast<std::uint32_t>(at);
    // Announced where it lies now, at the end; the sort that settles it resets the rows.
    if (auto* p = view_.Peer()) p->RowsInserted(static_cast<int>(at), 1);
  } else {
    Renumber(at);
    if (auto* p = view_.Peer()) p->RowsInserted(static_cast<int>(at), 1);
  }
  return *item;
}

void ListItems::Remove(int index) {
  ListItem& item = Item(index);
  if (view_.selected_ == &item) view_.selected_ = nullptr;
  if (view_.editing_ == &item) view_.editing_ = nullptr;
  if (!item.key_.empty()) keys_.Erase(&item);
  items_.erase(items_.begin() + (index - 1));
  free_.push_back(&item);
  Renumber(static_cast<std::size_t>(index - 1));
  if (auto* p = view_.Peer()) p->RowsRemoved(index - 1, 1);
}

void ListItems::Clear() {
  view_.selected_ = nullptr;
  view_.editing_ = nullptr;
  keys_.Clear();
  items_.clear();
  rows_.clear();
  free_.clear();
  lastColumnText_.clear();
  lastIcon_ = lastSmallIcon_ = {};
  arena_.Clear();
  unsorted_ = false;
  if (auto* p = view_.Peer()) p->RowsReset();
}

ListItem& ListItems::Item(int index) {
  if (index < 1 || index > Count()) {
    throw ctlerr::IndexOutOfBounds(u"ListItems(" + FromUtf8(std::to_string(index)) + u")");
  }
  Settle();
  return *items_[static_cast<std::size_t>(index - 1)];
}

ListItem& ListItems::Item(std::u16string_view key) {
  if (auto* item = Find(key)) return *item;
  throw ctlerr::ElementNotFound(u"ListItems(\"" + std::u16string(key) + u"\")");
}

ListItem* ListItems::Find(std::u16string_view key) const {
  if (key.empty()) return nullptr;
  return keys_.Find(key);
}

void ListItems::Rekey(ListItem& item, std::u16string_view key) {
  if (!key.empty()) {
    ListItem* holder = keys_.Find(key);
    if (holder && holder != &item) throw ctlerr::KeyNotUnique(std::u16string(key));
  }
  if (!item.key_.empty()) keys_.Erase(&item);
  item.key_ = arena_.Store(key);
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
  for (std::size_t i = from; i < items_.size(); ++i)
    items_[i]->position_ = static_cast<std::uint32_t>(i);
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
  std::vector<std::pair<std::u16string, ListItem*>> keyed;
  keyed.reserve(items_.size());
  for (ListItem* item : items_) keyed.emplace_back(FoldCase(item->ColumnText(column)), item);
  std::stable_sort(keyed.begin(), keyed.end(), [descending](const auto& a, const auto& b) {
    return descending ? b.first < a.first : a.first < b.first;
  });
  for (std::size_t i = 0; i < keyed.size(); ++i) items_[i] = keyed[i].second;
  Renumber(0);
  if (auto* p = view_.Peer()) p->RowsReset();
}

}  // namespace vb
