// Combo boxes, list boxes and check boxes: sorted lists, typing versus picking, check marks.
#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/Runtime.h"
#include "runtime/ScriptError.h"
#include "runtime/UserActions.h"
#include "runtime/forms/CheckBox.h"
#include "runtime/forms/ComboBox.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/ListBox.h"
#include "support/VbErrorOf.h"

namespace {

class ComboBoxTest : public ::testing::Test {
 protected:
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
  vb::Form form{*runtime, u"frmLists"};
  vb::ComboBox cbo{form, u"cboSearch"};
  std::vector<std::string> events;
  void SetUp() override {
    cbo.Click = [this] { events.push_back("Click"); };
    cbo.Change = [this] { events.push_back("Change"); };
  }
  std::vector<std::u16string> Entries() const {
    std::vector<std::u16string> out;
    for (int i = 0; i < cbo.ListCount(); ++i) out.push_back(cbo.List(i));
    return out;
  }
};

TEST_F(ComboBoxTest, SortedListsInsertInTextOrderIgnoringCase) {
  struct Case {
    std::vector<std::u16string> added;
    std::vector<std::u16string> listed;
  };
  const Case cases[] = {
      {{u"Module1", u"(All Modules)", u"frmMain", u"Class1"},
       {u"(All Modules)", u"Class1", u"frmMain", u"Module1"}},
      {{u"b", u"A", u"a", u"B"}, {u"A", u"a", u"b", u"B"}},  // equal texts keep their order
      {{u"9", u"10", u"100"}, {u"10", u"100", u"9"}},
  };
  for (const auto& c : cases) {
    cbo.Clear();
    cbo.SetSorted(true);
    for (const auto& text : c.added) cbo.AddItem(text, 0);  // the index is ignored when sorted
    EXPECT_EQ(Entries(), c.listed);
  }
}

TEST_F(ComboBoxTest, UnsortedAddItemInsertsAtTheIndexAndKeepsTheSelectionOnItsEntry) {
  cbo.AddItem(u"Bar");
  cbo.AddItem(u"foo");
  cbo.SetListIndex(1);
  cbo.AddItem(u"Foo", 0);
  EXPECT_EQ(Entries(), (std::vector<std::u16string>{u"Foo", u"Bar", u"foo"}));
  EXPECT_EQ(cbo.ListIndex(), 2);
  EXPECT_EQ(cbo.NewIndex(), 0);
  EXPECT_THROW(cbo.AddItem(u"x", 5), vb::Error);
  cbo.RemoveItem(2);
  EXPECT_EQ(cbo.ListIndex(), -1);
}

TEST_F(ComboBoxTest, PickingRaisesClickAndShowsTheEntryTypingRaisesChangeAndSelectsNothing) {
  cbo.AddItem(u"Load");
  form.Show();
  vb::UserActions act(form);
  act.Pick(u"cboSearch", 0);
  EXPECT_EQ(cbo.Text(), u"Load");
  EXPECT_EQ(events, (std::vector<std::string>{"Click"}));
  events.clear();
  act.Type(u"cboSearch", u"Load");  // the same text, typed: no entry is selected
  act.Type(u"cboSearch", u"Loader");
  EXPECT_EQ(cbo.ListIndex(), -1);
  EXPECT_EQ(cbo.Text(), u"Loader");
  EXPECT_EQ(events, (std::vector<std::string>{"Change"}));
}

TEST_F(ComboBoxTest, KeysTypeIntoTheEditPartUnlessKeyPressDropsThem) {
  cbo.KeyPress = [](int& ascii) {
    if ((ascii < '0' || ascii > '9') && ascii != vb::vbKeyBack) ascii = 0;
  };
  form.Show();
  vb::UserActions act(form);
  for (int key : std::initializer_list<int>{'1', vb::vbKeyA, '2'}) act.PressKey(u"cboSearch", key);
  EXPECT_EQ(cbo.Text(), u"12");
  act.PressKey(u"cboSearch", vb::vbKeyBack);
  EXPECT_EQ(cbo.Text(), u"1");
}

TEST_F(ComboBoxTest, ADropdownListsTextIsItsSelectedEntry) {
  cbo.SetStyle(2);
  cbo.AddItem(u"Public");
  cbo.AddItem(u"Private");
  cbo.SetText(u"Private");
  EXPECT_EQ(cbo.ListIndex(), 1);
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { cbo.SetText(u"Friend"); }), 383);
  form.Show();
  EXPECT_THROW(vb::UserActions(form).Type(u"cboSearch", u"x"), vb::ScriptError);
}

TEST_F(ComboBoxTest, CheckBoxListsKeepChecksApartFromTheHighlight) {
  vb::ListBox lst{form, u"lstColumns"};
  lst.SetStyle(1);
  for (auto name : {u"Project", u"Module", u"Line"}) lst.AddItem(name);
  std::vector<int> checked;
  lst.ItemCheck = [&](int item) { checked.push_back(item); };
  form.Show();
  vb::UserActions act(form);
  act.CheckItem(u"lstColumns", 2, true);
  act.CheckItem(u"lstColumns", 0, true);
  act.CheckItem(u"lstColumns", 2, false);
  EXPECT_EQ(checked, (std::vector<int>{2, 0, 2}));
  EXPECT_TRUE(lst.Selected(0));
  EXPECT_FALSE(lst.Selected(1));
  EXPECT_FALSE(lst.Selected(2));
  EXPECT_EQ(lst.SelCount(), 1);
  EXPECT_EQ(lst.ListIndex(), 2);
}

TEST_F(ComboBoxTest, APlainSingleSelectListHasOneSelectedEntry) {
  vb::ListBox lst{form, u"lstArguments"};
  for (auto name : {u"a", u"b", u"c"}) lst.AddItem(name);
  lst.SetSelected(1, true);
  lst.SetSelected(2, true);
  EXPECT_EQ(lst.SelCount(), 1);
  EXPECT_EQ(lst.ListIndex(), 2);
  EXPECT_EQ(lst.Text(), u"c");
  EXPECT_THROW(lst.Selected(3), vb::Error);
}

TEST_F(ComboBoxTest, CheckBoxValuesAndClicks) {
  vb::CheckBox chk{form, u"chkOptional"};
  int clicks = 0;
  chk.Click = [&] { ++clicks; };
  chk.SetValue(vb::vbChecked);  // by code: Click, as in VB
  chk.SetValue(vb::vbChecked);  // no change, no Click
  form.Show();
  vb::UserActions(form).SetCheck(u"chkOptional", 0);
  chk.SetValue(vb::vbGrayed);
  vb::UserActions(form).Click(u"chkOptional");
  EXPECT_EQ(chk.Value(), vb::vbChecked);
  EXPECT_EQ(clicks, 4);
  EXPECT_THROW(chk.SetValue(3), vb::Error);
}

}  // namespace
