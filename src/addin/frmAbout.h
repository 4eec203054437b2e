// quillmark::frmAbout: the About box: title, version, and a link that opens the product's web
// page in the user's browser.
#pragma once

#include "base/mdlMain.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/ControlArray.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Image.h"
#include "runtime/forms/Label.h"

namespace quillmark {

inline constexpr std::u16string_view kWebPage = u"https://quillmark.tools/vb6";

class frmAbout final : public vb::Form {
 public:
  explicit frmAbout(mdlMain& main);

  vb::Image Image1{*this, u"Image1"};
  vb::CommandButton cmdClose{*this, u"cmdClose"};
  // 0 title, 1 version, 4 the web-page link; 2 and 3 hold the fixed texts.
  vb::ControlArray<vb::Label> lblInfo{*this, u"lblInfo", {0, 1, 2, 3, 4}};

 protected:
  void Form_Load() override;

 private:
  void cmdClose_Click();
  void lblInfo_Click(int index);
  void lblInfo_MouseDown(int index);
  void lblInfo_MouseUp(int index);

  mdlMain& main_;
};

}  // namespace quillmark
