// studio::MessageBoxPlan: what a MsgBox style asks a desktop message box to show.
#pragma once

#include <QMessageBox>
#include <vector>

namespace studio {

struct MessageBoxButton {
  int answer = 0;  // vbOK .. vbNo
  QMessageBox::StandardButton button = QMessageBox::NoButton;
};

// Buttons in the order VB lays them out; the default is the one the style's default-button bits
// name (the first when they name a button the box lacks); Escape answers Cancel when the box has
// it, OK on a box with only OK, and nothing otherwise (Yes/No and Abort/Retry/Ignore must be
// answered).
struct MessageBoxPlan {
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  std::vector<MessageBoxButton> buttons;
  int defaultIndex = 0;
  int escapeIndex = -1;
};

MessageBoxPlan PlanMessageBox(int style);

// A box whose text would make it taller than `available` (dozens of load warnings) shows its
// text in a scrolling area instead, so the box and its buttons stay on the screen.
void FitMessageBoxTo(QMessageBox& box, QSize available);

}  // namespace studio
