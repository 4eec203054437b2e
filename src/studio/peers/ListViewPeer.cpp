// The list view's table: selection both ways, column clicks and widths, label edits.
#include "studio/peers/ListViewPeer.h"

#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QTimer>
#include <algorithm>

#include "studio/peers/ControlPeers.h"
#include "studio/peers/QtConvert.h"

namespace studio {

// Whether the user holds a mouse button on the header: only then is a column's new width the
// user's, to be kept; the header also resizes its last section to fill the view.
class HeaderDragWatch : public QObject {
 public:
  explicit HeaderDragWatch(QObject* parent) : QObject(parent) {}
  bool dragging = false;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress) dragging = true;
    if (event->type() == QEvent::MouseButtonRelease) dragging = false;
    return QObject::eventFilter(watched, event);
  }
};

// Editing a label asks the engine first (BeforeLabelEdit may refuse), and hands the typed text
// to the engine, whose AfterLabelEdit may refuse it; Escape abandons the edit.
class LabelEditDelegate : public QStyledItemDelegate {
 public:
  LabelEditDelegate(ListViewPeer& peer, QObject* parent)
      : QStyledItemDelegate(parent), peer_(peer) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override {
    if (index.column() != 0 || !peer_.BeginEdit(index.row())) return nullptr;
    return QStyledItemDelegate::createEditor(parent, option, index);
  }
  void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const override {
    if (auto* edit = qobject_cast<QLineEdit*>(editor)) peer_.CommitEdit(edit->text());
  }

 private:
  ListViewPeer& peer_;
};

ListViewPeer::ListViewPeer(vb::ListView& view, PeerHost& host)
    : WidgetPeer(view, host), view_(view) {
  auto* table = new QTableView;
  model_ = new ListViewModel(view_, table);
  table->setModel(model_);
  table->setItemDelegate(new LabelEditDelegate(*this, table));
  model_->afterReset = [this] {
    ShowSortIndicator();
    ShowSelection();
  };
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setShowGrid(false);
  table->setWordWrap(false);
  table->setSortingEnabled(false);  // the engine sorts
  table->verticalHeader()->hide();
  // Fixed row heights keep a million rows as cheap as a hundred.
  table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 4);
  table->horizontalHeader()->setHighlightSections(false);
  table->horizontalHeader()->setSectionsClickable(true);
  table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  // The last column fills what the others leave; the engine keeps the width it was given.
  table->horizontalHeader()->setStretchLastSection(true);
  auto* dragWatch = new HeaderDragWatch(table);
  table->horizontalHeader()->viewport()->installEventFilter(dragWatch);
  QObject::connect(table->selectionModel(), &QItemSelectionModel::selectionChanged,
                   [this] { ReportSelection(); });
  QObject::connect(table, &QTableView::doubleClicked, [this](const QModelIndex& index) {
    if (!Applying()) UserAction([&] { view_.UserDblClickRow(index.row() + 1); });
  });
  QObject::connect(table->horizontalHeader(), &QHeaderView::sectionClicked, [this](int section) {
    if (Applying() || section >= view_.ColumnHeaders().Count()) return;
    if (UserAction([&] { view_.UserColumnClick(section + 1); })) ShowSortIndicator();
  });
  QObject::connect(
      table->horizontalHeader(), &QHeaderView::sectionResized,
      [this, dragWatch](int section, int, int size) {
        if (Applying() || !dragWatch->dragging || section >= view_.ColumnHeaders().Count()) return;
        float twips = Scale().ToTwips(size);
        UserAction([&] { view_.ColumnHeaders().Item(section + 1).SetWidth(twips); });
      });
  QObject::connect(table->itemDelegate(), &QAbstractItemDelegate::closeEditor,
                   [this](QWidget*, QAbstractItemDelegate::EndEditHint hint) {
                     if (hint == QAbstractItemDelegate::RevertModelCache) CancelEdit();
                   });
  SetWidget(table);
}

ListViewPeer::~ListViewPeer() {
  // The list view may be half destroyed already; the table, deleted later, must not read it.
  if (model_) model_->Detach();
}

void ListViewPeer::Apply(vb::Property property) {
  auto* table = Table();
  if (Is(property, vb::Property::MultiSelect)) {
    table->setSelectionMode(view_.MultiSelect() ? QAbstractItemView::ExtendedSelection
                                                : QAbstractItemView::SingleSelection);
  }
  if (Is(property, vb::Property::SmallIcons)) model_->IconsChanged();
  if (property == vb::Property::All) {
    ShowColumns();
    ShowSelection();
  }
  if (property == vb::Property::All || property == vb::Property::LabelEdit) {
    // Automatic editing starts with a click on the selected row's label or F2.
    table->setEditTriggers(view_.LabelEdit() == 0 ? QAbstractItemView::SelectedClicked |
                                                        QAbstractItemView::EditKeyPressed
                                                  : QAbstractItemView::NoEditTriggers);
  }
  if (property == vb::Property::EditingItem && !beginning_) {
    // Code started the edit (manual editing): open the editor once the call has returned.
    QTimer::singleShot(0, table, [this] { OpenEditor(); });
  }
}

