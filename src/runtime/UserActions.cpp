// User actions by control name, and scripts of them.
#include "runtime/UserActions.h"

#include "runtime/Runtime.h"
#include "runtime/ScriptError.h"
#include "runtime/Utf.h"
#include "runtime/forms/CheckBox.h"
#include "runtime/forms/ComboBox.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/ListBox.h"
#include "runtime/forms/ListView.h"
#include "runtime/forms/TabStrip.h"
#include "runtime/forms/TextBox.h"

namespace vb {

template <class T>
T& UserActions::Find(std::u16string_view control, int index, std::string_view kind) {
  // Built piece by piece: GCC 12 warns falsely (-Wrestrict) on the one-expression form at -O3.
  std::string where = ToUtf8(control);
  if (index >= 0) where.append("(").append(std::to_string(index)).append(")");
  where.append(" on ").append(ToUtf8(form_.Name()));
  auto* found = form_.FindControl(control, index);
  if (!found) throw ScriptError("there is no control " + where);
  auto* typed = dynamic_cast<T*>(found);
  if (!typed) {
    throw ScriptError(where + " is a " + ToUtf8(found->TypeName()) + ", not a " +
                      std::string(kind));
  }
  if (!found->IsUsable()) throw ScriptError(where + " is hidden or disabled: no user can reach it");
  return *typed;
}

void UserActions::Click(std::u16string_view control, int index) {
  Find<Control>(control, index, "control").UserClick();
}

void UserActions::DblClick(std::u16string_view control, int index) {
  Find<Control>(control, index, "control").UserDblClick();
}

void UserActions::Type(std::u16string_view control, std::u16string text, int index) {
  auto& found = Find<Control>(control, index, "text box or combo box");
  if (auto* box = dynamic_cast<TextBox*>(&found)) return box->UserType(std::move(text));
  if (auto* combo = dynamic_cast<ComboBox*>(&found)) {
    if (combo->Style() == 2)
      throw ScriptError(ToUtf8(control) + " is a dropdown list: nobody can type into it");
    return combo->UserType(std::move(text));
  }
  throw ScriptError(ToUtf8(control) + " on " + ToUtf8(form_.Name()) + " takes no typing");
}

void UserActions::PressKey(std::u16string_view control, int keyCode, int shift, int index) {
  auto& found = Find<Control>(control, index, "control");
  if (!found.HasFocus()) form_.Dispatch([&] { found.SetFocus(); });
  form_.UserKey(keyCode, shift);
}

void UserActions::PressKey(int keyCode, int shift) {
  form_.UserKey(keyCode, shift);
}

void UserActions::Pick(std::u16string_view control, int listIndex, int index) {
  auto& list = Find<ListControl>(control, index, "combo box or list box");
  if (listIndex < 0 || listIndex >= list.ListCount()) {
    throw ScriptError(ToUtf8(control) + " has no entry " + std::to_string(listIndex));
  }
  list.UserPick(listIndex);
}

void UserActions::SetCheck(std::u16string_view control, int value, int index) {
  auto& box = Find<CheckBox>(control, index, "CheckBox");
  if (box.Value() != value) box.UserClick();
}

void UserActions::CheckItem(std::u16string_view control, int item, bool checked) {
  Find<ListBox>(control, -1, "ListBox").UserCheck(item, checked);
}

void UserActions::SelectRows(std::u16string_view control, const std::vector<int>& rows) {
  Find<ListView>(control, -1, "ListView").UserSelectRows(rows);
}

void UserActions::DblClickRow(std::u16string_view control, int row) {
  Find<ListView>(control, -1, "ListView").UserDblClickRow(row);
}

void UserActions::EditLabel(std::u16string_view control, int row, std::u16string text) {
  Find<ListView>(control, -1, "ListView").UserEditLabel(row, std::move(text));
}

void UserActions::CommitLabel(std::u16string_view control, std::u16string text) {
  Find<ListView>(control, -1, "ListView").UserCommitLabel(std::move(text));
}

void UserActions::ColumnClick(std::u16string_view control, int column) {
  Find<ListView>(control, -1, "ListView").UserColumnClick(column);
}

void UserActions::MouseUp(std::u16string_view control, int button, int shift, float x, float y) {
  Find<Control>(control, -1, "control").UserMouseUp(button, shift, x, y);
}

void UserActions::SelectTab(std::u16string_view control, int tab) {
  Find<TabStrip>(control, -1, "TabStrip").UserSelectTab(tab);
}

void UserActions::Close() {
  auto* form = dynamic_cast<Form*>(&form_);
  if (!form) throw ScriptError(ToUtf8(form_.Name()) + " is not a form the user can close");
  form->UserClose();
}

Script& Script::On(std::u16string form, std::function<void(UserActions&)> action) {
  auto run = [&runtime = runtime_, form = std::move(form), action = std::move(action)] {
    auto* target = runtime.FindLoaded(form);
    if (!target) throw ScriptError("scripted action for " + ToUtf8(form) + ", which is not loaded");
    UserActions actions(*target);
    action(actions);
  };
  if (when_ == When::InModalLoop) {
    runtime_.Loop().Script(std::move(run));
  } else {
    runtime_.Loop().Post(std::move(run));
  }
  return *this;
}

Script& Script::Click(std::u16string form, std::u16string control, int index) {
  return On(std::move(form),
            [control = std::move(control), index](UserActions& a) { a.Click(control, index); });
}

Script& Script::Type(std::u16string form, std::u16string control, std::u16string text) {
  return On(std::move(form), [control = std::move(control),
                              text = std::move(text)](UserActions& a) { a.Type(control, text); });
}

Script& Script::PressKey(std::u16string form, int keyCode, int shift) {
  return On(std::move(form), [keyCode, shift](UserActions& a) { a.PressKey(keyCode, shift); });
}

Script& Script::Close(std::u16string form) {
  return On(std::move(form), [](UserActions& a) { a.Close(); });
}

Script& Script::Answer(int answer) {
  runtime_.MessageBoxService().ScriptAnswer(answer);
  return *this;
}

}  // namespace vb
