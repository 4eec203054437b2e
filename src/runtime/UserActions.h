// vb::UserActions and vb::Script: a user's actions on a form's controls, found by name.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vb {

class Control;
class FormBase;
class Runtime;

// Acts at once, as the user would: a control that the user could not reach (hidden, disabled,
// or of another kind than the action needs) is a ScriptError naming the form and the control.
// Errors raised by the handlers are reported by the engine's guard, as for a real click.
class UserActions {
 public:
  explicit UserActions(FormBase& form) : form_(form) {}

  void Click(std::u16string_view control, int index = -1);
  void DblClick(std::u16string_view control, int index = -1);
  void Type(std::u16string_view control, std::u16string text, int index = -1);
  // Gives the control the focus, then the key (KeyDown, KeyPress, KeyUp through KeyPreview).
  void PressKey(std::u16string_view control, int keyCode, int shift = 0, int index = -1);
  // The key to whatever has the focus (the form itself when nothing has).
  void PressKey(int keyCode, int shift = 0);
  void Pick(std::u16string_view control, int listIndex, int index = -1);
  // Clicks a check box until it shows the value (0 or 1).
  void SetCheck(std::u16string_view control, int value, int index = -1);
  // Ticks or clears an entry of a check-box list.
  void CheckItem(std::u16string_view control, int item, bool checked);
  void SelectRows(std::u16string_view control, const std::vector<int>& rows);
  void DblClickRow(std::u16string_view control, int row);
  void EditLabel(std::u16string_view control, int row, std::u16string text);
  void CommitLabel(std::u16string_view control, std::u16string text);
  void ColumnClick(std::u16string_view control, int column);
  void MouseUp(std::u16string_view control, int button, int shift = 0, float x = 0, float y = 0);
  void SelectTab(std::u16string_view control, int tab);
  // Closes the form from its control box.
  void Close();

 private:
  template <class T>
  T& Find(std::u16string_view control, int index, std::string_view kind);
  FormBase& form_;
};

// Queues actions for later: for the modal loop (taken one at a time while a modal form waits)
// or for the next DoEvents (a click on Stop while a search runs). The form is looked up by name
// when the action runs, so it may be one that does not exist yet.
class Script {
 public:
  enum class When { InModalLoop, AtNextDoEvents };
  explicit Script(Runtime& runtime, When when = When::InModalLoop)
      : runtime_(runtime), when_(when) {}

  Script& On(std::u16string form, std::function<void(UserActions&)> action);
  Script& Click(std::u16string form, std::u16string control, int index = -1);
  Script& Type(std::u16string form, std::u16string control, std::u16string text);
  Script& PressKey(std::u16string form, int keyCode, int shift = 0);
  Script& Close(std::u16string form);
  // The answer to the next message box (queued at once: boxes come in order).
  Script& Answer(int answer);

 private:
  Runtime& runtime_;
  When when_;
};

}  // namespace vb
