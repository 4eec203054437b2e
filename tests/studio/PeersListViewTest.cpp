// The list view's table over a million rows: counts, scrolling, engine sorting, selection, edits.
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTableView>
#include <string>

#include "PeersFixture.h"
#include "runtime/Utf.h"
#include "runtime/VbConstants.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/ListView.h"
#include "studio/peers/FormWindowPeer.h"
#include "studio/peers/ListViewPeer.h"

namespace {

// A results list: clicking a column sorts by it, clicking it again reverses the order.
class frmResults : public vb::Form {
 public:
  explicit frmResults(vb::Runtime& runtime) : Form(runtime, u"frmResults") {
    Move(0, 0, 9000, 6000);
    lvwSearch.Move(0, 0, 8800, 5400);
    lvwSearch.ColumnHeaders().Add(0, u"Module", u"Module", 2400);
    lvwSearch.ColumnHeaders().Add(0, u"Line", u"Line", 900, 1);
    lvwSearch.ColumnHeaders().Add(0, u"Text", u"Text", 4000);
    lvwSearch.ColumnClick = [this](vb::ColumnHeader& column) {
      int key = column.SubItemIndex();
      if (lvwSearch.Sorted() && lvwSearch.SortKey() == key) {
        lvwSearch.SetSortOrder(lvwSearch.SortOrder() == vb::lvwAscending ? vb::lvwDescending
                                                                         : vb::lvwAscending);
      } else {
        lvwSearch.SetSortOrder(vb::lvwAscending);
        lvwSearch.SetSortKey(key);
        lvwSearch.SetSorted(true);
      }
    };
  }
  vb::ListView lvwSearch{*this, u"lvwSearch"};
};

// Seven characters or fewer, so a million rows stay small; every value differs.
std::u16string Digits(int value) {
  std::string text = std::to_string(value);
  return vb::FromUtf8(std::string(7 - text.size(), '0') + text);
}

class PeersListViewTest : public peerstest::PeersFixture {
 protected:
  void SetUp() override {
    PeersFixture::SetUp();
    form = vb::New<frmResults>(*runtime);
    form->Show();
    auto* peer = toolkit->PeerOf(*form)->PeerOf(form->lvwSearch);
    listPeer = dynamic_cast<studio::ListViewPeer*>(peer);
    ASSERT_NE(listPeer, nullptr);
    table = listPeer->Table();
  }
  void TearDown() override {
    form.reset();
    PeersFixture::TearDown();
  }
  void AddRows(int count) {
    auto& items = form->lvwSearch.ListItems();
    for (int i = 0; i < count; ++i) {
      // A permutation of 0 .. count-1, so sorting really moves rows.
      int module = static_cast<int>((static_cast<long long>(i) * 7919) % count);
      auto& item = items.Add(0, {}, Digits(module));
      item.SetSubItems(1, Digits(i + 1));
      item.SetSubItems(2, u"x = 1");
    }
  }
  QString Shown(int row, int column) const {
    return table->model()->data(table->model()->index(row, column)).toString();
  }
  void ClickHeader(int section) {
    auto* header = table->horizontalHeader();
    QPoint at(header->sectionViewportPosition(section) + 5, header->height() / 2);
    QMouseEvent press(QEvent::MouseButtonPress, at, header->viewport()->mapToGlobal(at),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(header->viewport(), &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, header->viewport()->mapToGlobal(at),
                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(header->viewport(), &release);
  }

  std::shared_ptr<frmResults> form;
  studio::ListViewPeer* listPeer = nullptr;
  QTableView* table = nullptr;
};

TEST_F(PeersListViewTest, AMillionRowsAreCountedScrolledAndSortedByTheEngine) {
  constexpr int kRows = 1000000;
  AddRows(kRows);
  Settle();
  EXPECT_EQ(table->model()->rowCount(), kRows);
  EXPECT_EQ(table->model()->columnCount(), 3);

  table->scrollToBottom();
  Settle();
  EXPECT_EQ(table->verticalScrollBar()->value(), table->verticalScrollBar()->maximum());
  EXPECT_EQ(table->rowAt(table->viewport()->height() - 2), kRows - 1);
  EXPECT_EQ(Shown(kRows - 1, 1), "1000000");

  ClickHeader(0);  // the engine sorts by Module, ascending
  Settle();
  EXPECT_EQ(table->model()->rowCount(), kRows);
  EXPECT_EQ(Shown(kRows - 1, 0), "0999999");
  EXPECT_EQ(Shown(0, 0), "0000000");
  EXPECT_TRUE(table->horizontalHeader()->isSortIndicatorShown());
  EXPECT_EQ(table->horizontalHeader()->sortIndicatorSection(), 0);

  ClickHeader(0);  // and again: descending
  Settle();
  EXPECT_EQ(Shown(kRows - 1, 0), "0000000");
  EXPECT_EQ(table->horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
  EXPECT_EQ(form->lvwSearch.ListItems().Item(kRows).Text(), u"0000000");
}

TEST_F(PeersListViewTest, RowsAddedWhileSortedAppearInTheirSortedPlaces) {
  ClickHeader(1);  // sorted by Line before any row exists
  auto& items = form->lvwSearch.ListItems();
  for (std::u16string line : {u"30", u"10", u"20"})
    items.Add(0, {}, u"Module1").SetSubItems(1, line);
  Settle();
  ASSERT_EQ(table->model()->rowCount(), 3);
  EXPECT_EQ(Shown(0, 1), "10");
  EXPECT_EQ(Shown(1, 1), "20");
  EXPECT_EQ(Shown(2, 1), "30");
}

TEST_F(PeersListViewTest, ASelectionMadeBeforeALateSortIsShownAfterIt) {
  ClickHeader(1);
  auto& items = form->lvwSearch.ListItems();
  items.Add(0, {}, u"Module1").SetSubItems(1, u"30");
  vb::ListItem& chosen = items.Add(0, {}, u"Module1");
  chosen.SetSubItems(1, u"10");
  chosen.SetSelected(true);  // the rows are not in order yet: nothing is shown until they are
  Settle();                  // the view reads a row, the engine sorts, the view is reset
  EXPECT_EQ(Shown(0, 1), "10");
  Settle();
  EXPECT_TRUE(table->selectionModel()->isRowSelected(0, {}));
  EXPECT_FALSE(table->selectionModel()->isRowSelected(1, {}));
}

TEST_F(PeersListViewTest, SelectionIsSharedBothWays) {
  AddRows(50);
  Settle();
  std::vector<std::string> clicks;
  form->lvwSearch.ItemClick = [&](vb::ListItem& item) {
    clicks.push_back(vb::ToUtf8(item.Text()));
  };

  form->lvwSearch.SetSelectedItem(&form->lvwSearch.ListItems().Item(40));
  EXPECT_TRUE(table->selectionModel()->isRowSelected(39, {}));

  table->selectionModel()->setCurrentIndex(
      table->model()->index(7, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  ASSERT_NE(form->lvwSearch.SelectedItem(), nullptr);
  EXPECT_EQ(form->lvwSearch.SelectedItem()->Index(), 8);
  EXPECT_FALSE(form->lvwSearch.ListItems().Item(40).Selected());
  EXPECT_FALSE(table->selectionModel()->isRowSelected(39, {}));
  EXPECT_EQ(clicks,
            (std::vector<std::string>{vb::ToUtf8(form->lvwSearch.ListItems().Item(8).Text())}));
}

TEST_F(PeersListViewTest, ALabelEditAsksBeforeAndAfterAndMayBeRefused) {
  AddRows(3);
  Settle();
  std::vector<std::u16string> after;
  form->lvwSearch.AfterLabelEdit = [&](int& cancel, std::u16string& text) {
    after.push_back(text);
    cancel = text == u"refused" ? 1 : 0;
  };
  auto edit = [&](const QString& text) {
    form->lvwSearch.SetSelectedItem(&form->lvwSearch.ListItems().Item(2));
    table->edit(table->model()->index(1, 0));
    auto* editor = table->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText(text);
    PressKey(editor, Qt::Key_Return);
    Settle();
  };
  edit("renamed");
  EXPECT_EQ(form->lvwSearch.ListItems().Item(2).Text(), u"renamed");
  EXPECT_EQ(Shown(1, 0), "renamed");
  edit("refused");
  EXPECT_EQ(form->lvwSearch.ListItems().Item(2).Text(), u"renamed");
  EXPECT_EQ(after, (std::vector<std::u16string>{u"renamed", u"refused"}));
  EXPECT_EQ(form->lvwSearch.EditingItem(), nullptr);

  form->lvwSearch.BeforeLabelEdit = [](int& cancel) { cancel = 1; };
  table->edit(table->model()->index(1, 0));
  EXPECT_EQ(table->findChild<QLineEdit*>(), nullptr);
}

TEST_F(PeersListViewTest, CodeStartsAManualEditAndTheEditorOpens) {
  AddRows(3);
  form->lvwSearch.SetLabelEdit(1);
  form->lvwSearch.SetSelectedItem(&form->lvwSearch.ListItems().Item(3));
  form->lvwSearch.StartLabelEdit();
  Settle();
  auto* editor = table->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  PressKey(editor, Qt::Key_Escape);
  Settle();
  EXPECT_EQ(form->lvwSearch.EditingItem(), nullptr);
  EXPECT_EQ(form->lvwSearch.ListItems().Item(3).Text(), Digits(static_cast<int>((2LL * 7919) % 3)));
}

}  // namespace
