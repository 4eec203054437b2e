// Column headers of a list view.
#include "runtime/forms/ColumnHeaders.h"

#include "runtime/CaseFold.h"
#include "runtime/Utf.h"
#include "runtime/forms/ControlError.h"

namespace vb {

void ColumnHeader::SetText(std::u16string value) {
  text_ = std::move(value);
  owner_->Changed();
}

void ColumnHeader::SetWidth(float value) {
  if (value < 0) throw ctlerr::InvalidPropertyValue(u"ColumnHeader.Width");
  width_ = value;
  owner_->Changed();
}

void ColumnHeader::SetAlignment(int value) {
  // The first column is always left-aligned in the control.
  if (value < 0 || value > 2 || (index_ == 1 && value != 0)) {
    throw ctlerr::InvalidPropertyValue(u"ColumnHeader.Alignment");
  }
  alignment_ = value;
  owner_->Changed();
}

ColumnHeader& ColumnHeaders::Add(int index, std::u16string key, std::u16string text, float width,
                                 int alignment) {
  if (index < 0 || index > Count() + 1) throw ctlerr::IndexOutOfBounds(u"ColumnHeaders.Add");
  if (!key.empty()) {
    for (const auto& c : columns_) {
      if (EqualsText(c->key_, key)) throw ctlerr::KeyNotUnique(key);
    }
  }
  auto column = std::make_unique<ColumnHeader>();
  column->owner_ = this;
  column->key_ = std::move(key);
  column->text_ = std::move(text);
  if (width >= 0) column->width_ = width;
  column->alignment_ = alignment;
  auto at = index == 0 ? columns_.end() : columns_.begin() + (index - 1);
  auto& added = **columns_.insert(at, std::move(column));
  Renumber();
  Changed();
  return added;
}

void ColumnHeaders::Remove(int index) {
  Item(index);
  columns_.erase(columns_.begin() + (index - 1));
  Renumber();
  Changed();
}

void ColumnHeaders::Clear() {
  columns_.clear();
  Changed();
}

ColumnHeader& ColumnHeaders::Item(int index) const {
  if (index < 1 || index > Count()) {
    throw ctlerr::IndexOutOfBounds(u"ColumnHeaders(" + FromUtf8(std::to_string(index)) + u")");
  }
  return *columns_[index - 1];
}

ColumnHeader& ColumnHeaders::Item(std::u16string_view key) const {
  for (const auto& c : columns_) {
    if (!c->key_.empty() && EqualsText(c->key_, key)) return *c;
  }
  throw ctlerr::ElementNotFound(u"ColumnHeaders(\"" + std::u16string(key) + u"\")");
}

void ColumnHeaders::Renumber() {
  for (std::size_t i = 0; i < columns_.size(); ++i) columns_[i]->index_ = static_cast<int>(i) + 1;
}

}  // namespace vb
