// studio::ListViewPeer: a list view drawn by a QTableView over a ListViewModel.
#pragma once

#include <QPointer>
#include <QTableView>

#include "runtime/forms/ListView.h"
#include "studio/peers/ListViewModel.h"
#include "studio/peers/WidgetPeer.h"

namespace studio {

// The user's selections, double clicks, column clicks and label edits go to the engine's User*
// calls; the engine's selection, sort order and edits in progress are shown as they change.
class ListViewPeer : public WidgetPeer {
 public:
  ListViewPeer(vb::ListView& view, PeerHost& host);
  ~ListViewPeer() override;

  QTableView* Table() const { return static_cast<QTableView*>(Widget()); }
  ListViewModel* Model() const { return model_.data(); }

  void RowsReset() override;
  void RowsInserted(int first, int count) override { model_->RowsInserted(first, count); }
  void RowsRemoved(int first, int count) override { model_->RowsRemoved(first, count); }
  void RowChanged(int row) override;
  void ColumnsChanged() override;
  bool ReportsLeftMouse() const override { return true; }

 protected:
  void Apply(vb::Property property) override;

 private:
  friend class LabelEditDelegate;
  void ReportSelection();
  void ShowSelection();
  void ShowColumns();
  void ShowSortIndicator();
  void OpenEditor();
  bool BeginEdit(int row);
  void CommitEdit(const QString& text);
  void CancelEdit();

  vb::ListView& view_;
  QPointer<ListViewModel> model_;  // the table owns it; the table may go first
  int applyingGuard_ = 0;
  bool beginning_ = false;  // the table itself is opening an editor
};

}  // namespace studio
