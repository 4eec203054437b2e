// quillmark::frmReplace: the small modal dialog that asks for the replacement text and whether to
// replace in every row or only in the selected ones.
#pragma once

#include <string>

#include "base/mdlMain.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/ControlArray.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Label.h"
#include "runtime/forms/OptionButton.h"
#include "runtime/forms/TextBox.h"

namespace quillmark {

class frmReplace final : public vb::Form {
 public:
  explicit frmReplace(mdlMain& main);

  // Shows the dialog modally, filled with the given text and option. On Replace it hands back
  // the text typed and the option chosen (replaceAll for "Replace All") and returns true; on
  // Cancel or any other close it returns false and leaves both as they were.
  bool Replace(std::u16string& replaceText, bool& replaceAll);

  vb::Label lblReplace{*this, u"lblReplace"};
  vb::TextBox txtReplace{*this, u"txtReplace"};
  // 0 "Replace All", 1 "Replace Selected".
  vb::ControlArray<vb::OptionButton> optReplace{*this, u"optReplace", {0, 1}};
  vb::CommandButton cmdReplace{*this, u"cmdReplace"};
  vb::CommandButton cmdCancel{*this, u"cmdCancel"};

 protected:
  void Form_Load() override;
  void Form_Activate() override;

 private:
  void cmdReplace_Click();
  void cmdCancel_Click() { Unload(); }

  mdlMain& main_;
  std::u16string replaceText_;
  bool replaceAll_ = false;
  bool cancelled_ = true;
};

}  // namespace quillmark
