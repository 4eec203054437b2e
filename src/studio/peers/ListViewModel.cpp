// The table model over a list view's rows: counts, texts, icons, headers and batched appends.
#include "studio/peers/ListViewModel.h"

#include <QPixmap>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "runtime/forms/ImageList.h"
#include "studio/QtText.h"

namespace studio {
namespace {

Qt::Alignment AlignmentOf(int vbAlignment) {
  switch (vbAlignment) {
    case 1:
      return Qt::AlignRight | Qt::AlignVCenter;
    case 2:
      return Qt::AlignHCenter | Qt::AlignVCenter;
    default:
      return Qt::AlignLeft | Qt::AlignVCenter;
  }
}

}  // namespace

ListViewModel::ListViewModel(vb::ListView& view, QObject* parent)
    : QAbstractTableModel(parent), view_(view) {
  shownRows_ = view_.ListItems().Count();
  shownColumns_ = std::max(1, view_.ColumnHeaders().Count());
}

int ListViewModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || detached_ ? 0 : shownRows_;
}

int ListViewModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() || detached_ ? 0 : shownColumns_;
}

void ListViewModel::Detach() {
  beginResetModel();
  detached_ = true;
  shownRows_ = pendingRows_ = 0;
  endResetModel();
}

QVariant ListViewModel::data(const QModelIndex& index, int role) const {
  if (detached_) return {};
  auto& items = view_.ListItems();
  // The engine may hold fewer rows than announced until its change reaches us.
  if (!index.isValid() || index.row() >= items.Count()) return {};
  if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::DecorationRole &&
      role != Qt::TextAlignmentRole) {
    return {};
  }
  reading_ = true;
  const vb::ListItem& item = items.Item(index.row() + 1);  // may settle a pending sort
  reading_ = false;
  int column = index.column();
  if (role == Qt::TextAlignmentRole) {
    if (column >= view_.ColumnHeaders().Count()) return {};
    return QVariant::fromValue(AlignmentOf(view_.ColumnHeaders().Item(column + 1).Alignment()));
  }
  if (role == Qt::DecorationRole) {
    if (column != 0 || item.SmallIcon().empty()) return {};
    return IconOf(item.SmallIcon());
  }
  if (column == 0) return ToQt(item.Text());
  if (column >= view_.ColumnHeaders().Count()) return {};
  return ToQt(item.SubItems(column));
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (detached_) return {};
  if (orientation != Qt::Horizontal || section >= view_.ColumnHeaders().Count()) return {};
  const vb::ColumnHeader& column = view_.ColumnHeaders().Item(section + 1);
  if (role == Qt::DisplayRole) return ToQt(column.Text());
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(AlignmentOf(column.Alignment()));
  return {};
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags result = QAbstractTableModel::flags(index);
  // The label is the first column; the delegate asks the engine before editing starts.
  if (index.column() == 0) result |= Qt::ItemIsEditable;
  return result;
}

QIcon ListViewModel::IconOf(std::u16string_view key) const {
  QString name = ToQt(key);
  if (auto it = icons_.find(name); it != icons_.end()) return *it;
  QIcon icon;
  if (auto* images = view_.SmallIcons()) {
    if (auto* image = images->Find(key)) icon = QIcon(QPixmap::fromImage(ToImage(image->picture)));
  }
  icons_.insert(name, icon);
  return icon;
}

void ListViewModel::RowsReset() {
  if (detached_) return;
  if (reading_) {
    // Announcing from inside data() would pull the views' state from under them.
    if (!std::exchange(resetScheduled_, true)) {
      QTimer::singleShot(0, this, [this] {
        resetScheduled_ = false;
        RowsReset();
      });
    }
    return;
  }
  beginResetModel();
  pendingRows_ = 0;
  shownRows_ = view_.ListItems().Count();
  shownColumns_ = std::max(1, view_.ColumnHeaders().Count());
  endResetModel();
  if (afterReset) afterReset();
}

void ListViewModel::RowsInserted(int first, int count) {
  if (detached_) return;
  if (first == shownRows_ + pendingRows_) {
    pendingRows_ += count;
    ScheduleFlush();
    return;
  }
  Flush();
  beginInsertRows({}, first, first + count - 1);
  shownRows_ += count;
  endInsertRows();
}

void ListViewModel::RowsRemoved(int first, int count) {
  if (detached_) return;
  Flush();
  if (first + count > shownRows_) return RowsReset();
  beginRemoveRows({}, first, first + count - 1);
  shownRows_ -= count;
  endRemoveRows();
}

void ListViewModel::RowChanged(int row) {
  if (detached_) return;
  if (row >= shownRows_) return;  // not announced yet: it is drawn when it is
  dataChanged(index(row, 0), index(row, shownColumns_ - 1));
}

void ListViewModel::ColumnsChanged() {
  if (detached_) return;
  int columns = std::max(1, view_.ColumnHeaders().Count());
  if (columns == shownColumns_) {
    headerDataChanged(Qt::Horizontal, 0, columns - 1);
    if (shownRows_ > 0) dataChanged(index(0, 0), index(shownRows_ - 1, columns - 1));
    return;
  }
  Flush();
  beginResetModel();
  shownColumns_ = columns;
  shownRows_ = view_.ListItems().Count();
  pendingRows_ = 0;
  endResetModel();
}

void ListViewModel::IconsChanged() {
  if (detached_) return;
  icons_.clear();
  if (shownRows_ > 0) dataChanged(index(0, 0), index(shownRows_ - 1, 0));
}

void ListViewModel::Flush() {
  if (detached_) return;
  if (pendingRows_ == 0) return;
  int count = std::exchange(pendingRows_, 0);
  beginInsertRows({}, shownRows_, shownRows_ + count - 1);
  shownRows_ += count;
  endInsertRows();
}

void ListViewModel::ScheduleFlush() {
  if (std::exchange(flushScheduled_, true)) return;
  QTimer::singleShot(0, this, [this] {
    flushScheduled_ = false;
    Flush();
  });
}

}  // namespace studio
