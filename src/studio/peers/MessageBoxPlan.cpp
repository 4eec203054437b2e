// The icon, buttons, default and escape button of a MsgBox style on a QMessageBox.
#include "studio/peers/MessageBoxPlan.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <algorithm>

#include "runtime/MessageBoxes.h"
#include "runtime/VbConstants.h"

namespace studio {
namespace {

QMessageBox::StandardButton ButtonOf(int answer) {
  switch (answer) {
    case vb::vbOK:
      return QMessageBox::Ok;
    case vb::vbCancel:
      return QMessageBox::Cancel;
    case vb::vbAbort:
      return QMessageBox::Abort;
    case vb::vbRetry:
      return QMessageBox::Retry;
    case vb::vbIgnore:
      return QMessageBox::Ignore;
    case vb::vbYes:
      return QMessageBox::Yes;
    case vb::vbNo:
      return QMessageBox::No;
    default:
      return QMessageBox::NoButton;
  }
}

QMessageBox::Icon IconOf(int style) {
  switch (style & 0x70) {
    case vb::vbCritical:
      return QMessageBox::Critical;
    case vb::vbQuestion:
      return QMessageBox::Question;
    case vb::vbExclamation:
      return QMessageBox::Warning;
    case vb::vbInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

}  // namespace

MessageBoxPlan PlanMessageBox(int style) {
  MessageBoxPlan plan;
  plan.icon = IconOf(style);
  for (int answer : vb::MessageBoxes::Buttons(style)) {
    plan.buttons.push_back({answer, ButtonOf(answer)});
  }
  int wanted = (style & 0x300) / 256;
  plan.defaultIndex = wanted < static_cast<int>(plan.buttons.size()) ? wanted : 0;
  for (int i = 0; i < static_cast<int>(plan.buttons.size()); ++i) {
    if (plan.buttons[i].answer == vb::vbCancel) plan.escapeIndex = i;
  }
  if (plan.buttons.size() == 1) plan.escapeIndex = 0;
  return plan;
}

void FitMessageBoxTo(QMessageBox& box, QSize available) {
  int limit = available.height() * 3 / 4;
  if (box.sizeHint().height() <= limit) return;
  // The box lays its text out in a label of its grid; the label moves into a scroll area in
  // the same cell.
  auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  auto* grid = qobject_cast<QGridLayout*>(box.layout());
  if (!label || !grid) return;
  int index = grid->indexOf(label);
  if (index < 0) return;
  int row = 0, column = 0, rows = 1, columns = 1;
  grid->getItemPosition(index, &row, &column, &rows, &columns);
  grid->removeWidget(label);
  auto* scroll = new QScrollArea(&box);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  scroll->setWidget(label);
  int chrome = box.sizeHint().height() - label->sizeHint().height();
  scroll->setFixedHeight(std::max(label->fontMetrics().height() * 4, limit - std::max(0, chrome)));
  scroll->setMinimumWidth(std::min(label->sizeHint().width() + 24, available.width() * 3 / 4));
  grid->addWidget(scroll, row, column, rows, columns);
}

}  // namespace studio
