// vb::ListItems: the rows of a list view, in a vector with a hash map of keys.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/forms/KeyIndex.h"
#include "runtime/forms/ListItem.h"
#include "runtime/forms/RowArena.h"

namespace vb {

class ListView;

// Rows count from 1. A row is a small object in the list's arena with views of its texts, which
// are stored there too; a column text equal to the one the row before stored for that column
// is shared rather than copied (a search's rows repeat their project, module and procedure).
// A million rows cost that, a pointer and a key-table entry each; nothing per row is drawn. With
// the view's Sorted on, added rows are put in order lazily, on the next access by position, by
// one stable sort (the order sequential sorted inserts give).
class ListItems {
 public:
  explicit ListItems(ListView& view) : view_(view), keys_(rows_) {}
  ListItems(const ListItems&) = delete;
  ListItems& operator=(const ListItems&) = delete;

  // `index` 0 appends, 1..Count+1 inserts there (ignored while the view is sorted); else 35600.
  // A key already present raises 35602 and adds nothing.
  ListItem& Add(int index = 0, std::u16string_view key = {}, std::u16string_view text = {},
                std::u16string_view icon = {}, std::u16string_view smallIcon = {});
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
  void Rekey(ListItem& item, std::u16string_view key);
  // A stored copy of a column's text (0: the item's text, k: SubItems(k)), shared with the
  // previous row's when equal.
  std::u16string_view StoreColumn(std::size_t column, std::u16string_view text);
  // A stored copy of `text`, or `last` when that holds the same text; `last` becomes it.
  std::u16string_view StoreShared(std::u16string_view& last, std::u16string_view text);
  void CheckSmallIcon(std::u16string_view key) const;
  void Selecting(ListItem& item);
  void RowChanged(const ListItem& item);
  ListView& view_;
  RowArena arena_;
  std::vector<ListItem*> items_;
  std::vector<ListItem*> rows_;  // every row object made since the list was last cleared
  std::vector<ListItem*> free_;  // removed rows, for reuse
  std::vector<std::u16string_view> lastColumnText_;
  std::u16string_view lastIcon_, lastSmallIcon_;
  KeyIndex keys_;  // the rows that have a key, found ignoring case
  bool unsorted_ = false;
};

}  // namespace vb
