// Peers of the list controls: combo boxes (three styles) and list boxes (plain and check-box).
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

#include "runtime/forms/ComboBox.h"
#include "runtime/forms/ListBox.h"
#include "studio/peers/ControlPeers.h"
#include "studio/peers/QtConvert.h"

namespace studio {
namespace {

// The lists these controls hold are short (a history, a choice of options), so every change of
// the engine's list redraws the widget's list whole.
class ComboBoxPeer : public WidgetPeer {
 public:
  ComboBoxPeer(vb::ComboBox& combo, PeerHost& host) : WidgetPeer(combo, host), combo_(combo) {
    auto* widget = new QComboBox;
    widget->setInsertPolicy(QComboBox::NoInsert);
    widget->setMaxVisibleItems(12);
    QObject::connect(widget, &QComboBox::activated, [this](int index) {
      if (!Applying() && UserAction([&] { combo_.UserPick(index); })) ApplyAll();
    });
    SetWidget(widget);
  }

  QList<QWidget*> KeyWidgets() const override {
    auto* widget = static_cast<QComboBox*>(Widget());
    if (widget->lineEdit()) return {widget, widget->lineEdit()};
    return {widget};
  }

  void RowsReset() override { ApplyAll(); }
  void RowsInserted(int, int) override { ApplyAll(); }
  void RowsRemoved(int, int) override { ApplyAll(); }
  void RowChanged(int) override { ApplyAll(); }
  bool TypesThroughEngine() const override { return combo_.Style() != 2; }
  void AfterEngineKey() override { Changed(vb::Property::Text); }

 protected:
  void Apply(vb::Property property) override {
    auto* widget = static_cast<QComboBox*>(Widget());
    if (Is(property, vb::Property::Style)) SetEditable(widget, combo_.Style() != 2);
    if (property == vb::Property::All) {
      QStringList entries;
      for (int i = 0; i < combo_.ListCount(); ++i) entries << ToQt(combo_.List(i));
      widget->clear();
      widget->addItems(entries);
    }
    if (Is(property, vb::Property::ListIndex) || Is(property, vb::Property::Text)) {
      widget->setCurrentIndex(combo_.ListIndex());
      if (auto* edit = widget->lineEdit()) {
        edit->setText(ToQt(combo_.Text()));
        edit->setSelection(combo_.SelStart(), combo_.SelLength());
      }
    }
  }

 private:
  void SetEditable(QComboBox* widget, bool editable) {
    if (widget->isEditable() == editable) return;
    widget->setEditable(editable);
    if (!editable) return;
    QObject::connect(widget->lineEdit(), &QLineEdit::textEdited, [this](const QString& text) {
      if (Applying()) return;
      auto* edit = static_cast<QComboBox*>(Widget())->lineEdit();
      int caret = edit->cursorPosition();
      if (!UserAction([&] { combo_.UserType(FromQt(text)); })) return;
      combo_.SetSelStart(caret);
      Changed(vb::Property::Text);
    });
    QObject::connect(widget->lineEdit(), &QLineEdit::cursorPositionChanged, [this] {
      if (Applying()) return;
      auto* edit = static_cast<QComboBox*>(Widget())->lineEdit();
      int start = edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
      combo_.SetSelStart(start);
      combo_.SetSelLength(static_cast<int>(edit->selectedText().size()));
    });
  }

  vb::ComboBox& combo_;
};

class ListBoxPeer : public WidgetPeer {
 public:
  ListBoxPeer(vb::ListBox& list, PeerHost& host) : WidgetPeer(list, host), list_(list) {
    auto* widget = new QListWidget;
    widget->setUniformItemSizes(true);
    QObject::connect(widget, &QListWidget::itemChanged, [this](QListWidgetItem* item) {
      if (Applying() || list_.Style() != 1) return;
      int row = static_cast<QListWidget*>(Widget())->row(item);
      bool checked = item->checkState() == Qt::Checked;
      if (UserAction([&] { list_.UserCheck(row, checked); })) ApplyAll();
    });
    QObject::connect(widget, &QListWidget::itemClicked, [this](QListWidgetItem* item) {
      if (Applying()) return;
      auto* widget = static_cast<QListWidget*>(Widget());
      int row = widget->row(item);
      bool selected = item->isSelected();
      bool alive = UserAction([&] {
        if (list_.Style() == 0 && list_.MultiSelect() != 0) list_.SetSelected(row, selected);
        list_.UserPick(row);
      });
      if (alive) ApplyAll();
    });
    SetWidget(widget);
  }

  void RowsReset() override { ApplyAll(); }
  void RowsInserted(int, int) override { ApplyAll(); }
  void RowsRemoved(int, int) override { ApplyAll(); }
  void RowChanged(int) override { ApplyAll(); }

 protected:
  void Apply(vb::Property property) override {
    auto* widget = static_cast<QListWidget*>(Widget());
    if (Is(property, vb::Property::MultiSelect) || Is(property, vb::Property::Style)) {
      widget->setSelectionMode(list_.Style() == 1         ? QAbstractItemView::SingleSelection
                               : list_.MultiSelect() == 1 ? QAbstractItemView::MultiSelection
                               : list_.MultiSelect() == 2 ? QAbstractItemView::ExtendedSelection
                                                          : QAbstractItemView::SingleSelection);
    }
    if (property == vb::Property::All) Refill(widget);
    if (property == vb::Property::All || property == vb::Property::ListIndex) ShowSelection(widget);
  }

 private:
  void Refill(QListWidget* widget) {
    widget->clear();
    for (int i = 0; i < list_.ListCount(); ++i) {
      auto* item = new QListWidgetItem(ToQt(list_.List(i)), widget);
      if (list_.Style() == 1) {
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(list_.Selected(i) ? Qt::Checked : Qt::Unchecked);
      } else {
        item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
      }
    }
  }

  void ShowSelection(QListWidget* widget) {
    for (int i = 0; i < list_.ListCount() && i < widget->count(); ++i) {
      // In a check-box list the highlight is ListIndex; the checks are Selected.
      bool highlighted = list_.Style() == 1 ? i == list_.ListIndex() : list_.Selected(i);
      widget->item(i)->setSelected(highlighted);
    }
    if (list_.ListIndex() >= 0)
      widget->setCurrentRow(list_.ListIndex(), QItemSelectionModel::NoUpdate);
  }

  vb::ListBox& list_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeListPeer(vb::Control& control, PeerHost& host) {
  if (auto* combo = dynamic_cast<vb::ComboBox*>(&control)) {
    return std::make_unique<ComboBoxPeer>(*combo, host);
  }
  if (auto* list = dynamic_cast<vb::ListBox*>(&control)) {
    return std::make_unique<ListBoxPeer>(*list, host);
  }
  return nullptr;
}

}  // namespace studio
