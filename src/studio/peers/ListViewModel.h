// studio::ListViewModel: a Qt table model over a list view's rows, which it never copies.
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QIcon>
#include <functional>

#include "runtime/forms/ListView.h"

namespace studio {

// Row r of the model is ListItems(r + 1); column c shows the text (c = 0) or SubItems(c). The
// engine owns the order (it sorts; the model shows). Rows appended one by one are announced to
// the views in one batch when Qt's loop next runs (Flush), so a search adding a million rows
// does not redraw a million times; any other change is announced at once.
class ListViewModel : public QAbstractTableModel {
 public:
  explicit ListViewModel(vb::ListView& view, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  // What the engine reports (rows count from 0).
  void RowsReset();
  void RowsInserted(int first, int count);
  void RowsRemoved(int first, int count);
  void RowChanged(int row);
  void ColumnsChanged();
  void IconsChanged();
  // Announces the rows appended since the last announcement.
  void Flush();
  // The list view is going: the model shows nothing from now on and never reads it again.
  void Detach();

  // Called after every reset, including one announced late: the view's selection is gone then.
  std::function<void()> afterReset;

 private:
  void ScheduleFlush();
  QIcon IconOf(std::u16string_view key) const;

  vb::ListView& view_;
  int shownRows_ = 0;
  int pendingRows_ = 0;
  int shownColumns_ = 1;
  bool flushScheduled_ = false;
  bool detached_ = false;
  bool resetScheduled_ = false;
  mutable bool reading_ = false;  // inside data(): a sort the read settles is announced later
  mutable QHash<QString, QIcon> icons_;
};

}  // namespace studio
