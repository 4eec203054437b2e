// vb::ColumnHeaders: the columns of a report-view list view (Text, Width, Key, Index from 1).
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vb {

class ColumnHeaders;

class ColumnHeader {
 public:
  const std::u16string& Text() const { return text_; }
  void SetText(std::u16string value);
  float Width() const { return width_; }
  void SetWidth(float value);  // negative raises 380
  const std::u16string& Key() const { return key_; }
  int Alignment() const { return alignment_; }
  void SetAlignment(int value);
  const std::u16string& Tag() const { return tag_; }
  void SetTag(std::u16string value) { tag_ = std::move(value); }
  int Index() const { return index_; }
  // The sub-item the column shows: 0 for the first column (the item's text).
  int SubItemIndex() const { return index_ - 1; }

 private:
  friend class ColumnHeaders;
  ColumnHeaders* owner_ = nullptr;
  std::u16string text_;
  std::u16string key_;
  std::u16string tag_;
  float width_ = 1440;
  int alignment_ = 0;
  int index_ = 0;
};

// Item with an index out of range raises 35600, with an unknown key 35601; a duplicate key 35602.
class ColumnHeaders {
 public:
  explicit ColumnHeaders(std::function<void()> changed) : changed_(std::move(changed)) {}

  // `index` 0 appends; `width` below 0 means the default (1440 twips).
  ColumnHeader& Add(int index = 0, std::u16string key = {}, std::u16string text = {},
                    float width = -1, int alignment = 0);
  void Remove(int index);
  void Remove(std::u16string_view key) { Remove(Item(key).Index()); }
  void Clear();
  int Count() const { return static_cast<int>(columns_.size()); }
  ColumnHeader& Item(int index) const;
  ColumnHeader& Item(std::u16string_view key) const;
  ColumnHeader& operator()(int index) const { return Item(index); }
  ColumnHeader& operator()(std::u16string_view key) const { return Item(key); }

 private:
  friend class ColumnHeader;
  void Changed() {
    if (changed_) changed_();
  }
  void Renumber();
  std::vector<std::unique_ptr<ColumnHeader>> columns_;
  std::function<void()> changed_;
};

}  // namespace vb
