// quillmark::frmNewMember: captions, the designer's placement of the controls, and event wiring.
#include "newmember/frmNewMember.h"

namespace quillmark {
namespace {

constexpr int kDropdownList = 2;
constexpr int kNoBorder = 0;
constexpr int kMethod = 0, kProperty = 1, kConstant = 2;  // picNew indexes

}  // namespace

void frmNewMember::SetCaptions() {
  SetCaption(u"New Member");
  SetBorderStyle(3);  // fixed dialog
  for (auto key : {kMethodTab, kPropertyTab, kConstantTab})
    tabNew.Add(0, std::u16string(key), std::u16string(key));

  lblMethodName.SetCaption(u"Name:");
  lblMethodScope.SetCaption(u"Scope:");
  lblMethodReturn.SetCaption(u"Returns:");
  chkMethodStatic.SetCaption(u"Static:");
  lblArguments.SetCaption(u"Arguments:");
  cmdArgUp.SetCaption(u"Move Up");
  cmdArgDown.SetCaption(u"Move Down");
  cmdRemoveArg.SetCaption(u"Remove");
  lblArgName.SetCaption(u"Name:");
  lblArgType.SetCaption(u"Type:");
  lblArgDefault.SetCaption(u"Default:");
  chkOptional.SetCaption(u"Optional");
  chkByVal.SetCaption(u"ByVal");
  chkParamArray.SetCaption(u"ParamArray");
  cmdAddArg.SetCaption(u"A&dd");

  lblPropertyName.SetCaption(u"Name:");
  lblPropertyScope.SetCaption(u"Scope:");
  lblPropertyType.SetCaption(u"Type:");
  optProperty(0).SetCaption(u"Both");
  optProperty(1).SetCaption(u"Get");
  optProperty(2).SetCaption(u"Let/Set");
  lblLocalVariable.SetCaption(u"Local Variable (Optional):");
  lblLocalVariableType.SetCaption(u"Local Variable Type:");

  lblConstantName.SetCaption(u"Name:");
  lblConstantValue.SetCaption(u"Value:");
  lblConstantType.SetCaption(u"Type:");
  lblConstantScope.SetCaption(u"Scope:");
  optConstantScope(0).SetCaption(u"Public");
  optConstantScope(1).SetCaption(u"Private");

  cmdOk.SetCaption(u"OK");
  cmdOk.SetDefault(true);
  cmdApply.SetCaption(u"&Apply");
  cmdCancel.SetCaption(u"Cancel");
  cmdCancel.SetCancel(true);
  for (auto* box : {&cboMethodScope, &cboPropertyScope, &cboConstantType})
    box->SetStyle(kDropdownList);
}

// The dialog as the designer placed it, in twips: the tab strip with its three panels stacked
// in its client area, each panel's controls relative to the panel, the buttons below.
void frmNewMember::Layout() {
  Move(0, 0, 6705, 5715);
  tabNew.Move(120, 120, 6495, 4500);
  picNew.ForEach([](vb::PictureBox& panel) {
    panel.SetBorderStyle(kNoBorder);
    panel.Move(180, 540, 6375, 4020);
  });

  auto& method = picNew(kMethod);
  auto place = [](vb::PictureBox& panel, vb::Control& c, float l, float t, float w, float h) {
    c.SetContainer(&panel);
    c.Move(l, t, w, h);
  };
  place(method, lblMethodName, 60, 75, 855, 255);
  place(method, txtMethodName, 960, 30, 2760, 315);
  place(method, lblMethodScope, 3840, 75, 660, 255);
  place(method, cboMethodScope, 4560, 30, 1695, 315);
  place(method, lblMethodReturn, 60, 495, 855, 255);
  place(method, cboMethodReturn, 960, 450, 2760, 315);
  place(method, chkMethodStatic, 3900, 480, 1095, 255);
  place(method, lblArguments, 60, 915, 1095, 255);
  place(method, lstArguments, 60, 1200, 4860, 1425);
  place(method, cmdArgUp, 5040, 1200, 1215, 375);
  place(method, cmdArgDown, 5040, 1650, 1215, 375);
  place(method, cmdRemoveArg, 5040, 2100, 1215, 375);
  place(method, lblArgName, 60, 2805, 855, 255);
  place(method, txtArgName, 960, 2760, 1920, 315);
  place(method, lblArgType, 3000, 2805, 495, 255);
  place(method, cboArgType, 3540, 2760, 1380, 315);
  place(method, cmdAddArg, 5040, 2730, 1215, 375);
  place(method, lblArgDefault, 60, 3225, 855, 255);
  place(method, txtArgDefault, 960, 3180, 1920, 315);
  place(method, chkOptional, 960, 3630, 1155, 255);
  place(method, chkByVal, 2220, 3630, 915, 255);
  place(method, chkParamArray, 3240, 3630, 1455, 255);

  auto& property = picNew(kProperty);
  place(property, lblPropertyName, 60, 75, 855, 255);
  place(property, txtPropertyName, 960, 30, 2760, 315);
  place(property, lblPropertyScope, 3840, 75, 660, 255);
  place(property, cboPropertyScope, 4560, 30, 1695, 315);
  place(property, lblPropertyType, 60, 495, 855, 255);
  place(property, cboPropertyType, 960, 450, 2760, 315);
  place(property, optProperty(0), 960, 900, 915, 255);
  place(property, optProperty(1), 1980, 900, 795, 255);
  place(property, optProperty(2), 2880, 900, 1095, 255);
  place(property, lblLocalVariable, 60, 1425, 2280, 255);
  place(property, cboLocalVariable, 2400, 1380, 2880, 315);
  place(property, lblLocalVariableType, 60, 1845, 2280, 255);
  place(property, cboLocalVariableType, 2400, 1800, 2880, 315);

  auto& constant = picNew(kConstant);
  place(constant, lblConstantName, 60, 75, 855, 255);
  place(constant, txtConstantName, 960, 30, 2760, 315);
  place(constant, lblConstantValue, 60, 495, 855, 255);
  place(constant, txtConstantValue, 960, 450, 2760, 315);
  place(constant, lblConstantType, 60, 915, 855, 255);
  place(constant, cboConstantType, 960, 870, 2760, 315);
  place(constant, lblConstantScope, 3840, 75, 660, 255);
  place(constant, optConstantScope(0), 4560, 60, 1095, 255);
  place(constant, optConstantScope(1), 4560, 360, 1095, 255);

  cmdOk.Move(2880, 4755, 1095, 375);
  cmdApply.Move(4080, 4755, 1095, 375);
  cmdCancel.Move(5280, 4755, 1095, 375);
}

void frmNewMember::Wire() {
  tabNew.Click = [this] { tabNew_Click(); };
  cmdOk.Click = [this] { cmdOk_Click(); };
  cmdApply.Click = [this] { cmdApply_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdAddArg.Click = [this] { cmdAddArg_Click(); };
  cmdArgUp.Click = [this] { cmdArgUp_Click(); };
  cmdArgDown.Click = [this] { cmdArgDown_Click(); };
  cmdRemoveArg.Click = [this] { cmdRemoveArg_Click(); };
  lstArguments.Click = [this] { SetButtonStates(); };
  chkByVal.Click = [this] { chkByVal_Click(); };
  chkOptional.Click = [this] { chkOptional_Click(); };
  chkParamArray.Click = [this] { chkParamArray_Click(); };
}

}  // namespace quillmark
