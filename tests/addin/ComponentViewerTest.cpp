// The Component Viewer as a user drives it: the rows of each view, the saved column widths,
// refreshes from the IDE and during a fill, the selector's Enter, clicks, the popup menu, and
// renaming, deleting and selecting members and controls of a real form file.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "addin/Connect.h"
#include "host/Window.h"
#include "newmember/frmNewMember.h"
#include "runtime/CodePage.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "runtime/VbConstants.h"
#include "support/AddinWorld.h"
#include "support/TempFolder.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/Events.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBForm.h"
#include "vbide/VBProject.h"
#include "vbide/Window.h"
#include "viewer/docListView.h"

namespace {

using quillmark::docListView;
using Rows = std::vector<std::string>;

const std::string kVbp =
    "Type=Exe\r\nForm=frmOrder.frm\r\nModule=modMain; modMain.bas\r\nModule=modEmpty; "
    "modEmpty.bas\r\nName=\"Orders\"\r\n";
const std::string kFrm =
    "VERSION 5.00\r\n"
    "Begin VB.Form frmOrder \r\n"
    "   Caption         =   \"Order\"\r\n"
    "   Begin VB.TextBox Text1 \r\n"
    "      Height          =   315\r\n"
    "   End\r\n"
    "   Begin VB.OptionButton Option1 \r\n"
    "      Index           =   0\r\n"
    "   End\r\n"
    "   Begin VB.OptionButton Option1 \r\n"
    "      Index           =   1\r\n"
    "   End\r\n"
    "   Begin VB.CommandButton cmdAbc \r\n"
    "   End\r\n"
    "End\r\n"
    "Attribute VB_Name = \"frmOrder\"\r\n"
    "Option Explicit\r\n"             // 1
    "Private mAbcCount As Long\r\n"   // 2
    "Const ABC_MAX = 10\r\n"          // 3
    "Public Event Changed()\r\n"      // 4
    "Public Sub DoIt()\r\n"           // 5
    "End Sub\r\n"                     // 6
    "Private Sub Text1_Change()\r\n"  // 7
    "    Text1.Text = x\r\n"          // 8
    "    Caption = \"Text1\"\r\n"     // 9
    "    Call Foo(Text1)\r\n"         // 10
    "    Text1 = Text1 + 1\r\n"       // 11
    "End Sub\r\n"                     // 12
    "Private Sub Option1_Click(Index As Integer)\r\n"
    "End Sub\r\n"
    "Public Property Get Abc() As Long\r\n"
    "End Property\r\n"
    "Private Sub Foo(v)\r\n"
    "End Sub\r\n";
const std::string kMain =
    "Attribute VB_Name = \"modMain\"\r\nSub Main()\r\n    Text1 = 1\r\nEnd Sub\r\n";
const std::string kEmpty = "Attribute VB_Name = \"modEmpty\"\r\nOption Explicit\r\n";

class ComponentViewer : public ::testing::Test {
 protected:
  ComponentViewer() {
    folder.Write("Orders.vbp", kVbp);
    folder.Write("frmOrder.frm", kFrm);
    folder.Write("modMain.bas", kMain);
    folder.Write("modEmpty.bas", kEmpty);
    EXPECT_TRUE(world.ide->Open(folder.Path() / "Orders.vbp").empty());
    world.ConnectLater();
    world.Addin()->Menu_ListView_Click();
    Select(u"frmOrder");
  }

