// ImageList: keyed pictures.
#include "runtime/forms/ImageList.h"

#include "runtime/CaseFold.h"
#include "runtime/Utf.h"
#include "runtime/forms/ControlError.h"

namespace vb {

ListImage& ImageList::Add(int index, std::u16string key, vb::Picture picture) {
  if (index < 0 || index > Count() + 1) throw ctlerr::IndexOutOfBounds(Name() + u".ListImages.Add");
  if (!key.empty() && Find(key)) throw ctlerr::KeyNotUnique(key);
  auto image = std::make_unique<ListImage>(ListImage{std::move(key), std::move(picture), {}, 0});
  auto at = index == 0 ? images_.end() : images_.begin() + (index - 1);
  auto& added = **images_.insert(at, std::move(image));
  Renumber();
  return added;
}

void ImageList::Remove(int index) {
  Item(index);
  lastFound_ = nullptr;
  images_.erase(images_.begin() + (index - 1));
  Renumber();
}

ListImage& ImageList::Item(int index) const {
  if (index < 1 || index > Count()) {
    throw ctlerr::IndexOutOfBounds(Name() + u".ListImages(" + FromUtf8(std::to_string(index)) +
                                   u")");
  }
  return *images_[index - 1];
}

ListImage& ImageList::Item(std::u16string_view key) const {
  if (auto* image = Find(key)) return *image;
  throw ctlerr::ElementNotFound(Name() + u".ListImages(\"" + std::u16string(key) + u"\")");
}

ListImage* ImageList::Find(std::u16string_view key) const {
  if (lastFound_ && EqualsText(lastFound_->key, key)) return lastFound_;
  for (const auto& image : images_) {
    if (!image->key.empty() && EqualsText(image->key, key)) return lastFound_ = image.get();
  }
  return nullptr;
}

void ImageList::Renumber() {
  for (std::size_t i = 0; i < images_.size(); ++i) images_[i]->index = static_cast<int>(i) + 1;
}

}  // namespace vb
