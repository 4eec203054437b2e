// quillmark::frmOptions: the Options dialog: the Auto-Save settings and the order and visibility
// of the search-results columns.
#pragma once

#include <string_view>

#include "base/mdlMain.h"
#include "runtime/forms/CheckBox.h"
#include "runtime/forms/ComboBox.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/ControlArray.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Label.h"
#include "runtime/forms/ListBox.h"
#include "runtime/forms/PictureBox.h"
#include "runtime/forms/TabStrip.h"
#include "runtime/forms/TextBox.h"

namespace quillmark {

inline constexpr std::u16string_view kInvalidIntervalMessage = u"Invalid Auto-Save Interval.";
inline constexpr std::u16string_view kNoNotifyMessage = u"You must select a notification method.";
inline constexpr std::u16string_view kNoColumnMessage =
    u"You must select at least one column to be displayed in the search results window.";

// It reads and writes only the "Options" keys, and tells Auto-Save (through the shared
// last-save time) and the results window (LoadColumnHeaders) of what changed. List entries
// count from 0; tabs from 1.
class frmOptions final : public vb::Form {
 public:
  explicit frmOptions(mdlMain& main);

  vb::TabStrip tabOptions{*this, u"tabOptions"};
  // One panel per tab, 0 = "General"; only the selected tab's panel is in view.
  vb::ControlArray<vb::PictureBox> picOptions{*this, u"picOptions", {0}};
  vb::CheckBox chkSave{*this, u"chkSave"};
  vb::Label lblSaveInterval{*this, u"lblSaveInterval"};
  vb::TextBox txtSave{*this, u"txtSave"};
  vb::Label lblMinutes{*this, u"lblMinutes"};
  vb::Label lblSaveNotify{*this, u"lblSaveNotify"};
  vb::ComboBox cboSave{*this, u"cboSave"};
  vb::Label lblColumns{*this, u"lblColumns"};
  vb::ListBox lstColumns{*this, u"lstColumns"};
  // 0 "Move &Up", 1 "Move &Down".
  vb::ControlArray<vb::CommandButton> cmdMoveCol{*this, u"cmdMoveCol", {0, 1}};
  vb::CommandButton cmdOK{*this, u"cmdOK"};
  vb::CommandButton cmdCancel{*this, u"cmdCancel"};
  vb::CommandButton cmdApply{*this, u"cmdApply"};

 protected:
  void Form_Load() override;
  void Form_Unload(int& cancel) override;

 private:
  void Layout();
  void tabOptions_Click();
  void chkSave_Click();
  void txtSave_KeyPress(int& keyAscii);
  void lstColumns_ItemCheck(int item);
  void cmdMoveCol_Click(int index);
  void cmdOK_Click();
  void cmdCancel_Click() { Unload(); }
  void cmdApply_Click() { SaveOptions(); }
  void Changed();
  // The first failed rule's message, shown with the exclamation icon; false when one failed.
  bool Validate();
  // Validates, then writes the settings; false (nothing written) when a rule failed.
  bool SaveOptions();

  mdlMain& main_;
  bool loading_ = false;  // Form_Load fills the controls: that is no change of the user's
};

}  // namespace quillmark
