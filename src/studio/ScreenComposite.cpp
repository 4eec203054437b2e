// studio::ComposeScreen.
#include "studio/ScreenComposite.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace studio {
namespace {

// Higher is drawn later, that is nearer the user.
int StackRank(const QWidget& window) {
  Qt::WindowType type = window.windowType();
  if (type == Qt::Popup || type == Qt::ToolTip) return 4;
  if (window.isModal()) return 3;
  if (window.windowFlags() & Qt::WindowStaysOnTopHint) return 2;
  return 1;
}

// Within a rank: a floating toolbar stays over the ordinary windows, except the one in use.
int Nearness(const QWidget& window, const QWidget* active) {
  if (&window == active) return 2;
  return window.windowType() == Qt::Tool ? 1 : 0;
}

// The desktop draws a dialog's title bar; without one, a picture of a dialog would not show
// its caption. A plain bar above the window stands in.
void DrawTitleBar(QPainter& painter, const QWidget& window, QPoint at) {
  Qt::WindowType type = window.windowType();
  if (type != Qt::Dialog && type != Qt::Window) return;
  int height = window.fontMetrics().height() + 6;
  QRect bar(at.x(), at.y() - height, window.width(), height);
  painter.fillRect(bar, QColor(10, 36, 106));
  painter.setPen(Qt::white);
  painter.drawText(
      bar.adjusted(6, 0, -6, 0), Qt::AlignLeft | Qt::AlignVCenter,
      window.fontMetrics().elidedText(window.windowTitle(), Qt::ElideRight, bar.width() - 12));
}

QRect ScreenPlace(const QWidget& window) {
  return QRect(window.mapToGlobal(QPoint(0, 0)), window.size());
}

}  // namespace

QImage ComposeScreen(QWidget& main) {
  QImage image = main.grab().toImage();
  QRect mainPlace = ScreenPlace(main);
  std::vector<QWidget*> over;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window != &main && window->isVisible() && ScreenPlace(*window).intersects(mainPlace))
      over.push_back(window);
  QWidget* active = QApplication::activeWindow();
  std::stable_sort(over.begin(), over.end(), [active](QWidget* a, QWidget* b) {
    return std::pair(StackRank(*a), Nearness(*a, active)) <
           std::pair(StackRank(*b), Nearness(*b, active));
  });
  QPainter painter(&image);
  for (QWidget* window : over) {
    QPoint at = ScreenPlace(*window).topLeft() - mainPlace.topLeft();
    DrawTitleBar(painter, *window, at);
    painter.drawPixmap(at, window->grab());
  }
  return image;
}

}  // namespace studio
