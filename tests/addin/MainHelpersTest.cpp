// The main module's shared routines: delimited fields, the type list and its triggers, form
// placement and column widths in the settings, full-row selection and Alt-key forwarding.
#include <gtest/gtest.h>

#include "base/mdlMainHelpers.h"
#include "runtime/UserDocument.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/ListView.h"
#include "support/AddinWorld.h"
#include "vbide/VBComponent.h"
#include "vbide/VBProject.h"
#include "vbide/Window.h"

namespace {

using qmtest::AddinWorld;
using qmtest::IdeBuilder;
using quillmark::CountFields;
using quillmark::GetField;

TEST(Fields, CountAndGetFollowTheirRules) {
  struct Case {
    std::u16string text, delimiter;
    int count;
    std::vector<std::u16string> fields;  // 0, 1, 2, 3
  };
  std::vector<Case> cases = {
      {u"a|b|c", u"|", 3, {u"a", u"b", u"c", u""}},
      {u"", u"|", 1, {u"", u"", u"", u""}},
      {u"a||b", u"|", 3, {u"a", u"", u"b", u""}},
      {u"M||Refresh||1", u"||", 3, {u"M", u"Refresh", u"1", u""}},
      {u"|||", u"||", 2, {u"", u"|", u"", u""}},      // non-overlapping, resumed after each match
      {u"aXbxc", u"x", 2, {u"aXb", u"c", u"", u""}},  // case-sensitive
  };
  for (auto& c : cases) {
    EXPECT_EQ(CountFields(c.text, c.delimiter), c.count) << vb::ToUtf8(c.text);
    for (int i = 0; i < 4; ++i)
      EXPECT_EQ(GetField(c.text, static_cast<std::int16_t>(i), c.delimiter), c.fields[i]);
  }
}

TEST(Fields, IsNotIntrinsicIsALooseSubstringTest) {
  for (auto name : {u"Long", u"string", u"Int", u"ouble", u"Date", u"g|C"})
    EXPECT_FALSE(quillmark::IsNotIntrinsic(name));
  for (auto name : {u"Object", u"Collection", u"TextBox", u"CInvoice"})
    EXPECT_TRUE(quillmark::IsNotIntrinsic(name));
}

TEST(TypeList, AddsClassesFormsAndDocumentsOfTheActiveProjectOnly) {
  AddinWorld w(IdeBuilder()
                   .Project(u"Billing")
                   .Module(u"modMain")
                   .Class(u"CInvoice")
                   .Form(u"frmMain")
                   .Component(vbide::vbext_ct_UserControl, u"ctlAmount", u"")
                   .Component(vbide::vbext_ct_DocObject, u"docStatement", u"")
                   .Component(vbide::vbext_ct_VBMDIForm, u"mdiMain", u"")
                   .Project(u"Stock")
                   .Class(u"CItem"));
  w.ConnectLater();
  EXPECT_EQ(w.Main().gTypeList,
            u"Byte|Boolean|Integer|Long|Currency|Single|Double|Date|String|Variant|CInvoice|"
            u"frmMain|docStatement|mdiMain");
  // Selecting a component of the other project makes it active: the list follows.
  w.ide->SelectComponent(w.ide->VBProjects()->Item(2)->VBComponents()->Item(1));
  EXPECT_EQ(w.Main().gTypeList,
            u"Byte|Boolean|Integer|Long|Currency|Single|Double|Date|String|Variant|CItem");
  quillmark::RefreshTypeList(w.Main(), false);
  EXPECT_EQ(w.Main().gTypeList,
            u"Byte|Boolean|Integer|Long|Currency|Single|Double|Date|String|Variant");
}

class frmPlaced : public vb::Form {
 public:
  explicit frmPlaced(vb::Runtime& runtime) : Form(runtime, u"frmPlaced") {}
};

TEST(FormPosition, NothingSavedCentresAndAMaximisedFormSavesOnlyItsState) {
  AddinWorld w;
  w.ConnectLater();
  frmPlaced form(*w.runtime);
  quillmark::LoadFormPosition(w.Main().Rt(), form, true);
  EXPECT_EQ(form.Width(), 9000);
  EXPECT_EQ(form.Height(), 6000);
  EXPECT_EQ(form.Left(), (w.runtime->GetScreen().Width() - 9000) / 2);
  EXPECT_EQ(form.Top(), (w.runtime->GetScreen().Height() - 6000) / 2);

  form.Move(300, 450, 7000, 5000);
  quillmark::SaveFormPosition(w.Main().Rt(), form, true);
  EXPECT_EQ(w.Setting(u"frmPlaced", u"Left"), u"300");
  EXPECT_EQ(w.Setting(u"frmPlaced", u"Width"), u"7000");
  form.SetWindowState(vb::vbMaximized);
  form.Move(0, 0);
  quillmark::SaveFormPosition(w.Main().Rt(), form, true);
  EXPECT_EQ(w.Setting(u"frmPlaced", u"WindowState"), u"2");
  EXPECT_EQ(w.Setting(u"frmPlaced", u"Left"), u"300");  // the last normal place stays

  frmPlaced again(*w.runtime);
  w.Store(u"frmPlaced", u"WindowState", u"0");
  quillmark::LoadFormPosition(w.Main().Rt(), again, true);
  EXPECT_EQ(again.Left(), 300);
  EXPECT_EQ(again.Top(), 450);
  EXPECT_EQ(again.Width(), 7000);
}

class docColumns : public vb::UserDocument {
 public:
  explicit docColumns(vb::Runtime& runtime) : UserDocument(runtime, u"docColumns") {
    for (auto caption : {u"A", u"B", u"C"}) lvw.ColumnHeaders().Add(0, {}, caption);
  }
  vb::ListView lvw{*this, u"lvw"};
};

TEST(WindowCalls, FullRowSelectSetsTheBitAndAltLettersGoToTheMainFrame) {
  AddinWorld w;
  w.ConnectLater();
  docColumns doc(*w.runtime);
  quillmark::SetFullRowSelect(w.Main().Rt(), doc.lvw.hWnd());
  EXPECT_EQ(
      w.runtime->Windows().SendMessage(doc.lvw.hWnd(), vb::kLvmGetExtendedListViewStyle, 0, 0) & 32,
      32);

  w.Addin()->ShowListView();
  auto document = std::static_pointer_cast<host::Window>(w.Main().gwinListView)->Document();
  ASSERT_NE(document, nullptr);
  auto mainFrame = static_cast<vb::Hwnd>(w.ide->MainWindow()->HWnd());
  EXPECT_EQ(quillmark::TopLevelParent(w.Main().Rt(), document->hWnd()), mainFrame);

  int keyCode = 'F';
  w.ide->Immediate()->SetFocus();  // the IDE has an active window to take the accelerator
  quillmark::PassAltKeyToIDE(w.Main(), *document, keyCode, 1);  // Shift alone: not forwarded
  EXPECT_EQ(keyCode, 'F');
  quillmark::PassAltKeyToIDE(w.Main(), *document, keyCode, 4);
  EXPECT_EQ(keyCode, 0);
  EXPECT_EQ(w.runtime->Windows().GetFocus(), mainFrame);
  ASSERT_FALSE(w.runtime->Windows().PostedMessages().empty());
  EXPECT_EQ(w.runtime->Windows().PostedMessages().back(),
            (vb::PostedMessage{mainFrame, 260, 'F', 0x20000000}));
  int digit = '5';
  quillmark::PassAltKeyToIDE(w.Main(), *document, digit, 4);
  EXPECT_EQ(digit, '5');
}

}  // namespace