  vbide::VBComponentPtr Component(std::u16string_view name) {
    return world.ide->VBProjects()->Item(1)->VBComponents()->Item(name);
  }
  // The user selects the component in the Project window.
  void Select(std::u16string_view name) { world.ide->SelectComponent(Component(name)); }
  docListView& Viewer() { return *world.Main().gdocListView; }
  vb::UserActions User() { return vb::UserActions(Viewer()); }
  // The user types a view or filter into the selector and presses Enter.
  void Show(std::u16string text) {
    User().Type(u"cboListView", std::move(text));
    User().PressKey(u"cboListView", 13);
  }
  // Each row as "key|text|icon".
  Rows Listed() {
    Rows rows;
    auto& items = Viewer().lvwExplorer.ListItems();
    for (int i = 1; i <= items.Count(); ++i) {
      auto& item = items(i);
      rows.push_back(vb::ToUtf8(item.Key()) + "|" + vb::ToUtf8(item.Text()) + "|" +
                     vb::ToUtf8(item.SmallIcon()));
    }
    return rows;
  }
  int Row(std::u16string_view key) { return Viewer().lvwExplorer.ListItems()(key).Index(); }
  std::string Line(std::u16string_view module, int line) {
    return vb::ToUtf8(Component(module)->CodeModule()->Lines(line, 1));
  }
  std::string Code(std::u16string_view module) {
    auto code = Component(module)->CodeModule();
    return vb::ToUtf8(code->Lines(1, code->CountOfLines()));
  }
  std::vector<std::u16string> ControlNames() {
    std::vector<std::u16string> names;
    for (auto& c : Component(u"frmOrder")->Designer()->VBControls()->Items())
      names.push_back(c->Name() + (c->Index() >= 0
                                       ? u"(" + vb::FromUtf8(std::to_string(c->Index())) + u")"
                                       : u""));
    return names;
  }
  vb::MessageBoxes& Boxes() { return world.runtime->MessageBoxService(); }

