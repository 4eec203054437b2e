// The form window's input: keys, mouse clicks and focus routed to the engine; menus and popups.
#include <QApplication>
#include <QCursor>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

#include "runtime/Runtime.h"
#include "runtime/VbConstants.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Menu.h"
#include "studio/peers/FormWindow.h"
#include "studio/peers/FormWindowPeer.h"
#include "studio/peers/KeyMap.h"
#include "studio/peers/QtConvert.h"

namespace studio {
namespace {

int ButtonOf(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return vb::vbLeftButton;
    case Qt::RightButton:
      return vb::vbRightButton;
    case Qt::MiddleButton:
      return vb::vbMiddleButton;
    default:
      return 0;
  }
}

int ShiftOf(Qt::KeyboardModifiers modifiers) {
  return VbKeyOf(0, modifiers).shift;
}

}  // namespace

bool FormWindowPeer::eventFilter(QObject* watched, QEvent* event) {
  if (!objectAlive_ || quiet_ > 0) return false;
  auto it = watched_.find(watched);
  WidgetPeer* peer = it == watched_.end() ? nullptr : it->second;
  switch (event->type()) {
    case QEvent::KeyPress:
      return RouteKey(peer, watched, event);
    case QEvent::FocusIn: {
      auto reason = static_cast<QFocusEvent*>(event)->reason();
      if (!peer || reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) break;
      vb::Control& control = peer->Control();
      if (control.hWnd() != 0 && !control.HasFocus() && control.IsUsable()) {
        UserAction([&] { control.SetFocus(); });
      }
      break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
      if (peer) return RouteMouse(*peer, watched, event);
      break;
    default:
      break;
  }
  return false;
}

// Every key with a code goes through the engine's routing (KeyPreview, Default and Cancel,
// KeyDown/KeyPress/KeyUp). The widget then does its own part (caret moves, focus travel, a
// check box's space), except for what the engine already did: Enter and Escape, and the
// characters the engine types into a text box.
bool FormWindowPeer::RouteKey(WidgetPeer* peer, QObject* watched, QEvent* event) {
  if (redelivering_ > 0) return false;
  auto* keyEvent = static_cast<QKeyEvent*>(event);
  VbKey key = VbKeyOf(keyEvent->key(), keyEvent->modifiers());
  if (key.keyCode == 0) return false;
  if (peer && peer->Control().hWnd() != 0 && !peer->Control().HasFocus() &&
      peer->Control().IsUsable()) {
    UserAction([&] { peer->Control().SetFocus(); });
  }
  bool typed = peer && peer->TypesThroughEngine() && EngineTypes(key);
  bool enterOrEscape =
      key.shift == 0 && (key.keyCode == vb::vbKeyReturn || key.keyCode == vb::vbKeyEscape);
  const vb::Control* control = peer ? &peer->Control() : nullptr;
  QPointer<QObject> target = watched;
  vb::FormBase& object = object_;
  std::weak_ptr<int> alive = alive_;
  // The character as the keyboard made it: Caps Lock and layouts decide a letter's case.
  QString text = keyEvent->text();
  char16_t character = text.size() == 1 && text[0].isLetter() ? text[0].unicode() : 0;
  UserAction([&] { object.UserKey(key.keyCode, key.shift, character); });
  if (alive.expired()) return true;
  // The key may have unloaded the control's array element: look its peer up again.
  if (control) {
    if (auto* still = PeerOf(*control)) still->AfterEngineKey();
  }
  if (typed || enterOrEscape || !target) return true;
  // The widget's own part. A key it ignores travels on to its parents, which are watched too,
  // so it goes again as a copy the filter lets pass: the engine hears every key once.
  QKeyEvent copy(keyEvent->type(), keyEvent->key(), keyEvent->modifiers(), keyEvent->text(),
                 keyEvent->isAutoRepeat(), static_cast<ushort>(keyEvent->count()));
  ++redelivering_;
  QApplication::sendEvent(target, &copy);
  --redelivering_;
  return true;
}

bool FormWindowPeer::RouteMouse(WidgetPeer& peer, QObject* watched, QEvent* event) {
  auto* mouse = static_cast<QMouseEvent*>(event);
  int button = ButtonOf(mouse->button());
  if (button == 0) return false;
  vb::Control& control = peer.Control();
  bool press = event->type() == QEvent::MouseButtonPress;
  auto* widget = static_cast<QWidget*>(watched);
  QPoint at = widget->mapTo(peer.Widget(), mouse->position().toPoint());
  float x = scale_.ToTwips(at.x());
  float y = scale_.ToTwips(at.y());
  int shift = ShiftOf(mouse->modifiers());
  if (button == vb::vbLeftButton && peer.ClicksByMouse()) {
    if (!press && peer.Widget()->rect().contains(at)) UserAction([&] { control.UserClick(); });
    return false;
  }
  if (button == vb::vbLeftButton && !peer.ReportsLeftMouse()) return false;
  // The release is reported after the widget's own handling (a list view selects the row on
  // the press), so a MouseUp handler sees the row under the mouse selected.
  if (press) {
    UserAction([&] { control.UserMouseDown(button, shift, x, y); });
    return false;
  }
  std::weak_ptr<int> alive = alive_;
  QTimer::singleShot(0, this, [this, alive, &control, button, shift, x, y] {
    if (!alive.expired() && objectAlive_ && PeerOf(control)) {
      UserAction([&] { control.UserMouseUp(button, shift, x, y); });
    }
  });
  return false;
}

void FormWindowPeer::ScheduleMenuBar() {
  if (std::exchange(menuBarScheduled_, true)) return;
  QTimer::singleShot(0, this, [this] {
    menuBarScheduled_ = false;
    RebuildMenuBar();
  });
}

// The menu bar holds the visible top-level menus; an invisible top-level menu is a popup that
// code shows with PopupMenu. A form without visible menus has no menu bar.
void FormWindowPeer::RebuildMenuBar() {
  if (!objectAlive_ || !AsForm()) return;
  std::vector<const vb::Menu*> tops;
  for (auto* control : object_.Controls()) {
    auto* menu = dynamic_cast<const vb::Menu*>(control);
    if (menu && !menu->ParentMenu() && menu->Visible()) tops.push_back(menu);
  }
  if (tops.empty()) {
    if (menuBar_) menuBar_->hide();
  } else {
    if (!menuBar_) {
      menuBar_ = new QMenuBar(window_.data());
      static_cast<QVBoxLayout*>(window_->layout())->setMenuBar(menuBar_);
    }
    menuBar_->clear();
    for (const auto* top : tops) {
      QMenu* menu = menuBar_->addMenu(ToQt(top->Caption()));
      menu->setEnabled(top->Enabled());
      FillMenu(*menu, *top);
    }
    menuBar_->show();
  }
  ++applying_;
  ApplyGeometry();
  --applying_;
}

void FormWindowPeer::FillMenu(QMenu& target, const vb::Menu& menu) {
  for (auto* item : menu.Items()) {
    if (!item->Visible()) continue;
    if (item->IsSeparator()) {
      target.addSeparator();
      continue;
    }
    if (!item->Items().empty()) {
      QMenu* sub = target.addMenu(ToQt(item->Caption()));
      sub->setEnabled(item->Enabled());
      FillMenu(*sub, *item);
      continue;
    }
    QAction* action = target.addAction(ToQt(item->Caption()));
    action->setEnabled(item->Enabled());
    action->setCheckable(item->Checked());
    action->setChecked(item->Checked());
    action->setObjectName(ToQt(item->Name()));
    auto* clicked = const_cast<vb::Menu*>(item);
    QObject::connect(action, &QAction::triggered, this, [this, clicked] {
      // Menus only announce their own changes; one that went since the menu was drawn is gone.
      if (menus_.contains(clicked)) UserAction([clicked] { clicked->UserClick(); });
    });
  }
}

bool FormWindowPeer::PopupMenu(vb::Menu& menu, float x, float y) {
  QMenu popup(window_.data());
  popup.setObjectName(ToQt(menu.Name()));
  FillMenu(popup, menu);
  if (popup.isEmpty()) return true;
  QPoint at = (x == 0 && y == 0)
                  ? QCursor::pos()
                  : client_->mapToGlobal(QPoint(scale_.ToPixels(x), scale_.ToPixels(y)));
  popup.exec(at);
  return true;
}

}  // namespace studio
