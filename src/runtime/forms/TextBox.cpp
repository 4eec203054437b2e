// TextBox: text, selection, typing.
#include "runtime/forms/TextBox.h"

#include <algorithm>

#include "runtime/VbConstants.h"
#include "runtime/forms/ControlError.h"

namespace vb {

void TextBox::SetText(std::u16string value) {
  if (maxLength_ > 0 && static_cast<int>(value.size()) > maxLength_) value.resize(maxLength_);
  if (value == text_) return;
  text_ = std::move(value);
  selStart_ = std::min<int>(selStart_, static_cast<int>(text_.size()));
  selLength_ = 0;
  Notify(Property::Text);
  Raise(Change);
}

void TextBox::SetSelStart(int value) {
  if (value < 0) throw ctlerr::InvalidPropertyValue(Name() + u".SelStart");
  selStart_ = std::min<int>(value, static_cast<int>(text_.size()));
  selLength_ = 0;
  Notify(Property::SelStart);
}

void TextBox::SetSelLength(int value) {
  if (value < 0) throw ctlerr::InvalidPropertyValue(Name() + u".SelLength");
  selLength_ = std::min<int>(value, static_cast<int>(text_.size()) - selStart_);
  Notify(Property::SelLength);
}

void TextBox::SetSelText(std::u16string_view value) {
  std::u16string text = text_;
  text.replace(selStart_, selLength_, value);
  int caret = selStart_ + static_cast<int>(value.size());
  SetText(std::move(text));
  selStart_ = std::min<int>(caret, static_cast<int>(text_.size()));
  selLength_ = 0;
}

void TextBox::UserType(std::u16string text) {
  Dispatch([&] {
    if (locked_) return;
    SetText(std::move(text));
    selStart_ = static_cast<int>(text_.size());
  });
}

void TextBox::ApplyCharacter(char16_t character) {
  if (locked_) return;
  if (character == vbKeyBack) {
    if (selLength_ == 0 && selStart_ > 0) {
      --selStart_;
      selLength_ = 1;
    }
    SetSelText(u"");
    return;
  }
  if (character < u' ') return;  // Enter, Escape and Tab type nothing into a single-line box
  SetSelText(std::u16string(1, character));
}

}  // namespace vb
