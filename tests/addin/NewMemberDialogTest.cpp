// The New Member dialog as a user drives it: opening on the module being edited, its lists and
// tabs, the argument rules and buttons, what Apply, OK and Cancel write, and what it remembers.
#include <gtest/gtest.h>

#include "addin/Connect.h"
#include "host/Ide.h"
#include "newmember/frmNewMember.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "support/AddinWorld.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"
#include "vbide/Window.h"

namespace {

using quillmark::frmNewMember;
using Texts = std::vector<std::u16string>;

qmtest::IdeBuilder Billing() {
  return qmtest::IdeBuilder()
      .Project(u"Billing")
      .Module(u"modMain",
              u"Option Explicit\nPrivate Count As Long\nConst Rate = 1\n\nSub Main()\nEnd Sub")
      .Class(u"CInvoice", u"Option Explicit\n\nPublic Sub Post()\nEnd Sub")
      .Form(u"frmMain", u"")
      .Module(u"modEmpty", u"Option Explicit");
}

class NewMember : public ::testing::Test {
 protected:
  NewMember() { world.ConnectLater(); }

  vbide::VBComponentPtr Component(std::u16string_view name) {
    return world.ide->VBProjects()->Item(1)->VBComponents()->Item(name);
  }
  // The user works in the module's code window and presses the toolbar's New Member button.
  frmNewMember& OpenOn(std::u16string_view module) {
    Component(module)->CodeModule()->CodePane()->Show();
    world.Addin()->Button_NewMember_Click();
    return Dialog();
  }
  frmNewMember& Dialog() { return *world.Main().gfrmNewMember; }
  vb::UserActions User() { return vb::UserActions(Dialog()); }
  // The module's lines joined by "\n".
  std::string Code(std::u16string_view module) {
    auto code = Component(module)->CodeModule();
    std::u16string text;
    for (int i = 1; i <= code->CountOfLines(); ++i) text.append(code->LineView(i)).append(u"\n");
    return vb::ToUtf8(text);
  }
  static Texts List(const vb::ListControl& box) {
    Texts texts;
    for (int i = 0; i < box.ListCount(); ++i) texts.push_back(box.List(i));
    return texts;
  }
  void AddArgument(std::u16string name, std::u16string type) {
    User().Type(u"txtArgName", std::move(name));
    User().Type(u"cboArgType", std::move(type));
    User().Click(u"cmdAddArg");
  }

