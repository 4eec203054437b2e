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
  if (type == Qt::Tool) return 1;
  return 0;
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
    return std::pair(StackRank(*a), a == active) < std::pair(StackRank(*b), b == active);
  });
  QPainter painter(&image);
  for (QWidget* window : over)
    painter.drawPixmap(ScreenPlace(*window).topLeft() - mainPlace.topLeft(), window->grab());
  return image;
}

}  // namespace studio
