// quillmark::frmNewMember: the New Member dialog. It collects a new method (with its argument
// list), property or constant and writes its declaration into the code module of the component
// the user is working on.
#pragma once

#include <string>
#include <string_view>

#include "base/mdlMain.h"
#include "newmember/Declarations.h"
#include "runtime/forms/CheckBox.h"
#include "runtime/forms/ComboBox.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/ControlArray.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Label.h"
#include "runtime/forms/ListBox.h"
#include "runtime/forms/OptionButton.h"
#include "runtime/forms/PictureBox.h"
#include "runtime/forms/TabStrip.h"
#include "runtime/forms/TextBox.h"
#include "vbide/Event.h"
#include "vbide/Fwd.h"

namespace quillmark {

// The dialog works on one component, taken by Add: the module of the active code window, else
// the component selected in the Project window, else the last active code window's module.
// Tabs count from 1 (Method, Property, Constant); list entries from 0.
class frmNewMember final : public vb::Form {
 public:
  // Add's kinds are the IDE's member types; kKeepTab is none of them and leaves the tab alone.
  static constexpr int kKeepTab = 0;
  // The tabs' keys, which are also their captions.
  static constexpr std::u16string_view kMethodTab = u"Method";
  static constexpr std::u16string_view kPropertyTab = u"Property";
  static constexpr std::u16string_view kConstantTab = u"Constant";

  explicit frmNewMember(mdlMain& main);
  ~frmNewMember() override;

  // Takes the component the user is working on, selects and resets the tab of `kind` (1
  // method, 2 property, 5 constant; 3 variable and 4 event name tabs the dialog lacks, so the
  // current tab stays) and shows the dialog modeless.
  void Add(int kind);
  // The add-in's CodeModified event: the module's variables and constants are listed again.
  void Connect_CodeModified();

  // The component the dialog writes into; null when the user was working on none.
  const vbide::VBComponentPtr& Component() const { return component_; }
  // The description of the error that ended the last add that failed ("" after a success).
  const std::u16string& LastAddError() const { return lastAddError_; }

  vb::TabStrip tabNew{*this, u"tabNew"};
  // One panel per tab: index = tab number - 1.
  vb::ControlArray<vb::PictureBox> picNew{*this, u"picNew", {0, 1, 2}};

  // Method
  vb::Label lblMethodName{*this, u"lblMethodName"};
  vb::TextBox txtMethodName{*this, u"txtMethodName"};
  vb::Label lblMethodScope{*this, u"lblMethodScope"};
  vb::ComboBox cboMethodScope{*this, u"cboMethodScope"};
  vb::Label lblMethodReturn{*this, u"lblMethodReturn"};
  vb::ComboBox cboMethodReturn{*this, u"cboMethodReturn"};
  vb::CheckBox chkMethodStatic{*this, u"chkMethodStatic"};
  vb::Label lblArguments{*this, u"lblArguments"};
  vb::ListBox lstArguments{*this, u"lstArguments"};
  vb::CommandButton cmdArgUp{*this, u"cmdArgUp"};
  vb::CommandButton cmdArgDown{*this, u"cmdArgDown"};
  vb::CommandButton cmdRemoveArg{*this, u"cmdRemoveArg"};
  vb::Label lblArgName{*this, u"lblArgName"};
  vb::TextBox txtArgName{*this, u"txtArgName"};
  vb::Label lblArgType{*this, u"lblArgType"};
  vb::ComboBox cboArgType{*this, u"cboArgType"};
  vb::Label lblArgDefault{*this, u"lblArgDefault"};
  vb::TextBox txtArgDefault{*this, u"txtArgDefault"};
  vb::CheckBox chkOptional{*this, u"chkOptional"};
  vb::CheckBox chkByVal{*this, u"chkByVal"};
  vb::CheckBox chkParamArray{*this, u"chkParamArray"};
  vb::CommandButton cmdAddArg{*this, u"cmdAddArg"};

  // Property
  vb::Label lblPropertyName{*this, u"lblPropertyName"};
  vb::TextBox txtPropertyName{*this, u"txtPropertyName"};
  vb::Label lblPropertyScope{*this, u"lblPropertyScope"};
  vb::ComboBox cboPropertyScope{*this, u"cboPropertyScope"};
  vb::Label lblPropertyType{*this, u"lblPropertyType"};
  vb::ComboBox cboPropertyType{*this, u"cboPropertyType"};
  // 0 "Both", 1 "Get", 2 "Let/Set".
  vb::ControlArray<vb::OptionButton> optProperty{*this, u"optProperty", {0, 1, 2}};
  vb::Label lblLocalVariable{*this, u"lblLocalVariable"};
  vb::ComboBox cboLocalVariable{*this, u"cboLocalVariable"};
  vb::Label lblLocalVariableType{*this, u"lblLocalVariableType"};
  vb::ComboBox cboLocalVariableType{*this, u"cboLocalVariableType"};

  // Constant
  vb::Label lblConstantName{*this, u"lblConstantName"};
  vb::TextBox txtConstantName{*this, u"txtConstantName"};
  vb::Label lblConstantValue{*this, u"lblConstantValue"};
  vb::TextBox txtConstantValue{*this, u"txtConstantValue"};
  vb::Label lblConstantType{*this, u"lblConstantType"};
  vb::ComboBox cboConstantType{*this, u"cboConstantType"};
  vb::Label lblConstantScope{*this, u"lblConstantScope"};
  // 0 "Public", 1 "Private".
  vb::ControlArray<vb::OptionButton> optConstantScope{*this, u"optConstantScope", {0, 1}};

  vb::CommandButton cmdOk{*this, u"cmdOk"};
  vb::CommandButton cmdApply{*this, u"cmdApply"};
  vb::CommandButton cmdCancel{*this, u"cmdCancel"};

 protected:
  void Form_Load() override;
  void Form_Unload(int& cancel) override;

 private:
  // Layout (frmNewMemberLayout.cpp)
  void SetCaptions();
  void Layout();
  void Wire();
  // VB would rebuild the controls from the designer on every load; this form object lives on.
  void ClearFields();

  // Dialog (frmNewMember.cpp)
  void tabNew_Click();
  void cmdOk_Click();
  void cmdApply_Click() { RunAdd(); }
  void cmdCancel_Click() { Unload(); }
  void ResetMethodTab();
  void ResetPropertyTab();
  void ResetConstantTab();
  // The Constant panel's scope rule: enabled only for a code module, Public only in a
  // standard module.
  void ApplyConstantScope();
  void FillTypeBox(vb::ComboBox& box);
  void FillLocalVariables();
  vbide::CodeModulePtr Module() const;

  // Arguments (frmNewMemberArguments.cpp)
  void cmdAddArg_Click();
  void cmdArgUp_Click();
  void cmdArgDown_Click();
  void cmdRemoveArg_Click();
  void chkByVal_Click();
  void chkOptional_Click();
  void chkParamArray_Click();
  void SetButtonStates();

  // Adding (frmNewMemberAdd.cpp). Each add returns false when the host raised an error.
  bool RunAdd();
  bool AddMethod();
  bool AddProperty();
  bool AddConstant();
  void InsertDeclaration(std::u16string_view text);
  void AddProcedure(std::u16string_view text);
  void NotifyCodeModified();

  mdlMain& main_;
  vbide::VBComponentPtr component_;
  vbide::Subscription codeModified_;
  std::u16string lastAddError_;
};

}  // namespace quillmark
