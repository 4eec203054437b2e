// studio::ComposeScreen: a picture of the main window as a user sees it, with the application's
// other windows (floating toolbars, modeless dialogs) drawn over it at their places.
#pragma once

#include <QImage>

class QWidget;

namespace studio {

// The main window's client area, and over it every visible top-level window of the application
// that overlaps it, each at its place on the screen: ordinary windows first, then tool windows
// (a floating toolbar), then windows kept on top, modal dialogs and popups; within each, the
// active window last. A grab of the main window alone misses all of them, since each is a window
// of its own.
QImage ComposeScreen(QWidget& main);

}  // namespace studio
