// vb::ComboBox: a text box with a list: Style 0 dropdown combo, 1 simple combo, 2 dropdown list.
#pragma once

#include <functional>
#include <string>

#include "runtime/forms/ListControl.h"

namespace vb {

// Text is what the box shows. Picking an entry (or setting ListIndex) sets Text and raises
// Click; typing changes Text, raises Change and leaves no entry selected (ListIndex -1), even
// when the typed text equals an entry. In the dropdown list style Text is the selected entry
// and setting it to anything else raises error 383.
class ComboBox : public ListControl {
 public:
  ComboBox(FormBase& owner, std::u16string name, int index = -1)
      : ListControl(owner, std::move(name), index) {}
  std::u16string_view TypeName() const override { return u"ComboBox"; }

  int Style() const { return style_; }
  void SetStyle(int value);
  const std::u16string& Text() const { return text_; }
  void SetText(std::u16string value);
  int SelStart() const { return selStart_; }
  void SetSelStart(int value);
  int SelLength() const { return selLength_; }
  void SetSelLength(int value);

  std::function<void()> Change;

  // The user's typing ends with the box showing `text`: Change once, no entry selected.
  void UserType(std::u16string text);
  void ApplyCharacter(char16_t character) override;

 protected:
  void OnListIndexChanged() override;
  void OnCleared() override;

 private:
  void ChangeText(std::u16string value);
  int style_ = 0;
  std::u16string text_;
  int selStart_ = 0;
  int selLength_ = 0;
};

}  // namespace vb
