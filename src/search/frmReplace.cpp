// quillmark::frmReplace.
#include "search/frmReplace.h"

#include "base/mdlMainHelpers.h"
#include "runtime/Error.h"

namespace quillmark {
namespace {

constexpr int kAll = 0;
constexpr int kSelected = 1;
constexpr std::u16string_view kLoadErrorTitle = u"Replace Load";

}  // namespace

frmReplace::frmReplace(mdlMain& main) : Form(main.Rt(), u"frmReplace"), main_(main) {
  SetBorderStyle(3);  // fixed dialog
  lblReplace.SetCaption(u"Replace with:");
  optReplace(kAll).SetCaption(u"Replace &All");
  optReplace(kSelected).SetCaption(u"Replace &Selected");
  cmdReplace.SetCaption(u"&Replace");
  cmdReplace.SetDefault(true);
  cmdCancel.SetCaption(u"Cancel");
  cmdCancel.SetCancel(true);
  cmdReplace.Click = [this] { cmdReplace_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  // The dialog as the designer placed it, in twips.
  Move(0, 0, 5295, 2010);
  lblReplace.Move(120, 165, 1155, 255);
  txtReplace.Move(1320, 120, 2415, 315);
  optReplace(kAll).Move(1320, 600, 1815, 255);
  optReplace(kSelected).Move(1320, 900, 1815, 255);
  cmdReplace.Move(3960, 105, 1095, 375);
  cmdCancel.Move(3960, 555, 1095, 375);
}

bool frmReplace::Replace(std::u16string& replaceText, bool& replaceAll) {
  replaceText_ = replaceText;
  replaceAll_ = replaceAll;
  cancelled_ = true;
  Show(vb::vbModal);
  if (cancelled_) return false;
  replaceText = replaceText_;
  replaceAll = replaceAll_;
  return true;
}

void frmReplace::Form_Load() {
  try {
    LoadFormPosition(main_.Rt(), *this, false);
    main_.Rt().Windows().SetWindowPos(hWnd(), vb::kHwndTopMost, 0, 0, 0, 0,
                                      vb::kSwpNoMove | vb::kSwpNoSize);
    txtReplace.SetText(replaceText_);
    optReplace(replaceAll_ ? kAll : kSelected).SetValue(true);
  } catch (const vb::Error& e) {
    main_.Rt().MsgBox(e.Description(), vb::vbExclamation, kLoadErrorTitle);
  }
}

void frmReplace::Form_Activate() {
  SetCaption(u"Replace - [" + main_.SearchText + u"]");
}

void frmReplace::cmdReplace_Click() {
  cancelled_ = false;
  replaceText_ = txtReplace.Text();
  replaceAll_ = optReplace(kAll).Value();
  Unload();
}

}  // namespace quillmark