  qmtest::AddinWorld world{Billing()};
};

TEST_F(NewMember, ToolbarOpensItModelessOnTheModuleBeingEditedWithItsLists) {
  auto& d = OpenOn(u"modMain");
  EXPECT_TRUE(d.Visible());
  EXPECT_FALSE(d.IsModal());
  EXPECT_EQ(d.Component(), Component(u"modMain"));
  EXPECT_EQ(d.tabNew.SelectedItem()->key, u"Method");  // a fresh user's first tab
  EXPECT_TRUE(d.picNew(0).Visible());
  EXPECT_FALSE(d.picNew(1).Visible());
  Texts scopes{u"Public", u"Private", u"Friend"};
  EXPECT_EQ(List(d.cboMethodScope), scopes);
  EXPECT_EQ(List(d.cboPropertyScope), scopes);
  EXPECT_EQ(d.cboMethodScope.Text(), u"Public");
  Texts types{u"Byte",   u"Boolean", u"Integer", u"Long",    u"Currency", u"Single",
              u"Double", u"Date",    u"String",  u"Variant", u"CInvoice", u"frmMain"};
  for (auto* box : {&d.cboMethodReturn, &d.cboArgType, &d.cboConstantType, &d.cboPropertyType,
                    &d.cboLocalVariableType})
    EXPECT_EQ(List(*box), types) << vb::ToUtf8(box->Name());
  EXPECT_EQ(List(d.cboLocalVariable), (Texts{u"Count", u"Rate"}));
}

TEST_F(NewMember, TheColorPropertyDeclaresItsVariableAndPutsLetAboveGet) {
  OpenOn(u"modMain");
  User().SelectTab(u"tabNew", 2);
  User().Type(u"txtPropertyName", u"Color");
  User().Type(u"cboPropertyType", u"Long");
  User().Type(u"cboLocalVariable", u"mlngColor");
  User().Type(u"cboLocalVariableType", u"Long");
  User().Click(u"cmdApply");
  EXPECT_EQ(Code(u"modMain"),
            "Option Explicit\n"
            "Private mlngColor As Long\n"
            "Private Count As Long\n"
            "Const Rate = 1\n"
            "Public Property Let Color(varColor As Long)\n\n\tmlngColor = varColor\n\n"
            "End Property\n"
            "Public Property Get Color() As Long\n\n\tColor = mlngColor\n\nEnd Property\n"
            "\n"
            "Sub Main()\n"
            "End Sub\n");
  // Apply keeps the dialog open with the Property tab reset for the next one.
  EXPECT_TRUE(Dialog().Visible());
  EXPECT_EQ(Dialog().txtPropertyName.Text(), u"");
  EXPECT_EQ(List(Dialog().cboLocalVariable), (Texts{u"mlngColor", u"Count", u"Rate"}));
}

TEST_F(NewMember, TheTotalFunctionIsBuiltFromItsArgumentList) {
  OpenOn(u"CInvoice");
  User().Type(u"txtMethodName", u"Total");
  User().Pick(u"cboMethodScope", 1);
  User().SetCheck(u"chkMethodStatic", 1);
  User().Type(u"cboMethodReturn", u"Long");
  User().Click(u"chkByVal");
  AddArgument(u"A", u"Long");
  User().Click(u"chkByVal");
  AddArgument(u"B", u"Long");
  User().Click(u"cmdApply");
  EXPECT_EQ(Code(u"CInvoice"),
            "Option Explicit\n"
            "Private Static Function Total(ByVal A As Long, B As Long) As Long\n\nEnd Function\n"
            "\n"
            "Public Sub Post()\n"
            "End Sub\n");
  // Apply leaves the dialog open with the tab empty for the next method.
  EXPECT_TRUE(Dialog().IsLoaded());
  EXPECT_EQ(Dialog().txtMethodName.Text(), u"");
  EXPECT_EQ(Dialog().cboMethodReturn.Text(), u"");
  EXPECT_EQ(Dialog().lstArguments.ListCount(), 0);
}

TEST_F(NewMember, ConstantsGoToLineOneThenBeforeTheFirstConstant) {
  OpenOn(u"modEmpty");
  User().SelectTab(u"tabNew", 3);
  struct Constant {
    std::u16string name, value;
    int type;  // entry of the type list, -1 for none
    int scope;
  } constants[] = {{u"MAX_ITEMS", u"10", 2, 0},
                   {u"Title", u"Report", 8, 1},
                   {u"Ratio", u"0.5", -1, 1},
                   {u"Label", u"Total", -1, 1}};
  for (auto& c : constants) {
    User().Type(u"txtConstantName", c.name);
    User().Type(u"txtConstantValue", c.value);
    if (c.type >= 0) User().Pick(u"cboConstantType", c.type);
    User().Click(u"optConstantScope", c.scope);
    User().Click(u"cmdApply");
    EXPECT_EQ(Dialog().cboConstantType.ListIndex(), -1);  // reset for the next one
  }
  EXPECT_EQ(Code(u"modEmpty"),
            "Private Const Label = \"Total\"\n"
            "Private Const Ratio = 0.5\n"
            "Private Const Title As String = \"Report\"\n"
            "Public Const MAX_ITEMS As Integer = 10\n"
            "Option Explicit\n");
}

TEST_F(NewMember, AddSelectsAndResetsTheTabOfTheKindAndKeepsTheTabForVariableAndEvent) {
  struct Case {
    int kind;
    const char16_t* tab;
  } cases[] = {{2, u"Property"}, {3, u"Property"}, {5, u"Constant"},
               {4, u"Constant"}, {1, u"Method"},   {frmNewMember::kKeepTab, u"Method"}};
  Component(u"modMain")->CodeModule()->CodePane()->Show();
  for (auto& c : cases) {
    Dialog().Add(c.kind);
    EXPECT_EQ(Dialog().tabNew.SelectedItem()->key, c.tab) << c.kind;
    EXPECT_TRUE(Dialog().Visible());
  }
  User().Type(u"txtMethodName", u"Kept");
  Dialog().Add(3);
  EXPECT_EQ(Dialog().txtMethodName.Text(), u"Kept");
  Dialog().Add(1);
  EXPECT_EQ(Dialog().txtMethodName.Text(), u"");
}

TEST_F(NewMember, TheLastTabAndPlaceComeBackAfterAReopen) {
  OpenOn(u"modMain");
  User().SelectTab(u"tabNew", 3);
  Dialog().Move(1200, 900);
  User().Click(u"cmdCancel");
  EXPECT_FALSE(Dialog().IsLoaded());
  EXPECT_EQ(world.Setting(u"frmNewMember", u"LastTab"), u"3");
  world.Disconnect();
  world.ConnectLater();
  auto& d = OpenOn(u"modMain");
  EXPECT_EQ(d.Left(), 1200);
  EXPECT_EQ(d.Top(), 900);
  EXPECT_EQ(d.tabNew.SelectedItem()->key, u"Constant");
  EXPECT_TRUE(d.picNew(2).Visible());
  EXPECT_FALSE(d.picNew(0).Visible());
}

// The check boxes' state as "O" Optional, "B" ByVal, "P" ParamArray, each followed by its value
// and "+" when usable or "-" when disabled, then the default box the same way with its text.
std::string OptionState(frmNewMember& d) {
  std::string s;
  for (auto* box : {&d.chkOptional, &d.chkByVal, &d.chkParamArray})
    s += std::string(1, static_cast<char>(box->Caption()[0])) + std::to_string(box->Value()) +
         (box->Enabled() ? "+ " : "- ");
  return s + "D" + (d.txtArgDefault.Enabled() ? "+" : "-") + vb::ToUtf8(d.txtArgDefault.Text()) +
         (d.txtArgDefault.BackColor() == 0x80000005 ? " window" : " face");
}

TEST_F(NewMember, ArgumentOptionsFollowTheirRulesWithTheByValAsymmetry) {
  struct Case {
    std::vector<const char16_t*> clicks;  // "=text" types into the default box
    const char* state;
  } cases[] = {
      {{}, "O0+ B0+ P0+ D- face"},
      {{u"chkParamArray"}, "O0- B0- P1+ D- face"},
      {{u"chkParamArray", u"chkParamArray"}, "O0+ B0+ P0+ D- face"},
      {{u"chkOptional", u"=5"}, "O1+ B0+ P0- D+5 window"},
      {{u"chkOptional", u"=5", u"chkOptional"}, "O0+ B0+ P0+ D- face"},
      {{u"chkByVal"}, "O0+ B1+ P0- D- face"},
      // Unchecking ByVal enables ParamArray although Optional is still checked; checking it then
      // unchecks Optional, which empties the default box.
      {{u"chkOptional", u"chkByVal", u"=7", u"chkByVal"}, "O1+ B0+ P0+ D+7 window"},
      {{u"chkOptional", u"chkByVal", u"=7", u"chkByVal", u"chkParamArray"}, "O0- B0- P1+ D- face"},
  };
  for (auto& c : cases) {
    auto& d = OpenOn(u"modMain");
    for (auto* click : c.clicks) {
      if (click[0] == u'=')
        User().Type(u"txtArgDefault", click + 1);
      else
        User().Click(click);
    }
    EXPECT_EQ(OptionState(d), c.state) << c.clicks.size();
    User().Click(u"cmdCancel");
  }
}

TEST_F(NewMember, ArgumentsKeepTheBoxesAndNeedANameAndAType) {
  auto& d = OpenOn(u"modMain");
  User().Click(u"chkOptional");
  User().Type(u"txtArgDefault", u"1");
  AddArgument(u"Count", u"Long");
  AddArgument(u"", u"Long");
  AddArgument(u"Size", u"");
  EXPECT_EQ(List(d.lstArguments), (Texts{u"Optional Count As Long = 1"}));
  auto& boxes = world.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(boxes[0].prompt, u"You must enter an argument name and select it's data type.");
  EXPECT_EQ(boxes[0].style, 48);
  EXPECT_EQ(d.txtArgName.Text(), u"Size");  // a refused argument changes nothing
  AddArgument(u"Size", u"Long");
  EXPECT_EQ(d.lstArguments.List(1), u"Optional Size As Long = 1");
}

TEST_F(NewMember, MoveAndRemoveFollowTheSelectionAndTheParamArrayText) {
  auto& d = OpenOn(u"modMain");
  AddArgument(u"A", u"Long");
  AddArgument(u"B", u"Long");
  AddArgument(u"C", u"Long");
  auto states = [&] {
    return std::string(d.cmdArgUp.Enabled() ? "U" : "-") + (d.cmdArgDown.Enabled() ? "D" : "-") +
           (d.cmdRemoveArg.Enabled() ? "R" : "-");
  };
  EXPECT_EQ(states(), "---");
  User().Pick(u"lstArguments", 2);
  EXPECT_EQ(states(), "U-R");
  User().Click(u"cmdArgUp");
  EXPECT_EQ(List(d.lstArguments), (Texts{u"A As Long", u"C As Long", u"B As Long"}));
  EXPECT_EQ(d.lstArguments.ListIndex(), 1);
  EXPECT_EQ(states(), "UDR");
  User().Click(u"cmdArgDown");
  User().Pick(u"lstArguments", 0);
  User().Click(u"cmdArgDown");
  EXPECT_EQ(List(d.lstArguments), (Texts{u"B As Long", u"A As Long", u"C As Long"}));
  User().Click(u"cmdRemoveArg");
  EXPECT_EQ(List(d.lstArguments), (Texts{u"B As Long", u"C As Long"}));
  EXPECT_EQ(states(), "---");
  // Only " ParamArray " inside an entry holds the move buttons; an entry the ParamArray box
  // built starts with the word and holds nothing.
  User().Click(u"chkParamArray");
  AddArgument(u"Rest", u"Variant");
  User().Click(u"chkParamArray");
  AddArgument(u"X", u"Long ParamArray Y");
  User().Pick(u"lstArguments", 1);
  EXPECT_EQ(states(), "UDR");  // the entry below starts with the word
  User().Pick(u"lstArguments", 2);
  EXPECT_EQ(d.lstArguments.Text(), u"ParamArray Rest() As Variant");
  EXPECT_EQ(states(), "U-R");  // the entry below has it inside
  User().Pick(u"lstArguments", 3);
  EXPECT_EQ(states(), "--R");
}

TEST_F(NewMember, TheConstantScopeFollowsTheComponent) {
  struct Case {
    const char16_t* module;
    bool panel, publicUsable, publicChosen;
  } cases[] = {{u"modMain", true, true, true},
               {u"CInvoice", true, false, false},
               {u"frmMain", true, false, false}};
  for (auto& c : cases) {
    auto& d = OpenOn(c.module);
    EXPECT_EQ(d.picNew(2).Enabled(), c.panel) << vb::ToUtf8(c.module);
    EXPECT_EQ(d.optConstantScope(0).Enabled(), c.publicUsable) << vb::ToUtf8(c.module);
    EXPECT_EQ(d.optConstantScope(0).Value(), c.publicChosen) << vb::ToUtf8(c.module);
    EXPECT_EQ(d.optConstantScope(1).Value(), !c.publicChosen) << vb::ToUtf8(c.module);
  }
}

TEST_F(NewMember, WithoutAModuleTheListsAreEmptyTheConstantPanelDisabledAndAddsFail) {
  world.Addin()->Button_NewMember_Click();  // no code window was ever shown, nothing selected
  auto& d = Dialog();
  EXPECT_EQ(d.Component(), nullptr);
  EXPECT_FALSE(d.picNew(2).Enabled());
  EXPECT_EQ(d.cboLocalVariable.ListCount(), 0);
  User().Type(u"txtMethodName", u"Lost");
  User().Click(u"cmdOk");
  EXPECT_TRUE(d.Visible());
  EXPECT_EQ(d.txtMethodName.Text(), u"Lost");
  EXPECT_NE(d.LastAddError(), u"");
}

TEST_F(NewMember, TheComponentTheUserWorksOn) {
  // No code window active: the Project window's selection; none selected: the last code window.
  Component(u"modMain")->CodeModule()->CodePane()->Show();
  world.ide->MainWindow()->SetFocus();
  world.Addin()->Button_NewMember_Click();
  EXPECT_EQ(Dialog().Component(), Component(u"modMain"));
  world.ide->SelectComponent(Component(u"CInvoice"));
  world.Addin()->Button_NewMember_Click();
  EXPECT_EQ(Dialog().Component(), Component(u"CInvoice"));
  Component(u"modEmpty")->CodeModule()->CodePane()->Show();
  world.Addin()->Button_NewMember_Click();
  EXPECT_EQ(Dialog().Component(), Component(u"modEmpty"));
}

TEST_F(NewMember, OkWithAnEmptyNameStillAddsAndAFailedAddKeepsEverything) {
  OpenOn(u"modEmpty");
  User().Click(u"cmdOk");
  EXPECT_EQ(Code(u"modEmpty"), "Option Explicit\nPublic Sub ()\n\nEnd Sub\n");
  EXPECT_FALSE(Dialog().IsLoaded());

  auto& d = OpenOn(u"modMain");
  AddArgument(u"A", u"Long");
  User().Type(u"txtMethodName", u"Late");
  world.ide->VBProjects()->Item(1)->VBComponents()->Remove(Component(u"modMain"));
  User().Click(u"cmdApply");
  EXPECT_TRUE(d.Visible());
  EXPECT_EQ(d.txtMethodName.Text(), u"Late");
  EXPECT_EQ(List(d.lstArguments), (Texts{u"A As Long"}));
  EXPECT_NE(d.LastAddError(), u"");
}

TEST_F(NewMember, CodeModifiedListsTheModulesVariablesAgain) {
  auto& d = OpenOn(u"modMain");
  Component(u"modMain")->CodeModule()->InsertLines(2, u"Public Total As Currency");
  EXPECT_EQ(List(d.cboLocalVariable), (Texts{u"Count", u"Rate"}));
  world.Addin()->CodeModified();
  EXPECT_EQ(List(d.cboLocalVariable), (Texts{u"Total", u"Count", u"Rate"}));
}

}  // namespace
