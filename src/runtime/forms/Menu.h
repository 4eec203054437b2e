// vb::Menu: a menu item of a form or document, with submenus; a "-" caption is a separator.
#pragma once

#include <string>
#include <vector>

#include "runtime/forms/Control.h"

namespace vb {

// A menu is windowless. Its items are the menus whose parent menu it is, in the order they
// were attached. A click reaches a menu only while it is enabled and visible.
class Menu : public Control {
 public:
  Menu(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index, false) {}
  std::u16string_view TypeName() const override { return u"Menu"; }
  bool TakesFocusOnClick() const override { return false; }

  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string value) {
    caption_ = std::move(value);
    Notify(Property::Caption);
  }
  bool Checked() const { return checked_; }
  void SetChecked(bool value) {
    checked_ = value;
    Notify(Property::Checked);
  }
  bool IsSeparator() const { return caption_ == u"-"; }

  Menu* ParentMenu() const { return parentMenu_; }
  void SetParentMenu(Menu* parent) {
    if (parentMenu_) std::erase(parentMenu_->items_, this);
    parentMenu_ = parent;
    if (parent) parent->items_.push_back(this);
  }
  const std::vector<Menu*>& Items() const { return items_; }

 private:
  std::u16string caption_;
  bool checked_ = false;
  Menu* parentMenu_ = nullptr;
  std::vector<Menu*> items_;
};

}  // namespace vb