  qmtest::TempFolder folder;
  qmtest::AddinWorld world;
};

const Rows kControls = {"C||Text1||-1|Text1|Control", "C||Option1||0|Option1 (0)|Control",
                        "C||Option1||1|Option1 (1)|Control", "C||cmdAbc||-1|cmdAbc|Control"};

TEST_F(ComponentViewer, EachViewListsItsRowsInTheIdesOrder) {
  struct Case {
    std::u16string selector;
    Rows rows;
  } cases[] = {
      {u"(Controls)", kControls},
      {u"(Methods/Properties)",
       {"D|||(Declarations)|", "M||DoIt||1|DoIt|Method", "M||Text1_Change||1|Text1_Change|Method",
        "M||Option1_Click||1|Option1_Click|Method", "M||Abc||2|Abc|Property",
        "M||Foo||1|Foo|Method"}},
      {u"(Constants/Variables)",
       {"D|||(Declarations)|", "M||mAbcCount||3|mAbcCount|Variable",
        "M||ABC_MAX||5|ABC_MAX|Constant"}},
      {u"(Events)", {"D|||(Declarations)|", "M||Changed||4|Changed|Event"}},
      // A typed filter, without regard to case: controls first, then the matching members.
      {u"aBc",
       {"C||cmdAbc||-1|cmdAbc|Control", "D|||(Declarations)|", "M||mAbcCount||3|mAbcCount|Variable",
        "M||ABC_MAX||5|ABC_MAX|Constant", "M||Abc||2|Abc|Property"}},
      // A caption differing only in case is a filter too.
      {u"(events)", {"D|||(Declarations)|"}},
  };
  for (auto& c : cases) {
    SCOPED_TRACE(vb::ToUtf8(c.selector));
    Show(c.selector);
    EXPECT_EQ(Listed(), c.rows);
    EXPECT_TRUE(Viewer().lvwExplorer.Visible());
  }
  // The empty text filters nothing: every control, the declarations, every member.
  Show(u"");
  EXPECT_EQ(Listed().size(), 4u + 1u + 8u);
  EXPECT_EQ(Listed()[4], "D|||(Declarations)|");
}

TEST_F(ComponentViewer, AModuleWithoutMembersOrDesignerListsOnlyTheDeclarations) {
  Select(u"modEmpty");
  for (auto view : {u"(Methods/Properties)", u"(Constants/Variables)", u"(Events)", u"x"}) {
    SCOPED_TRACE(vb::ToUtf8(view));
    Show(view);
    EXPECT_EQ(Listed(), Rows{"D|||(Declarations)|"});
  }
  Show(u"(Controls)");
  EXPECT_TRUE(Listed().empty());
}

TEST_F(ComponentViewer, ColumnWidthsAreKeptPerViewAndTypedFiltersShareOne) {
  auto& column = Viewer().lvwExplorer.ColumnHeaders();
  Show(u"(Events)");
  world.Store(u"ListView", u"(Controls)1", u"20000");
  world.Store(u"ListView", u"(Custom)1", u"2000");
  ASSERT_EQ(column.Count(), 1);
  EXPECT_EQ(column(1).Text(), u"Name");
  EXPECT_EQ(column(1).Width(), 1440);
  column(1).SetWidth(3000);
  Show(u"(Controls)");
  EXPECT_EQ(world.Setting(u"ListView", u"(Events)1"), u"2715");  // written less 285
  EXPECT_EQ(column(1).Width(), 1440) << "a stored 20000 reads as 1440";
  Show(u"Load");
  EXPECT_EQ(column(1).Width(), 2000);
  column(1).SetWidth(2600);
  Show(u"Save");  // another filter: saved and restored under the one caption
  EXPECT_EQ(world.Setting(u"ListView", u"(Custom)1"), u"2315");
  EXPECT_EQ(column(1).Width(), 2315);
}

TEST_F(ComponentViewer, EnterAddsATypedFilterOnceAndSwallowsTheKey) {
  auto& box = Viewer().cboListView;
  int keyAscii = 13;
  Show(u"Load");
  Show(u"Load");
  Show(u"(Events)");
  Show(u"");
  std::vector<std::u16string> list;
  for (int i = 0; i < box.ListCount(); ++i) list.push_back(box.List(i));
  EXPECT_EQ(list,
            (std::vector<std::u16string>{u"(Controls)", u"(Methods/Properties)",
                                         u"(Constants/Variables)", u"(Events)", u"Load", u"Load"}));
  EXPECT_EQ(Listed().size(), 13u) << "the empty text lists everything";
  box.KeyPress(keyAscii);
  EXPECT_EQ(keyAscii, 0);
  User().Pick(u"cboListView", 3);
  EXPECT_EQ(Listed(), (Rows{"D|||(Declarations)|", "M||Changed||4|Changed|Event"}));
}

TEST_F(ComponentViewer, FollowsTheIdesSelectionAndRefreshesOnControlEventsOnlyWhileControlsShow) {
  Select(u"modMain");
  EXPECT_EQ(Listed(), Rows{}) << "a module has no controls";
  Select(u"frmOrder");
  EXPECT_EQ(Listed(), kControls);
  auto text1 = Component(u"frmOrder")->Designer()->VBControls()->Item(1);
  Show(u"(Methods/Properties)");
  Rows members = Listed();
  text1->SetProperty(u"Name", u"txtName");
  Component(u"frmOrder")->Designer()->VBControls()->Add(u"VB.Label");
  Component(u"frmOrder")->CodeModule()->DeleteLines(5, 2);  // DoIt, behind the viewer's back
  EXPECT_EQ(Listed(), members) << "a control event does not rebuild a member view";
  User().PressKey(u"lvwExplorer", 116);  // F5
  EXPECT_NE(Listed(), members);
  // A component the IDE reloaded is listed anew.
  Component(u"frmOrder")->CodeModule()->DeleteLines(5, 2);  // Text1_Change's first lines
  members = Listed();
  world.ide->Hub().ForComponents(
      nullptr, [&](vbide::VBComponentsEvents& e) { e.ItemReloaded.Raise(Component(u"frmOrder")); });
  EXPECT_NE(Listed(), members);
  world.ide->Immediate()->SetFocus();
  User().PressKey(u"lvwExplorer", 'F', 4);  // Alt+F opens the IDE's File menu
  auto mainFrame = static_cast<vb::Hwnd>(world.ide->MainWindow()->HWnd());
  ASSERT_FALSE(world.runtime->Windows().PostedMessages().empty());
  EXPECT_EQ(world.runtime->Windows().PostedMessages().back(),
            (vb::PostedMessage{mainFrame, 260, 'F', 0x20000000}));
  Show(u"(Controls)");
  text1->SetProperty(u"Name", u"txtOrder");
  EXPECT_EQ(Listed()[0], "C||txtOrder||-1|txtOrder|Control");
  Component(u"frmOrder")->Designer()->VBControls()->Remove(1);
  EXPECT_EQ(Listed().size(), 4u);
  Component(u"frmOrder")->Designer()->VBControls()->Add(u"VB.TextBox");
  EXPECT_EQ(Listed().back(), "C||Text1||-1|Text1|Control");
}

TEST_F(ComponentViewer, ARefreshDuringAFillCancelsItAndTheFillStartsOver) {
  std::u16string many;
  for (int i = 1; i <= 100; ++i)
    many += u"Sub P" + vb::FromUtf8(std::to_string(i)) + u"()\nEnd Sub\n";
  Component(u"modMain")->CodeModule()->AddFromString(many);
  Select(u"modMain");
  auto& viewer = Viewer();
  int pumps = 0;
  bool over = false;
  std::function<void()> during = [&] {
    if (over) return;
    ++pumps;
    EXPECT_TRUE(viewer.Filling());
    EXPECT_FALSE(viewer.lvwExplorer.Visible());
    if (pumps == 1) {
      viewer.cboListView.SetText(u"P1");  // the user's next wish while the list fills
      viewer.Refresh();
      EXPECT_TRUE(viewer.CancelFill());
      viewer.Refresh();  // a third request while the cancellation is pending: dropped
    }
    world.runtime->Loop().Post(during);
  };
  world.runtime->Loop().Post(during);
  Show(u"(Methods/Properties)");
  over = true;
  world.runtime->DoEvents();  // the last posted call, now idle
  EXPECT_FALSE(viewer.Filling());
  EXPECT_FALSE(viewer.CancelFill());
  EXPECT_TRUE(viewer.lvwExplorer.Visible());
  // Only the fill for "P1" ran to its end: the first stopped at its first pump.
  Rows rows = Listed();
  ASSERT_EQ(rows.size(), 1u + 12u);  // Declarations, P1, P10..P19, P100
  EXPECT_EQ(rows[1], "M||P1||1|P1|Method");
  EXPECT_EQ(pumps, 1 + 101 / 20) << "one pump cancelled the first fill; the second pumped "
                                    "every 20 members of its 101";
}

TEST_F(ComponentViewer, ClicksOnRowsRaiseControlsAndOpenCodeOrTheDesigner) {
  User().SelectRows(u"lvwExplorer", {Row(u"C||Option1||0")});
  EXPECT_EQ(ControlNames().back(), u"Option1(0)") << "brought to the front";
  struct Case {
    std::u16string view, key;
    int line;
  } carets[] = {{u"(Methods/Properties)", u"M||Text1_Change||1", 7},
                {u"(Methods/Properties)", u"D||", 1},
                {u"(Events)", u"M||Changed||4", 4}};
  for (auto& c : carets) {
    SCOPED_TRACE(vb::ToUtf8(c.key));
    Show(c.view);
    User().DblClickRow(u"lvwExplorer", Row(c.key));
    auto pane = world.ide->ActiveCodePane();
    ASSERT_TRUE(pane);
    int sl, sc, el, ec;
    pane->GetSelection(sl, sc, el, ec);
    EXPECT_EQ(std::vector<int>({sl, sc, el, ec}), std::vector<int>({c.line, 1, c.line, 1}));
  }
  Show(u"(Controls)");
  User().DblClickRow(u"lvwExplorer", Row(u"C||Text1||-1"));
  EXPECT_TRUE(Component(u"frmOrder")->DesignerWindow()->Visible());
}

TEST_F(ComponentViewer, ThePopupMenuIsEnabledByTheRowAndTheDeclarationsCannotBeEdited) {
  auto& v = Viewer();
  Show(u"Abc");  // cmdAbc, the declarations and three members
  struct Case {
    std::u16string key;
    bool select, rename;
  } cases[] = {{u"C||cmdAbc||-1", true, true}, {u"M||Abc||2", false, true}, {u"D||", false, false}};
  for (auto& c : cases) {
    SCOPED_TRACE(vb::ToUtf8(c.key));
    User().SelectRows(u"lvwExplorer", {Row(c.key)});
    User().MouseUp(u"lvwExplorer", 2);
    EXPECT_EQ(v.mnuPopupSelect.Enabled(), c.select);
    EXPECT_EQ(v.mnuPopupRename.Enabled(), c.rename);
    EXPECT_EQ(v.mnuPopupDelete.Enabled(), c.rename);
    EXPECT_TRUE(v.mnuPopupNew.Enabled());
    v.lvwExplorer.StartLabelEdit();  // the gate lets members and controls be edited
    EXPECT_EQ(v.lvwExplorer.EditingItem() != nullptr, c.rename);
    if (v.lvwExplorer.EditingItem()) v.lvwExplorer.UserCancelLabelEdit();
  }
  EXPECT_EQ(v.PoppedMenus().size(), 3u);
  User().MouseUp(u"lvwExplorer", 1);  // the left button shows nothing
  EXPECT_EQ(v.PoppedMenus().size(), 3u);
  User().Click(u"mnuPopupNewMember", docListView::kNewConstant);
  EXPECT_EQ(world.Main().gfrmNewMember->tabNew.SelectedItem()->key, u"Constant");
}

TEST_F(ComponentViewer, RenamingAMemberRewritesOnlyItsDeclarationLine) {
  Show(u"(Methods/Properties)");
  std::string before = Code(u"frmOrder");
  for (auto refused : {u"", u"Do That"}) {
    SCOPED_TRACE(vb::ToUtf8(refused));
    User().SelectRows(u"lvwExplorer", {Row(u"M||DoIt||1")});
    User().Click(u"mnuPopupRename");
    User().CommitLabel(u"lvwExplorer", refused);
    EXPECT_EQ(Viewer().lvwExplorer.ListItems()(u"M||DoIt||1").Text(), u"DoIt");
    EXPECT_EQ(Code(u"frmOrder"), before);
  }
  User().Click(u"mnuPopupRename");
  User().CommitLabel(u"lvwExplorer", u"DoThat");
  EXPECT_EQ(Line(u"frmOrder", 5), "Public Sub DoThat()");
  EXPECT_EQ(Viewer().lvwExplorer.SelectedItem()->Key(), u"M||DoThat||1");
  EXPECT_EQ(Viewer().lvwExplorer.SelectedItem()->Text(), u"DoThat");
  EXPECT_FALSE(Viewer().Suspended());
  // A variable: the label takes the name, the code and the key stay.
  Show(u"(Constants/Variables)");
  User().SelectRows(u"lvwExplorer", {Row(u"M||mAbcCount||3")});
  User().Click(u"mnuPopupRename");
  User().CommitLabel(u"lvwExplorer", u"mTotal");
  EXPECT_EQ(Viewer().lvwExplorer.SelectedItem()->Text(), u"mTotal");
  EXPECT_EQ(Viewer().lvwExplorer.SelectedItem()->Key(), u"M||mAbcCount||3");
  EXPECT_EQ(Line(u"frmOrder", 2), "Private mAbcCount As Long");
}

TEST_F(ComponentViewer, RenamingAControlRewritesItsProceduresAndItsUsesInItsOwnModule) {
  User().SelectRows(u"lvwExplorer", {Row(u"C||Text1||-1")});
  User().Click(u"mnuPopupRename");
  User().CommitLabel(u"lvwExplorer", u"txtName");
  EXPECT_EQ(Line(u"frmOrder", 7), "Private Sub txtName_Change()");
  EXPECT_EQ(Line(u"frmOrder", 8), "    txtName.Text = x");
  EXPECT_EQ(Line(u"frmOrder", 9), "    Caption = \"Text1\"");
  EXPECT_EQ(Line(u"frmOrder", 10), "    Call Foo(Text1)");
  EXPECT_EQ(Line(u"frmOrder", 11), "    txtName = txtName + 1");
  EXPECT_EQ(Line(u"modMain", 2), "    Text1 = 1") << "other modules keep their code";
  EXPECT_EQ(ControlNames().back(), u"txtName");
  EXPECT_EQ(Viewer().lvwExplorer.SelectedItem()->Key(), u"C||txtName||-1");
  EXPECT_FALSE(Viewer().Suspended());
  // Saved: the designer block names the control anew and every other byte stays.
  world.ide->SaveAll();
  std::ifstream in(folder.Path() / "frmOrder.frm", std::ios::binary);
  std::string saved((std::istreambuf_iterator<char>(in)), {});
  // The click that selected the row brought the control to the front: its block moved last.
  std::string expected = kFrm;
  std::string block = "   Begin VB.TextBox Text1 \r\n      Height          =   315\r\n   End\r\n";
  expected.erase(expected.find(block), block.size());
  expected.insert(expected.find("End\r\nAttribute"), block);
  expected.replace(expected.find("VB.TextBox Text1"), 16, "VB.TextBox txtName");
  for (auto [from, to] : {std::pair{"Sub Text1_Change", "Sub txtName_Change"},
                          {"    Text1.Text", "    txtName.Text"},
                          {"Text1 = Text1 + 1", "txtName = txtName + 1"}})
    expected.replace(expected.find(from), std::string(from).size(), to);
  EXPECT_EQ(saved, expected);
}

TEST_F(ComponentViewer, DeletingAsksFirstAndAnArrayElementTakesTheSharedProcedures) {
  // A member: Yes deletes its procedure and the list follows.
  Show(u"(Methods/Properties)");
  User().SelectRows(u"lvwExplorer", {Row(u"M||Foo||1")});
  Boxes().ScriptAnswer(vb::vbYes);
  User().Click(u"mnuPopupDelete");
  EXPECT_EQ(Boxes().Transcript().back().prompt, u"Delete the selected member?");
  EXPECT_EQ(Boxes().Transcript().back().style, vb::vbYesNo | vb::vbQuestion);
  EXPECT_EQ(Code(u"frmOrder").find("Sub Foo"), std::string::npos);
  EXPECT_EQ(Viewer().lvwExplorer.ListItems().Find(u"M||Foo||1"), nullptr);
  // Controls: Cancel keeps everything, No keeps the code, Yes takes the procedures too.
  Show(u"(Controls)");
  std::string code = Code(u"frmOrder");
  struct Case {
    int answer;
    std::u16string key;
    std::size_t controls;
    bool procedureStays;
  } cases[] = {{vb::vbCancel, u"C||Text1||-1", 4, true},
               {vb::vbNo, u"C||Text1||-1", 3, true},
               {vb::vbYes, u"C||Option1||1", 2, false}};
  for (auto& c : cases) {
    SCOPED_TRACE(c.answer);
    User().SelectRows(u"lvwExplorer", {Row(c.key)});
    Boxes().ScriptAnswer(c.answer);
    User().Click(u"mnuPopupDelete");
    EXPECT_EQ(Boxes().Transcript().back().style, vb::vbYesNoCancel | vb::vbQuestion);
    EXPECT_EQ(ControlNames().size(), c.controls);
    EXPECT_EQ(Listed().size(), c.controls);
  }
  EXPECT_NE(Code(u"frmOrder").find("Text1_Change"), std::string::npos);
  EXPECT_EQ(Code(u"frmOrder").find("Option1_Click"), std::string::npos)
      << "the array's shared procedure goes with any element";
  EXPECT_EQ(ControlNames(), (std::vector<std::u16string>{u"Option1(0)", u"cmdAbc"}));
}

TEST_F(ComponentViewer, SelectMarksEverySelectedRowsControlOnTheDesigner) {
  User().SelectRows(u"lvwExplorer", {Row(u"C||Text1||-1"), Row(u"C||Option1||1")});
  User().MouseUp(u"lvwExplorer", 2);
  User().Click(u"mnuPopupSelect");
  std::vector<std::u16string> selected;
  for (auto& c : Component(u"frmOrder")->Designer()->SelectedVBControls()->Items())
    selected.push_back(c->Name() + vb::FromUtf8(std::to_string(c->Index())));
  std::sort(selected.begin(), selected.end());
  EXPECT_EQ(selected, (std::vector<std::u16string>{u"Option11", u"Text1-1"}));
}

TEST_F(ComponentViewer, LayoutKeepsItsMarginsAndSurvivesATinyWindow) {
  auto& v = Viewer();
  v.SetExtent(4800, 3600);
  EXPECT_EQ(v.picListView.Left(), 30);
  EXPECT_EQ(v.picListView.Width(), 4740);
  EXPECT_EQ(v.lvwExplorer.Top(), v.cboListView.Height() + 30);
  EXPECT_EQ(v.lvwExplorer.Height(), 3540 - v.cboListView.Height() - 30);
  float height = v.lvwExplorer.Height();
  v.SetExtent(100, 100);
  EXPECT_EQ(v.lvwExplorer.Height(), height) << "a negative size leaves the list where it was";
  EXPECT_TRUE(world.runtime->MessageBoxService().Transcript().empty());
}

}  // namespace

