// The form's window: its controls' peers, their places, caption, border, top-most and visibility.
#include "studio/peers/FormWindowPeer.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEventLoop>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "runtime/Error.h"
#include "runtime/Runtime.h"
#include "runtime/UserDocument.h"
#include "runtime/Utf.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Menu.h"
#include "studio/peers/ControlPeers.h"
#include "studio/peers/FormWindow.h"
#include "studio/peers/QtConvert.h"
#include "studio/peers/UserActionGuard.h"

namespace studio {

// Hears every change of a menu and has the menu bar redrawn once.
class FormWindowPeer::MenuWatch : public vb::ControlPeer {
 public:
  explicit MenuWatch(FormWindowPeer& owner) : owner_(owner) {}
  void Changed(vb::Property) override { owner_.ScheduleMenuBar(); }

 private:
  FormWindowPeer& owner_;
};

FormWindowPeer::FormWindowPeer(vb::FormBase& object, TwipScale scale,
                               std::function<void(FormWindowPeer*)> gone)
    : object_(object), runtime_(object.GetRuntime()), scale_(scale), gone_(std::move(gone)) {
  window_ = new FormWindow;
  window_->setObjectName(ToQt(object_.Name()));
  auto* layout = new QVBoxLayout(window_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  client_ = new QWidget;
  layout->addWidget(client_, 1);
  window_->installEventFilter(this);
  client_->installEventFilter(this);
  window_->onClose = [this] {
    if (auto* form = AsForm()) UserAction([form] { form->UserClose(); });
  };
  window_->onResized = [this] { UserResized(); };
  window_->onMoved = [this] {
    auto* form = AsForm();
    if (!form || applying_ > 0 || form->WindowState() != vb::vbNormal) return;
    QPoint at = window_->frameGeometry().topLeft();
    UserAction([&] { form->Move(scale_.ToTwips(at.x()), scale_.ToTwips(at.y())); });
  };
  window_->onActivated = [this] {
    auto* form = AsForm();
    if (!form || applying_ > 0 || runtime_.ActiveForm() == form) return;
    if (form->IsLoaded() && form->Visible()) UserAction([form] { form->Show(); });
  };
  if (!AsForm()) {
    window_->SetPreferredSize(
        QSize(scale_.ToPixels(object_.ScaleWidth()), scale_.ToPixels(object_.ScaleHeight())));
  }
  object_.SetPeer(this);
  for (auto* control : object_.Controls()) AddPeer(*control);
  for (auto& [control, peer] : peers_) Place(const_cast<vb::Control&>(*control));
  ApplyWindow({});
}

FormWindowPeer::~FormWindowPeer() {
  peers_.clear();
  if (objectAlive_) {
    for (auto& [control, watch] : menus_) const_cast<vb::Control*>(control)->SetPeer(nullptr);
    if (object_.Peer() == this) object_.SetPeer(nullptr);
  }
  menus_.clear();
  if (modalLoop_) modalLoop_->quit();
  if (window_) {
    // The window outlives this peer until Qt deletes it: it reports nothing more.
    window_->onClose = window_->onResized = window_->onMoved = window_->onActivated = nullptr;
    window_->hide();
    window_->deleteLater();
  }
}

QWidget* FormWindowPeer::Window() const {
  return window_;
}

vb::Form* FormWindowPeer::AsForm() const {
  return objectAlive_ ? dynamic_cast<vb::Form*>(&object_) : nullptr;
}

WidgetPeer* FormWindowPeer::PeerOf(const vb::Control& control) const {
  auto it = peers_.find(&control);
  return it == peers_.end() ? nullptr : it->second.get();
}

QWidget* FormWindowPeer::WidgetOf(vb::Hwnd hwnd) const {
  if (hwnd == object_.hWnd()) return window_;
  for (auto& [control, peer] : peers_) {
    if (control->hWnd() == hwnd) return peer->Widget();
  }
  return nullptr;
}

void FormWindowPeer::AddPeer(vb::Control& control) {
  if (dynamic_cast<vb::Menu*>(&control)) {
    auto watch = std::make_unique<MenuWatch>(*this);
    control.SetPeer(watch.get());
    menus_[&control] = std::move(watch);
    ScheduleMenuBar();
    return;
  }
  auto peer = MakeControlPeer(control, *this);
  if (!peer) return;
  peer->Widget()->setParent(client_);
  Watch(*peer);
  auto& added = *peer;
  peers_[&control] = std::move(peer);
  added.ApplyAll();
  if (added.StaysBehind()) added.Widget()->lower();
}

void FormWindowPeer::Watch(WidgetPeer& peer) {
  QList<QWidget*> widgets = peer.KeyWidgets();
  widgets << peer.Widget();
  if (auto* view = qobject_cast<QAbstractScrollArea*>(peer.Widget())) widgets << view->viewport();
  for (QWidget* widget : widgets) {
    if (watched_.contains(widget)) continue;
    widget->installEventFilter(this);
    watched_[widget] = &peer;
    QObject::connect(widget, &QObject::destroyed, this,
                     [this](QObject* gone) { watched_.erase(gone); });
  }
}

void FormWindowPeer::ControlAdded(vb::Control& control) {
  // The control is still being built: it gets its peer once the engine's call has returned.
  pending_.push_back(&control);
  if (pending_.size() == 1) QTimer::singleShot(0, this, [this] { AddPending(); });
}

void FormWindowPeer::AddPending() {
  auto pending = std::exchange(pending_, {});
  for (auto* control : pending) {
    AddPeer(*control);
    Place(*control);
  }
}

void FormWindowPeer::ControlRemoved(vb::Control& control) {
  // The control, and perhaps the whole object, is being destroyed: what the widgets do as they
  // go (a focus that moves) is not the user's.
  ++quiet_;
  std::erase(pending_, &control);
  if (auto it = peers_.find(&control); it != peers_.end()) {
    for (auto watched = watched_.begin(); watched != watched_.end();) {
      watched = watched->second == it->second.get() ? watched_.erase(watched) : std::next(watched);
    }
    peers_.erase(it);
  }
  if (menus_.erase(&control) > 0) ScheduleMenuBar();
  --quiet_;
}

void FormWindowPeer::ObjectDestroyed() {
  objectAlive_ = false;
  if (gone_) gone_(this);  // destroys this peer
}

void FormWindowPeer::UserAction(const std::function<void()>& action) {
  // The action may destroy this peer: nothing of it is used once the action has run.
  GuardUserAction(runtime_, action);
}

void FormWindowPeer::Place(vb::Control& control) {
  WidgetPeer* peer = PeerOf(control);
  if (!peer) return;
  QWidget* host = client_;
  QPoint origin;
  if (auto* container = control.Container()) {
    if (auto* outer = PeerOf(*container)) {
      host = outer->ChildHost();
      origin = outer->ChildOrigin();
    }
  }
  QWidget* widget = peer->Widget();
  if (widget->parentWidget() != host) {
    widget->setParent(host);
    widget->setVisible(control.Visible());
  }
  widget->setGeometry(
      scale_.ToPixels(control.Left(), control.Top(), control.Width(), control.Height())
          .translated(origin));
}

void FormWindowPeer::Changed(vb::Property property) {
  ApplyWindow(property);
  QuitModalIfClosed();
}

void FormWindowPeer::ApplyWindow(vb::Property property) {
  ++applying_;
  auto* form = AsForm();
  auto is = [&](vb::Property name) { return property == vb::Property::All || property == name; };
  if (form) {
    if (is(vb::Property::Caption)) window_->setWindowTitle(ToQt(form->Caption()));
    if (is(vb::Property::BorderStyle)) ApplyFlags();
    if (is(vb::Property::Enabled)) window_->setEnabled(form->Enabled());
    if (is(vb::Property::MousePointer)) {
      if (form->MousePointer() == vb::vbHourglass) {
        window_->setCursor(Qt::WaitCursor);
      } else {
        window_->unsetCursor();
      }
    }
    if (is(vb::Property::Move) || is(vb::Property::WindowState) || is(vb::Property::BorderStyle))
      ApplyGeometry();
    if (is(vb::Property::Visible) || is(vb::Property::Loaded) || is(vb::Property::WindowState))
      ShowOrHide();
  }
  --applying_;
}

void FormWindowPeer::ApplyFlags() {
  auto* form = AsForm();
  Qt::WindowFlags flags = Qt::Window;
  switch (form->BorderStyle()) {
    case 0:
      flags = Qt::Window | Qt::FramelessWindowHint;
      break;
    case 1:
    case 3:
      flags = Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint | Qt::WindowTitleHint |
              Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint;
      break;
    case 4:
    case 5:
      flags = Qt::Tool;
      break;
    default:
      break;
  }
  if (topMost_ || overTopMost_) flags |= Qt::WindowStaysOnTopHint;
  bool visible = window_->isVisible();
  window_->setWindowFlags(flags);
  if (visible) window_->show();
}

void FormWindowPeer::ShowTopMost() {
  bool topMost = objectAlive_ && runtime_.Windows().IsTopMost(object_.hWnd());
  if (topMost == topMost_ || !AsForm()) return;
  topMost_ = topMost;
  ++applying_;
  ApplyFlags();
  --applying_;
}

void FormWindowPeer::ApplyGeometry() {
  auto* form = AsForm();
  if (form->WindowState() != vb::vbNormal) return;
  int menuHeight = menuBar_ && menuBar_->isVisible() ? menuBar_->sizeHint().height() : 0;
  QSize client(scale_.ToPixels(form->ScaleWidth()), scale_.ToPixels(form->ScaleHeight()));
  QSize size(client.width(), client.height() + menuHeight);
  bool fixed = form->BorderStyle() == 1 || form->BorderStyle() == 3 || form->BorderStyle() == 4;
  if (fixed) {
    window_->setFixedSize(size);
  } else {
    window_->setMinimumSize(0, 0);
    window_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    window_->resize(size);
  }
  window_->move(scale_.ToPixels(form->Left()), scale_.ToPixels(form->Top()));
}

bool FormWindowPeer::AnotherTopMostShown() const {
  for (QWidget* other : QApplication::topLevelWidgets())
    if (other != window_ && other->isVisible() &&
        other->windowFlags().testFlag(Qt::WindowStaysOnTopHint))
      return true;
  return false;
}

void FormWindowPeer::ShowOrHide() {
  auto* form = AsForm();
  bool shown = form->IsLoaded() && form->Visible();
  if (!shown) {
    window_->hide();
    return;
  }
  // A window shown while a top-most one is up (Replace opened over the search dialog) must not
  // open behind it: it is kept on top as well.
  if (bool over = AnotherTopMostShown(); over != overTopMost_) {
    overTopMost_ = over;
    ++applying_;
    ApplyFlags();
    --applying_;
  }
  if (!std::exchange(shownOnce_, true) && form->WindowState() == vb::vbNormal &&
      form->Left() == 0 && form->Top() == 0) {
    PlaceFirstTime(*form);
  }
  switch (form->WindowState()) {
    case vb::vbMinimized:
      window_->showMinimized();
      break;
    case vb::vbMaximized:
      window_->showMaximized();
      break;
    default:
      window_->showNormal();
      break;
  }
  window_->raise();
  window_->activateWindow();
}

// A form nobody placed opens centred over the active window (or the screen), as dialogs do;
// the engine is told where it went, as VB's Left and Top report the window's real place.
void FormWindowPeer::PlaceFirstTime(vb::Form& form) {
  QWidget* owner = QApplication::activeWindow();
  QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return;
  QRect area = owner && owner != window_ ? owner->frameGeometry() : screen->availableGeometry();
  QSize size = window_->frameGeometry().size();
  QPoint at = area.center() - QPoint(size.width() / 2, size.height() / 2);
  QRect bounds = screen->availableGeometry();
  at.setX(
      std::clamp(at.x(), bounds.left(), std::max(bounds.left(), bounds.right() - size.width())));
  at.setY(
      std::clamp(at.y(), bounds.top(), std::max(bounds.top(), bounds.bottom() - size.height())));
  window_->move(at);
  UserAction([&] { form.Move(scale_.ToTwips(at.x()), scale_.ToTwips(at.y())); });
}

void FormWindowPeer::UserResized() {
  if (applying_ > 0 || !objectAlive_) return;
  int menuHeight = menuBar_ && menuBar_->isVisible() ? menuBar_->height() : 0;
  float width = scale_.ToTwips(client_->width());
  float height = scale_.ToTwips(std::max(0, window_->height() - menuHeight));
  if (auto* form = AsForm()) {
    if (form->WindowState() != vb::vbNormal || !window_->isVisible()) return;
    // The engine's size is the outer one: the client plus the border style's frame.
    float outerWidth = width + (form->Width() - form->ScaleWidth());
    float outerHeight = height + (form->Height() - form->ScaleHeight());
    if (scale_.ToPixels(outerWidth) == scale_.ToPixels(form->Width()) &&
        scale_.ToPixels(outerHeight) == scale_.ToPixels(form->Height())) {
      return;
    }
    UserAction([&] { form->Move(form->Left(), form->Top(), outerWidth, outerHeight); });
    return;
  }
  if (auto* document = dynamic_cast<vb::UserDocument*>(&object_)) {
    UserAction([&] { document->SetExtent(width, height); });
  }
}

void FormWindowPeer::QuitModalIfClosed() {
  if (modalLoop_ && stillOpen_ && !stillOpen_()) modalLoop_->quit();
}

bool FormWindowPeer::RunModal(const std::function<bool()>& stillOpen) {
  if (!stillOpen()) return true;
  // Modality is set on a hidden window, so the form shown a moment ago is shown again.
  window_->hide();
  window_->setWindowModality(Qt::ApplicationModal);
  ShowOrHide();
  QEventLoop loop;
  QEventLoop* outer = std::exchange(modalLoop_, &loop);
  auto outerOpen = std::exchange(stillOpen_, stillOpen);
  while (stillOpen()) loop.exec();
  modalLoop_ = outer;
  stillOpen_ = std::move(outerOpen);
  if (window_) {
    bool visible = window_->isVisible();
    window_->hide();
    window_->setWindowModality(Qt::NonModal);
    if (visible && objectAlive_ && AsForm()->Visible()) window_->show();
  }
  return true;
}

}  // namespace studio
