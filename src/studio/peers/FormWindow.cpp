// The form's widget reports closes, resizes, moves and activation to its peer.
#include "studio/peers/FormWindow.h"

#include <QCloseEvent>

namespace studio {

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (onClose) onClose();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (onResized) onResized();
}

void FormWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (event->spontaneous() && onMoved) onMoved();
}

void FormWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && onActivated) onActivated();
}

}  // namespace studio
