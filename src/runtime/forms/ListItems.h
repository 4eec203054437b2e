// vb::ListItems: the rows of a list view, in a vector with a hash map of keys.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/forms/KeyIndex.h"
#include "runtime/forms/ListItem.h"

namespace vb {

class ListView;

// Rows count from 1. A million rows cost one small object each and a map entry per key; nothing
// per row is drawn or copied. With the view's Sorted on, added rows are put in order lazily, on
// the next access by position, by one stable sort (the order sequential sorted inserts give).
class ListItems {
 public:
  explicit ListItems(ListView& view) : view_(view) {}
  ListItems(const ListItems&) = delete;
  ListItems& operator=(const ListItems&) = delete;

  // `index` 0 appends, 1..Count+1 inserts there (ignored while the view is sorted); else 35600.
  // A key already present raises 35602 and adds nothing.
  ListItem& Add(int index = 0, std::u16string key = {}, std::u16string text = {},
                std::u16string icon = {}, std::u16string smallIcon = {});
  void Remove(int index);
  void Remove(std::u16string_view key) { Remove(Item(key).Index()); }
  void Clear();
  int Count() const { return static_cast<int>(items_.size()); }
  // Out of range raises 35600, an unknown key 35601.
  ListItem& Item(int index);
  ListItem& Item(std::u16string_view key);
  ListItem& operator()(int index) { return Item(index); }
  ListItem& operator()(std::u16string_view key) { return Item(key); }
  ListItem* Find(std::u16string_view key) const;

 private:
  friend class ListItem;
  friend class ListView;
  void Settle();
  void Sort();
  void Renumber(std::size_t from);
  void Rekey(ListItem& item, std::u16string key);
  void Selecting(ListItem& item);
  void RowChanged(const ListItem& item);
  ListView& view_;
  std::vector<std::unique_ptr<ListItem>> items_;
  KeyIndex keys_;  // the rows that have a key, found ignoring case
  bool unsorted_ = false;
};

}  // namespace vb
