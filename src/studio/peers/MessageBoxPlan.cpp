// The icon, buttons, default and escape button of a MsgBox style on a QMessageBox.
#include "studio/peers/MessageBoxPlan.h"

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

}  // namespace studio
