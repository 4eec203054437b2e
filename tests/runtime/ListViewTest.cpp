// ListView: keys, sub-items, text sorting, selection, label editing and many rows.
#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/Runtime.h"
#include "runtime/ScriptError.h"
#include "runtime/UserActions.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/ImageList.h"
#include "runtime/forms/ListView.h"
#include "support/VbErrorOf.h"

namespace {

class ListViewTest : public ::testing::Test {
 protected:
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
  vb::Form form{*runtime, u"docResults"};
  vb::ListView lvw{form, u"lvwSearch"};
  vb::ListItems& items = lvw.ListItems();

  void SetUp() override {
    lvw.ColumnHeaders().Add(0, {}, u"Module");
    lvw.ColumnHeaders().Add(0, {}, u"Line");
  }
  void AddRow(std::u16string key, std::u16string module, std::u16string line) {
    items.Add(0, std::move(key), std::move(module)).SetSubItems(1, std::move(line));
  }
  std::vector<std::u16string> Column(int column) {
    std::vector<std::u16string> out;
    for (int i = 1; i <= items.Count(); ++i) {
      out.emplace_back(column == 0 ? items(i).Text() : items(i).SubItems(column));
    }
    return out;
  }
};

TEST_F(ListViewTest, KeysAreUniqueIgnoringCaseAndFindTheirRows) {
  AddRow(u"P|Form1|Load|10", u"Form1", u"10");
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { items.Add(0, u"p|form1|load|10", u"dup"); }), 35602);
  EXPECT_EQ(items.Count(), 1);
  EXPECT_EQ(items(u"P|Form1|Load|10").Text(), u"Form1");
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { items(u"missing"); }), 35601);
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { items(2); }), 35600);

  AddRow(u"other", u"Module1", u"3");
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { items(2).SetKey(u"P|FORM1|Load|10"); }), 35602);
  EXPECT_EQ(items(2).Key(), u"other");
  items(1).SetKey(u"renamed");
  EXPECT_EQ(items(u"renamed").Index(), 1);
  EXPECT_EQ(items.Find(u"P|Form1|Load|10"), nullptr);
}

TEST_F(ListViewTest, SubItemsExistOnlyForTheColumnsAfterTheFirst) {
  AddRow({}, u"Form1", u"7");
  EXPECT_EQ(items(1).SubItems(1), u"7");
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { items(1).SubItems(2); }), 35600);
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { items(1).SetSubItems(0, u"x"); }), 35600);
}

TEST_F(ListViewTest, SortingComparesTextSoTenComesBeforeNine) {
  struct Case {
    int key;
    int order;
    std::vector<std::u16string> lines;
  };
  const Case cases[] = {
      {1, vb::lvwAscending, {u"10", u"100", u"2", u"9"}},
      {1, vb::lvwDescending, {u"9", u"2", u"100", u"10"}},
      {0, vb::lvwAscending, {u"10", u"9", u"100", u"2"}},  // by module: a, B, c, C (stable)
  };
  for (const auto& c : cases) {
    lvw.SetSorted(false);
    items.Clear();
    AddRow({}, u"c", u"100");
    AddRow({}, u"B", u"9");
    AddRow({}, u"a", u"10");
    AddRow({}, u"C", u"2");
    lvw.SetSortKey(c.key);
    lvw.SetSortOrder(c.order);
    lvw.SetSorted(true);
    EXPECT_EQ(Column(1), c.lines) << c.key << "/" << c.order;
  }
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { lvw.SetSortOrder(2); }), 380);
}

TEST_F(ListViewTest, RowsAddedWhileSortedTakeTheirPlaceAndIndexesFollow) {
  lvw.SetSortKey(1);
  lvw.SetSorted(true);
  AddRow(u"k9", u"m", u"9");
  AddRow(u"k10", u"m", u"10");
  AddRow(u"k1", u"m", u"1");
  EXPECT_EQ(items(u"k9").Index(), 3);
  EXPECT_EQ(Column(1), (std::vector<std::u16string>{u"1", u"10", u"9"}));
  items.Remove(1);
  EXPECT_EQ(items(u"k10").Index(), 1);
}

TEST_F(ListViewTest, ColumnClickPassesTheHeader) {
  std::vector<int> clicked;
  lvw.ColumnClick = [&](vb::ColumnHeader& column) { clicked.push_back(column.Index()); };
  form.Show();
  vb::UserActions(form).ColumnClick(u"lvwSearch", 2);
  EXPECT_EQ(clicked, (std::vector<int>{2}));
}

TEST_F(ListViewTest, SelectingWithoutMultiSelectKeepsOneRow) {
  for (int i = 0; i < 3; ++i) AddRow({}, u"m", u"1");
  std::vector<int> itemClicks;
  lvw.ItemClick = [&](vb::ListItem& item) { itemClicks.push_back(item.Index()); };
  form.Show();
  vb::UserActions act(form);
  act.SelectRows(u"lvwSearch", {1});
  items(3).SetSelected(true);
  EXPECT_FALSE(items(1).Selected());
  EXPECT_EQ(lvw.SelectedItem(), &items(3));
  act.SelectRows(u"lvwSearch", {2});
  EXPECT_EQ(itemClicks, (std::vector<int>{1, 2}));
  EXPECT_FALSE(items(3).Selected());
}

