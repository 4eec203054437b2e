// quillmark::frmNewMember: the argument list of a new method, its option rules and its buttons.
#include "newmember/frmNewMember.h"

#include "runtime/VbStrings.h"

namespace quillmark {
namespace {

constexpr std::u16string_view kArgumentMissing =
    u"You must enter an argument name and select it's data type.";
// Only an entry with this text inside it holds the move buttons: an entry built with the
// ParamArray box starts with "ParamArray " and so does not. Intended.
constexpr std::u16string_view kParamArrayInside = u" ParamArray ";
constexpr std::uint32_t kWindowBackground = 0x80000005;
constexpr std::uint32_t kButtonFace = 0x8000000F;

bool HasParamArrayInside(const vb::ListBox& list, int index) {
  if (index < 0 || index >= list.ListCount()) return false;
  return vb::InStr(1, list.List(index), kParamArrayInside) > 0;
}

}  // namespace

void frmNewMember::cmdAddArg_Click() {
  if (txtArgName.Text().empty() || cboArgType.Text().empty()) {
    main_.Rt().MsgBox(kArgumentMissing, vb::vbExclamation);
    return;
  }
  lstArguments.AddItem(BuildArgument(txtArgName.Text(), cboArgType.Text(), txtArgDefault.Text(),
                                     chkOptional.Value() == 1, chkByVal.Value() == 1,
                                     chkParamArray.Value() == 1));
  txtArgName.SetText({});
  cboArgType.SetText({});
  SetButtonStates();
}

void frmNewMember::cmdArgUp_Click() {
  int i = lstArguments.ListIndex();
  if (i < 1) return;
  std::u16string entry = lstArguments.List(i);
  lstArguments.RemoveItem(i);
  lstArguments.AddItem(std::move(entry), i - 1);
  lstArguments.SetListIndex(i - 1);
  SetButtonStates();
}

void frmNewMember::cmdArgDown_Click() {
  int i = lstArguments.ListIndex();
  if (i < 0 || i >= lstArguments.ListCount() - 1) return;
  std::u16string entry = lstArguments.List(i);
  lstArguments.RemoveItem(i);
  lstArguments.AddItem(std::move(entry), i + 1);
  lstArguments.SetListIndex(i + 1);
  SetButtonStates();
}

void frmNewMember::cmdRemoveArg_Click() {
  int i = lstArguments.ListIndex();
  if (i < 0) return;
  lstArguments.RemoveItem(i);
  SetButtonStates();
}

void frmNewMember::SetButtonStates() {
  int i = lstArguments.ListIndex();
  int n = lstArguments.ListCount();
  bool up = i >= 1;
  bool down = i != -1 && i < n - 1;
  if (HasParamArrayInside(lstArguments, i)) up = down = false;
  if (i != -1 && HasParamArrayInside(lstArguments, i + 1)) down = false;
  cmdArgUp.SetEnabled(up);
  cmdArgDown.SetEnabled(down);
  cmdRemoveArg.SetEnabled(i != -1);
}

// Setting a box's value raises its Click, so the rules of the box changed run as well, as they
// do in VB. Unchecking ByVal enables ParamArray even while Optional is checked: intended.
void frmNewMember::chkByVal_Click() {
  if (chkByVal.Value() == 1) {
    chkParamArray.SetValue(0);
    chkParamArray.SetEnabled(false);
    return;
  }
  chkParamArray.SetEnabled(true);
}

void frmNewMember::chkOptional_Click() {
  if (chkOptional.Value() == 1) {
    chkParamArray.SetValue(0);
    chkParamArray.SetEnabled(false);
    txtArgDefault.SetEnabled(true);
    txtArgDefault.SetBackColor(kWindowBackground);
    return;
  }
  chkParamArray.SetEnabled(true);
  txtArgDefault.SetText({});
  txtArgDefault.SetEnabled(false);
  txtArgDefault.SetBackColor(kButtonFace);
}

void frmNewMember::chkParamArray_Click() {
  bool checked = chkParamArray.Value() == 1;
  if (checked) {
    chkOptional.SetValue(0);
    chkByVal.SetValue(0);
  }
  chkOptional.SetEnabled(!checked);
  chkByVal.SetEnabled(!checked);
}

}  // namespace quillmark
