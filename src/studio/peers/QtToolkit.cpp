// The toolkit's wiring: peers for new forms, message boxes, clipboard, beep, screen, focus, loop.
#include "studio/peers/QtToolkit.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "runtime/AppInfo.h"
#include "runtime/Error.h"
#include "runtime/UserDocument.h"
#include "runtime/forms/Form.h"
#include "studio/peers/FormWindowPeer.h"
#include "studio/peers/LoopDriver.h"
#include "studio/peers/MessageBoxPlan.h"
#include "studio/peers/QtConvert.h"
#include "studio/peers/QtPlatformDialogs.h"

namespace studio {
namespace {

double LogicalDpi() {
  QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? screen->logicalDotsPerInchX() : 96.0;
}

QString AppTitle(vb::Runtime& runtime) {
  try {
    return ToQt(runtime.App().Title());
  } catch (const vb::Error&) {
    // No App object was set up: the desktop's name for the program stands in.
    return QApplication::applicationDisplayName();
  }
}

}  // namespace

QtToolkit::QtToolkit(vb::Runtime& runtime, QtToolkitOptions options)
    : runtime_(runtime), scale_(LogicalDpi()) {
  if (options.realClock) runtime_.GetClock() = vb::Clock::System();
  if (QScreen* screen = QGuiApplication::primaryScreen()) {
    auto& vbScreen = runtime_.GetScreen();
    vbScreen.widthPixels = screen->geometry().width();
    vbScreen.heightPixels = screen->geometry().height();
    vbScreen.twipsPerPixelX = static_cast<int>(std::lround(scale_.TwipsPerPixel()));
    vbScreen.twipsPerPixelY = vbScreen.twipsPerPixelX;
  }
  driver_ = std::make_unique<LoopDriver>(runtime_);
  runtime_.onBeep = [] { QApplication::beep(); };
  if (options.showMessageBoxes) {
    runtime_.MessageBoxService().presenter = [this](const vb::MsgBoxRecord& box) {
      return ShowMessageBox(box);
    };
  }
  runtime_.GetClipboard().onChange = [this] { MirrorToDesktop(); };
  QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
                   [this] { MirrorFromDesktop(); });
  runtime_.Windows().onFocusChanged = [this](vb::Hwnd hwnd) {
    for (auto& peer : peers_) {
      if (QWidget* widget = peer->WidgetOf(hwnd)) {
        if (!widget->hasFocus()) widget->setFocus(Qt::OtherFocusReason);
        return;
      }
    }
  };
  runtime_.Windows().onTopMostChanged = [this](vb::Hwnd hwnd) {
    if (auto* peer = PeerOfWindow(hwnd)) peer->ShowTopMost();
  };
  runtime_.Windows().onDestroyed = [this](vb::Hwnd hwnd) {
    if (auto* peer = PeerOfWindow(hwnd)) peer->ObjectDestroyed();
  };
  runtime_.onObjectReady = [this](vb::FormBase& object) { Attach(object); };
  dialogs_ = std::make_shared<QtPlatformDialogs>([this](vb::Hwnd hwnd) -> QWidget* {
    for (auto& peer : peers_) {
      if (QWidget* widget = peer->WidgetOf(hwnd)) return widget->window();
    }
    return QApplication::activeWindow();
  });
  runtime_.SetDialogs(dialogs_);
}

QtToolkit::~QtToolkit() {
  runtime_.onObjectReady = nullptr;
  // The runtime keeps the dialogs (a caller may hold them); they lose their owner windows.
  dialogs_->Detach();
  runtime_.Windows().onFocusChanged = nullptr;
  runtime_.Windows().onTopMostChanged = nullptr;
  runtime_.Windows().onDestroyed = nullptr;
  runtime_.GetClipboard().onChange = nullptr;
  runtime_.MessageBoxService().presenter = nullptr;
  runtime_.onBeep = nullptr;
  peers_.clear();
  driver_.reset();
}

void QtToolkit::Attach(vb::FormBase& object) {
  auto gone = [this](FormWindowPeer* peer) {
    auto it = std::find_if(peers_.begin(), peers_.end(),
                           [peer](const auto& held) { return held.get() == peer; });
    if (it != peers_.end()) peers_.erase(it);
  };
  peers_.push_back(std::make_unique<FormWindowPeer>(object, scale_, gone));
}

FormWindowPeer* QtToolkit::PeerOf(const vb::FormBase& object) const {
  for (auto& peer : peers_) {
    if (&peer->Object() == &object) return peer.get();
  }
  return nullptr;
}

FormWindowPeer* QtToolkit::PeerOfWindow(vb::Hwnd hwnd) const {
  for (auto& peer : peers_) {
    if (peer->Object().hWnd() == hwnd) return peer.get();
  }
  return nullptr;
}

int QtToolkit::ShowMessageBox(const vb::MsgBoxRecord& box) {
  MessageBoxPlan plan = PlanMessageBox(box.style);
  QMessageBox dialog(plan.icon, box.title.empty() ? AppTitle(runtime_) : ToQt(box.title),
                     ToQt(box.prompt), QMessageBox::NoButton, QApplication::activeWindow());
  std::vector<QAbstractButton*> buttons;
  for (const auto& button : plan.buttons) buttons.push_back(dialog.addButton(button.button));
  dialog.setDefaultButton(static_cast<QPushButton*>(buttons[plan.defaultIndex]));
  if (plan.escapeIndex >= 0) dialog.setEscapeButton(buttons[plan.escapeIndex]);
  if (QScreen* screen = QGuiApplication::primaryScreen())
    FitMessageBoxTo(dialog, screen->availableGeometry().size());
  dialog.exec();
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    if (dialog.clickedButton() == buttons[i]) return plan.buttons[i].answer;
  }
  // Closed without a button (only possible with an escape button): that button's answer.
  return plan.buttons[plan.escapeIndex >= 0 ? plan.escapeIndex : 0].answer;
}

void QtToolkit::MirrorToDesktop() {
  if (mirroring_ > 0) return;
  ++mirroring_;
  auto& engine = runtime_.GetClipboard();
  QClipboard* desktop = QGuiApplication::clipboard();
  if (auto picture = engine.GetData()) {
    desktop->setImage(ToImage(*picture));
  } else if (auto text = engine.GetText()) {
    desktop->setText(ToQt(*text));
  } else {
    desktop->clear();
  }
  --mirroring_;
}

void QtToolkit::MirrorFromDesktop() {
  if (mirroring_ > 0) return;
  ++mirroring_;
  auto& engine = runtime_.GetClipboard();
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (data && data->hasImage()) {
    engine.SetData(FromImage(qvariant_cast<QImage>(data->imageData())));
  } else if (data && data->hasText()) {
    engine.SetText(FromQt(data->text()));
  } else {
    engine.Clear();
  }
  --mirroring_;
}

std::unique_ptr<QtToolkit> AttachQtToolkit(vb::Runtime& runtime, QtToolkitOptions options) {
  return std::make_unique<QtToolkit>(runtime, options);
}

QWidget* WidgetOf(vb::UserDocument& document) {
  auto* peer = dynamic_cast<FormWindowPeer*>(document.Peer());
  return peer ? peer->Window() : nullptr;
}

QWidget* WidgetOf(vb::Form& form) {
  auto* peer = dynamic_cast<FormWindowPeer*>(form.Peer());
  return peer ? peer->Window() : nullptr;
}

}  // namespace studio
