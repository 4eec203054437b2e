// ComboBox: text, style and typing over the shared list.
#include "runtime/forms/ComboBox.h"

#include <algorithm>

#include "runtime/VbConstants.h"
#include "runtime/forms/ControlError.h"

namespace vb {

void ComboBox::SetStyle(int value) {
  if (value < 0 || value > 2) throw ctlerr::InvalidPropertyValue(Name() + u".Style");
  style_ = value;
  Notify(Property::Style);
}

void ComboBox::ChangeText(std::u16string value) {
  if (value == text_) return;
  text_ = std::move(value);
  selStart_ = static_cast<int>(text_.size());
  selLength_ = 0;
  Notify(Property::Text);
  Raise(Change);
}

void ComboBox::SetText(std::u16string value) {
  if (style_ != 2) return ChangeText(std::move(value));
  for (int i = 0; i < ListCount(); ++i) {
    if (entries_[i].text == value) return SetListIndex(i);
  }
  throw ctlerr::TextReadOnly(Name());
}

void ComboBox::OnListIndexChanged() {
  // Picking an entry shows its text; the edit box follows silently (no Change), as in VB.
  if (listIndex_ >= 0) text_ = entries_[listIndex_].text;
  if (listIndex_ < 0 && style_ == 2) text_.clear();
  selStart_ = 0;
  selLength_ = static_cast<int>(text_.size());
  Notify(Property::Text);
}

void ComboBox::OnCleared() {
  if (style_ == 2) text_.clear();
}

void ComboBox::SetSelStart(int value) {
  if (value < 0) throw ctlerr::InvalidPropertyValue(Name() + u".SelStart");
  selStart_ = std::min<int>(value, static_cast<int>(text_.size()));
  selLength_ = 0;
}

void ComboBox::SetSelLength(int value) {
  if (value < 0) throw ctlerr::InvalidPropertyValue(Name() + u".SelLength");
  selLength_ = std::min<int>(value, static_cast<int>(text_.size()) - selStart_);
}

void ComboBox::UserType(std::u16string text) {
  Dispatch([&] {
    if (style_ == 2) return;  // a dropdown list has no edit part to type into
    listIndex_ = -1;
    ChangeText(std::move(text));
  });
}

void ComboBox::ApplyCharacter(char16_t character) {
  if (style_ == 2 || (character < u' ' && character != vbKeyBack)) return;
  std::u16string text = text_;
  int start = selStart_;
  int length = selLength_;
  if (character == vbKeyBack) {
    if (length == 0 && start > 0) {
      --start;
      length = 1;
    }
    text.erase(start, length);
  } else {
    text.replace(start, length, 1, character);
    ++start;
  }
  listIndex_ = -1;
  ChangeText(std::move(text));
  selStart_ = std::min<int>(start, static_cast<int>(text_.size()));
}

}  // namespace vb
