// vb::TextBox: an editable text with a selection; typing goes through KeyPress and raises Change.
#pragma once

#include <functional>
#include <string>

#include "runtime/forms/Control.h"

namespace vb {

// SelStart counts from 0 and SelLength in UTF-16 units, as in VB. Every change of Text, by
// code or by the user, raises Change (when the text really changes).
class TextBox : public Control {
 public:
  TextBox(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index) {}
  std::u16string_view TypeName() const override { return u"TextBox"; }

  const std::u16string& Text() const { return text_; }
  void SetText(std::u16string value);
  int SelStart() const { return selStart_; }
  void SetSelStart(int value);
  int SelLength() const { return selLength_; }
  void SetSelLength(int value);
  std::u16string SelText() const { return text_.substr(selStart_, selLength_); }
  void SetSelText(std::u16string_view value);  // replaces the selection
  bool Locked() const { return locked_; }
  void SetLocked(bool value) { locked_ = value; }
  int MaxLength() const { return maxLength_; }
  void SetMaxLength(int value) { maxLength_ = value; }

  std::function<void()> Change;

  // The user's typing ends with the box showing `text` (one Change).
  void UserType(std::u16string text);
  void ApplyCharacter(char16_t character) override;

 private:
  std::u16string text_;
  int selStart_ = 0;
  int selLength_ = 0;
  bool locked_ = false;
  int maxLength_ = 0;
};

}  // namespace vb
