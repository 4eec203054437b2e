// vb::ListItem: one row of a list view: Key, Text, SubItems, Tag, Selected, SmallIcon, Index.
#pragma once

#include <string>
#include <vector>

namespace vb {

class ListItems;

// Owned by its ListItems; a reference stays valid until the row is removed or the list cleared.
class ListItem {
 public:
  const std::u16string& Key() const { return key_; }
  // Keys are unique in the list (ignoring case); a duplicate raises 35602 and keeps the old key.
  void SetKey(std::u16string value);
  const std::u16string& Text() const { return text_; }
  void SetText(std::u16string value);
  // SubItems(i) for the columns after the first: 1 .. ColumnHeaders.Count - 1, else 35600.
  const std::u16string& SubItems(int index) const;
  void SetSubItems(int index, std::u16string value);
  const std::u16string& Tag() const { return tag_; }
  void SetTag(std::u16string value) { tag_ = std::move(value); }
  const std::u16string& SmallIcon() const { return smallIcon_; }
  // A key of the bound SmallIcons image list; an unknown key raises 35601.
  void SetSmallIcon(std::u16string value);
  const std::u16string& Icon() const { return icon_; }
  void SetIcon(std::u16string value) { icon_ = std::move(value); }
  bool Selected() const { return selected_; }
  // Without MultiSelect, selecting a row deselects the one selected before.
  void SetSelected(bool value);
  // The row's place, from 1 (it changes as rows are added, removed and sorted).
  int Index() const;

 private:
  friend class ListItems;
  void Changed();
  ListItems* owner_ = nullptr;
  std::size_t position_ = 0;
  std::u16string key_;
  std::u16string text_;
  std::vector<std::u16string> subItems_;
  std::u16string tag_;
  std::u16string smallIcon_;
  std::u16string icon_;
  bool selected_ = false;
};

}  // namespace vb