void ListViewPeer::RowsReset() {
  model_->RowsReset();
}

void ListViewPeer::RowChanged(int row) {
  model_->RowChanged(row);
  if (row >= model_->rowCount()) return;
  ++applyingGuard_;
  bool selected = view_.ListItems().Item(row + 1).Selected();
  auto* selection = Table()->selectionModel();
  QModelIndex index = model_->index(row, 0);
  if (selection->isRowSelected(row) != selected) {
    selection->select(index,
                      (selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect) |
                          QItemSelectionModel::Rows);
  }
  if (selected) selection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  --applyingGuard_;
}

void ListViewPeer::ColumnsChanged() {
  ++applyingGuard_;
  model_->ColumnsChanged();
  ShowColumns();
  --applyingGuard_;
}

void ListViewPeer::ShowColumns() {
  auto* header = Table()->horizontalHeader();
  for (int i = 1; i <= view_.ColumnHeaders().Count(); ++i) {
    int width = Scale().ToPixels(view_.ColumnHeaders().Item(i).Width());
    if (header->sectionSize(i - 1) != width) header->resizeSection(i - 1, width);
  }
  ShowSortIndicator();
}

void ListViewPeer::ShowSortIndicator() {
  auto* header = Table()->horizontalHeader();
  header->setSortIndicatorShown(view_.Sorted());
  if (view_.Sorted()) {
    header->setSortIndicator(view_.SortKey(), view_.SortOrder() == vb::lvwDescending
                                                  ? Qt::DescendingOrder
                                                  : Qt::AscendingOrder);
  }
}

void ListViewPeer::ShowSelection() {
  ++applyingGuard_;
  auto* selection = Table()->selectionModel();
  selection->clearSelection();
  int rows = model_->rowCount();
  auto select = [&](int row) {
    QModelIndex index = model_->index(row, 0);
    selection->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    selection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  };
  if (!view_.MultiSelect()) {
    if (auto* item = view_.SelectedItem(); item && item->Selected() && item->Index() <= rows) {
      select(item->Index() - 1);
    }
  } else {
    for (int row = 0; row < rows; ++row) {
      if (view_.ListItems().Item(row + 1).Selected()) select(row);
    }
  }
  --applyingGuard_;
}

void ListViewPeer::ReportSelection() {
  if (Applying() || applyingGuard_ > 0) return;
  auto* selection = Table()->selectionModel();
  std::vector<int> rows;
  for (const QModelIndex& index : selection->selectedRows()) rows.push_back(index.row() + 1);
  if (rows.empty()) return;
  std::sort(rows.begin(), rows.end());
  // The row the user reached last is the one ItemClick names.
  int current = selection->currentIndex().row() + 1;
  if (auto it = std::find(rows.begin(), rows.end(), current); it != rows.end()) {
    rows.erase(it);
    rows.push_back(current);
  }
  UserAction([&] { view_.UserSelectRows(rows); });
}

void ListViewPeer::OpenEditor() {
  auto* item = view_.EditingItem();
  if (!item) return;
  QModelIndex index = model_->index(item->Index() - 1, 0);
  Table()->scrollTo(index);
  Table()->edit(index);
}

bool ListViewPeer::BeginEdit(int row) {
  if (auto* editing = view_.EditingItem()) return editing->Index() == row + 1;
  if (view_.LabelEdit() != 0) return false;
  beginning_ = true;
  bool alive = UserAction([&] {
    auto* selected = view_.SelectedItem();
    if (!selected || selected->Index() != row + 1) view_.UserSelectRows({row + 1});
    view_.StartLabelEdit();
  });
  if (!alive) return false;
  beginning_ = false;
  return view_.EditingItem() != nullptr;
}

void ListViewPeer::CommitEdit(const QString& text) {
  if (!view_.EditingItem()) return;
  UserAction([&] { view_.UserCommitLabel(FromQt(text)); });
}

void ListViewPeer::CancelEdit() {
  if (view_.EditingItem()) view_.UserCancelLabelEdit();
}

std::unique_ptr<WidgetPeer> MakeListViewPeer(vb::Control& control, PeerHost& host) {
  if (auto* view = dynamic_cast<vb::ListView*>(&control)) {
    return std::make_unique<ListViewPeer>(*view, host);
  }
  return nullptr;
}

}  // namespace studio