// A Japanese form in cp932: a control array with a Japanese name is listed, renamed in the
// designer and in its code, and saved with every other byte as it was.
TEST(ComponentViewerCp932, AJapaneseControlArrayIsListedRenamedAndSavedInItsCodePage) {
  const vb::CodePage& sjis = *vb::CodePage::Find(932);
  const std::u16string form =
      u"VERSION 5.00\r\nBegin VB.Form 表紙 \r\n   Caption         =   \"辞書\"\r\n"
      u"   Begin VB.Label 見出し \r\n      Caption         =   \"名前\"\r\n      Index           = "
      u"  1\r\n"
      u"   End\r\n   Begin VB.Label 見出し \r\n      Caption         =   \"読み\"\r\n"
      u"      Index           =   0\r\n   End\r\nEnd\r\nAttribute VB_Name = \"表紙\"\r\n"
      u"' 見出しの表示\r\nPrivate Sub 見出し_Click(Index As Integer)\r\n"
      u"    見出し(Index).Caption = \"見出し\"\r\nEnd Sub\r\n";
  qmtest::TempFolder folder;
  folder.Write("辞書.vbp", sjis.Encode(u"Type=Exe\r\nForm=表紙.frm\r\nName=\"辞書\"\r\n"));
  folder.Write("表紙.frm", sjis.Encode(form));
  qmtest::AddinWorld world;
  world.ide->SetCodePage(932);
  ASSERT_TRUE(world.ide->Open(folder.Path() / "辞書.vbp").empty());
  world.ConnectLater();
  world.Addin()->Menu_ListView_Click();
  auto component = world.ide->VBProjects()->Item(1)->VBComponents()->Item(u"表紙");
  world.ide->SelectComponent(component);
  auto& viewer = *world.Main().gdocListView;
  auto& items = viewer.lvwExplorer.ListItems();
  ASSERT_EQ(items.Count(), 2);
  EXPECT_EQ(items(1).Key(), u"C||見出し||1");
  EXPECT_EQ(items(2).Text(), u"見出し (0)");

  vb::UserActions user(viewer);
  user.SelectRows(u"lvwExplorer", {2});  // brings element 0 to the front: it is already there
  user.Click(u"mnuPopupRename");
  user.CommitLabel(u"lvwExplorer", u"表題");
  world.ide->SaveAll();
  // The first element in designer order takes the name; the procedure follows; the indexed use
  // and the quoted text keep theirs.
  std::u16string expected = form;
  expected.replace(expected.find(u"Label 見出し"), 9, u"Label 表題");
  expected.replace(expected.find(u"Sub 見出し_"), 8, u"Sub 表題_");
  EXPECT_EQ(qmtest::TempFolder::Read(folder.Path() / "表紙.frm"), sjis.Encode(expected));
}
