// vb::ImageList: pictures by key and index (ListImages) for list views and tab strips.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/Picture.h"
#include "runtime/forms/Control.h"

namespace vb {

struct ListImage {
  std::u16string key;
  vb::Picture picture;
  std::u16string tag;
  int index = 0;  // from 1
};

// ListImages count from 1; keys are unique and matched ignoring case. Item with an index out of
// range raises 35600, with an unknown key 35601; Add with a key already present raises 35602.
class ImageList : public Control {
 public:
  ImageList(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index, false) {}
  std::u16string_view TypeName() const override { return u"ImageList"; }

  // `index` 0 appends.
  ListImage& Add(int index = 0, std::u16string key = {}, vb::Picture picture = {});
  void Remove(int index);
  void Remove(std::u16string_view key) { Remove(Item(key).index); }
  void Clear() {
    images_.clear();
    lastFound_ = nullptr;
  }
  int Count() const { return static_cast<int>(images_.size()); }
  ListImage& Item(int index) const;
  ListImage& Item(std::u16string_view key) const;
  bool Exists(std::u16string_view key) const { return Find(key) != nullptr; }
  ListImage* Find(std::u16string_view key) const;
  int ImageWidth() const { return 16; }
  int ImageHeight() const { return 16; }

 private:
  void Renumber();
  std::vector<std::unique_ptr<ListImage>> images_;
  // The image found last: a list view's rows ask for the same few keys over and over.
  mutable ListImage* lastFound_ = nullptr;
};

}  // namespace vb