TEST_F(ListViewTest, MultiSelectKeepsEverySelectedRow) {
  for (int i = 0; i < 10; ++i) AddRow({}, u"m", u"1");
  lvw.SetMultiSelect(true);
  form.Show();
  vb::UserActions(form).SelectRows(u"lvwSearch", {2, 5, 9});
  std::vector<int> selected;
  for (int i = 1; i <= items.Count(); ++i) {
    if (items(i).Selected()) selected.push_back(i);
  }
  EXPECT_EQ(selected, (std::vector<int>{2, 5, 9}));
  EXPECT_EQ(lvw.SelectedItem()->Index(), 9);
}

TEST_F(ListViewTest, LabelEditsCanBeRefusedBeforeOrAfterAndOtherwiseChangeTheText) {
  struct Case {
    int cancelBefore;
    int cancelAfter;
    std::u16string shown;
  };
  const Case cases[] = {{1, 0, u"DoIt"}, {0, 1, u"DoIt"}, {0, 0, u"DoThat"}};
  form.Show();
  for (const auto& c : cases) {
    items.Clear();
    items.Add(0, u"M||DoIt||1", u"DoIt");
    std::vector<std::u16string> seen;
    lvw.BeforeLabelEdit = [&](int& cancel) { cancel = c.cancelBefore; };
    lvw.AfterLabelEdit = [&](int& cancel, std::u16string& text) {
      seen.push_back(text);
      cancel = c.cancelAfter;
    };
    vb::UserActions(form).EditLabel(u"lvwSearch", 1, u"DoThat");
    EXPECT_EQ(items(1).Text(), c.shown);
    EXPECT_EQ(seen.size(), c.cancelBefore ? 0u : 1u);
  }
}

TEST_F(ListViewTest, ManualLabelEditWaitsForTheUserToCommit) {
  lvw.SetLabelEdit(1);
  items.Add(0, {}, u"Text1");
  form.Show();
  vb::UserActions act(form);
  EXPECT_THROW(act.EditLabel(u"lvwSearch", 1, u"x"), vb::ScriptError);
  EXPECT_THROW(act.CommitLabel(u"lvwSearch", u"x"), vb::ScriptError);
  lvw.SetSelectedItem(&items(1));
  lvw.StartLabelEdit();  // the Rename command
  act.CommitLabel(u"lvwSearch", u"txtName");
  EXPECT_EQ(items(1).Text(), u"txtName");
}

TEST_F(ListViewTest, SmallIconsMustNameImagesOfTheBoundList) {
  vb::ImageList images{form, u"ImageList1"};
  images.Add(0, u"Module");
  lvw.SetSmallIcons(&images);
  EXPECT_EQ(items.Add(0, {}, u"Form1", {}, u"module").SmallIcon(), u"module");
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { items.Add(0, {}, u"Form2", {}, u"Widget"); }), 35601);
  EXPECT_EQ(items.Count(), 1);
}

// Rows keep their texts in the list's arena: a view stays readable while the list lives, equal
// texts of neighbouring rows may share memory but never a change, and a removed row's object
// comes back as a fresh row.
TEST_F(ListViewTest, RowTextsStayPutAndSharedTextsChangeRowByRow) {
  AddRow(u"a", u"Module1", u"10");
  AddRow(u"b", u"Module1", u"10");
  EXPECT_EQ(items(1).SubItems(1).data(), items(2).SubItems(1).data());
  items(2).SetSubItems(1, u"11");
  items(1).SetText(u"Form1");
  EXPECT_EQ(Column(0), (std::vector<std::u16string>{u"Form1", u"Module1"}));
  EXPECT_EQ(Column(1), (std::vector<std::u16string>{u"10", u"11"}));

  std::u16string_view oldText = items(2).Text();
  items(2).SetText(u"Class1");
  EXPECT_EQ(oldText, u"Module1");
  std::u16string_view removedKey = items(1).Key();
  items(1).SetTag(u"tag of a");
  items.Remove(1);
  EXPECT_EQ(removedKey, u"a");

  // The removed row's object is used again: nothing of the old row may show through.
  auto& again = items.Add(0, u"c", u"Module9");
  EXPECT_EQ(again.Tag(), u"");
  EXPECT_EQ(again.SubItems(1), u"");
  EXPECT_FALSE(again.Selected());
  EXPECT_EQ(again.Index(), 2);
  EXPECT_EQ(items(u"c").Text(), u"Module9");
  EXPECT_EQ(items.Find(u"a"), nullptr);
}

TEST_F(ListViewTest, SubItemsSetBeforeAColumnIsAddedSurviveIt) {
  AddRow(u"a", u"Module1", u"10");
  lvw.ColumnHeaders().Add(0, {}, u"Code");
  items(1).SetSubItems(2, u"x = 1");
  EXPECT_EQ(items(1).SubItems(1), u"10");
  EXPECT_EQ(items(1).SubItems(2), u"x = 1");
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { items(1).SubItems(3); }), 35600);
}

}  // namespace
