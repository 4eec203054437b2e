// vb::ListItem: one row of a list view: Key, Text, SubItems, Tag, Selected, SmallIcon, Index.
#pragma once

#include <cstdint>
#include <string_view>

namespace vb {

class ListItems;

// Owned by its ListItems; a reference stays valid until the row is removed or the list cleared.
// The texts live in the list's arena: a view a getter returns stays valid until the list is
// cleared, even when the row is changed or removed meanwhile.
class ListItem {
 public:
  std::u16string_view Key() const { return key_; }
  // Keys are unique in the list (ignoring case); a duplicate raises 35602 and keeps the old key.
  void SetKey(std::u16string_view value);
  std::u16string_view Text() const { return text_; }
  void SetText(std::u16string_view value);
  // SubItems(i) for the columns after the first: 1 .. ColumnHeaders.Count - 1, else 35600.
  std::u16string_view SubItems(int index) const;
  void SetSubItems(int index, std::u16string_view value);
  std::u16string_view Tag() const { return tag_; }
  void SetTag(std::u16string_view value);
  std::u16string_view SmallIcon() const { return smallIcon_; }
  // A key of the bound SmallIcons image list; an unknown key raises 35601.
  void SetSmallIcon(std::u16string_view value);
  std::u16string_view Icon() const { return icon_; }
  void SetIcon(std::u16string_view value);
  bool Selected() const { return selected_; }
  // Without MultiSelect, selecting a row deselects the one selected before.
  void SetSelected(bool value);
  // The row's place, from 1 (it changes as rows are added, removed and sorted).
  int Index() const;

 private:
  friend class ListItems;
  friend class KeyIndex;
  ListItem(ListItems& owner, std::uint32_t row) : owner_(&owner), row_(row) {}
  void Changed();
  std::u16string_view ColumnText(int column) const;

  ListItems* owner_;
  std::uint32_t row_;  // its number in the list's table of rows, for the key table
  std::uint32_t position_ = 0;
  std::uint32_t subItemRoom_ = 0;  // the length of subItems_, column 0 unused
  bool selected_ = false;
  std::u16string_view key_;
  std::u16string_view text_;
  std::u16string_view* subItems_ = nullptr;
  std::u16string_view tag_;
  std::u16string_view smallIcon_;
  std::u16string_view icon_;
};

}  // namespace vb
