// Tab strips, status bars, menus, picture boxes, text boxes and the peer seam.
#include <gtest/gtest.h>

#include "RecordingPeer.h"

#include "runtime/Error.h"
#include "runtime/Runtime.h"
#include "runtime/ScriptError.h"
#include "runtime/UserActions.h"
#include "runtime/forms/ControlPeer.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/ListView.h"
#include "runtime/forms/Menu.h"
#include "runtime/forms/PictureBox.h"
#include "runtime/forms/StatusBar.h"
#include "runtime/forms/TabStrip.h"
#include "runtime/forms/TextBox.h"
#include "support/VbErrorOf.h"

namespace {

class ControlsTest : public ::testing::Test {
 protected:
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
  vb::Form form{*runtime, u"frmControls"};
};

using qmtest::ErrorNumberOf;
using vbtest::RecordingPeer;

TEST_F(ControlsTest, SelectingATabTheStripLacksFailsAndKeepsTheSelection) {
  vb::TabStrip tabNew{form, u"tabNew"};
  for (auto key : {u"Method", u"Property", u"Constant"}) tabNew.Add(0, key, key);
  int clicks = 0;
  tabNew.Click = [&] { ++clicks; };
  EXPECT_EQ(tabNew.SelectedItem()->key, u"Method");  // the first tab starts selected
  tabNew.SetSelectedItem(tabNew.Tabs(u"constant"));
  EXPECT_EQ(ErrorNumberOf([&] { tabNew.SetSelectedItem(tabNew.Tabs(u"Variable")); }), 35601);
  EXPECT_EQ(tabNew.SelectedItem()->index, 3);
  form.Show();
  vb::UserActions(form).SelectTab(u"tabNew", 2);
  EXPECT_EQ(tabNew.SelectedItem()->caption, u"Property");
  EXPECT_EQ(clicks, 2);
}

TEST_F(ControlsTest, StatusBarPanelsCountFromOne) {
  vb::StatusBar sbar{form, u"sbarResults"};
  sbar.AddPanel();
  sbar.SetPanelText(1, u"Complete.");
  sbar.SetPanelText(2, u"12 Matching Line(s)");
  EXPECT_EQ(sbar.Panels(2).text, u"12 Matching Line(s)");
  EXPECT_EQ(ErrorNumberOf([&] { sbar.SetPanelText(3, u"x"); }), 35600);
}

TEST_F(ControlsTest, PopupMenusAreRecordedAndOnlyReachableItemsCanBeClicked) {
  vb::Menu mnuPopup{form, u"mnuPopup"};
  vb::Menu mnuRename{form, u"mnuPopupRename"};
  vb::Menu mnuDelete{form, u"mnuPopupDelete"};
  mnuRename.SetParentMenu(&mnuPopup);
  mnuDelete.SetParentMenu(&mnuPopup);
  int renames = 0;
  mnuRename.Click = [&] { ++renames; };
  mnuDelete.SetEnabled(false);
  form.Show();
  form.PopupMenu(mnuPopup);
  ASSERT_EQ(form.PoppedMenus().size(), 1u);
  EXPECT_EQ(form.PoppedMenus()[0]->Items().size(), 2u);
  vb::UserActions act(form);
  act.Click(u"mnuPopupRename");
  EXPECT_EQ(renames, 1);
  EXPECT_THROW(act.Click(u"mnuPopupDelete"), vb::ScriptError);
}

TEST_F(ControlsTest, PictureBoxesReportTheirInnerSizeAndResize) {
  vb::PictureBox pic{form, u"picListView"};
  int resizes = 0;
  pic.Resize = [&] { ++resizes; };
  pic.Move(30, 30, 4000, 3000);
  pic.Move(60, 60);  // moving without resizing
  EXPECT_EQ(resizes, 1);
  EXPECT_EQ(pic.ScaleWidth(), 3940);
  EXPECT_EQ(ErrorNumberOf([&] { pic.Move(0, 0, -1, 100); }), 380);
  EXPECT_EQ(pic.Width(), 4000);
}

TEST_F(ControlsTest, TextBoxesEditAtTheSelectionAndRaiseChangePerChange) {
  vb::TextBox txt{form, u"txtSave"};
  int changes = 0;
  txt.Change = [&] { ++changes; };
  txt.SetText(u"15");
  txt.SetSelStart(0);
  txt.SetSelLength(2);
  EXPECT_EQ(txt.SelText(), u"15");
  form.Show();
  vb::UserActions act(form);
  act.PressKey(u"txtSave", '9');
  act.PressKey(u"txtSave", '0');
  act.PressKey(u"txtSave", vb::vbKeyBack);
  EXPECT_EQ(txt.Text(), u"9");
  EXPECT_EQ(changes, 4);
  txt.SetMaxLength(3);
  act.Type(u"txtSave", u"12345");
  EXPECT_EQ(txt.Text(), u"123");
}

TEST_F(ControlsTest, PeersHearOfPropertiesAndRowChanges) {
  RecordingPeer formPeer, listPeer;
  form.SetPeer(&formPeer);
  vb::ListView lvw{form, u"lvwSearch"};
  lvw.SetPeer(&listPeer);
  lvw.ColumnHeaders().Add(0, {}, u"Code");
  form.SetCaption(u"Search Results");
  lvw.ListItems().Add(0, u"a", u"x");
  lvw.ListItems().Add(1, u"b", u"y");
  lvw.ListItems()(u"a").SetText(u"z");
  lvw.ListItems().Remove(1);
  lvw.SetSortKey(0);
  lvw.SetSorted(true);
  lvw.ListItems().Clear();
  EXPECT_EQ(formPeer.calls, (std::vector<std::string>{"ControlAdded -1", "Caption"}));
  EXPECT_EQ(listPeer.calls,
            (std::vector<std::string>{"RowsInserted 0 1", "RowsInserted 0 1", "RowChanged 1",
                                      "RowsRemoved 0 1", "RowsReset", "RowsReset"}));
}

}  // namespace
