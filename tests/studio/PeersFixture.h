// A QApplication on Qt's offscreen platform and a headless runtime drawn by the Qt toolkit.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "runtime/Runtime.h"
#include "studio/peers/QtToolkit.h"

namespace peerstest {

// The runtime keeps its virtual clock and scripted message boxes; the toolkit draws every form
// made after SetUp. Widgets deleted later by Qt are deleted before the test ends.
class PeersFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!QApplication::instance()) app_ = std::make_unique<QApplication>(argc_, argv_);
    toolkit = studio::AttachQtToolkit(*runtime, Options());
  }
  void TearDown() override {
    toolkit.reset();
    Settle();
  }
  virtual studio::QtToolkitOptions Options() const {
    return {.realClock = false, .showMessageBoxes = false};
  }

  // Runs Qt's pending work: queued calls, batched rows, deferred deletes.
  static void Settle() {
    for (int i = 0; i < 3; ++i) {
      QCoreApplication::processEvents();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
  }

  // The child widget an engine control is drawn by.
  template <class W = QWidget>
  static W* Child(QWidget* window, const char16_t* name) {
    auto* widget = window->findChild<W*>(QString::fromUtf16(name));
    EXPECT_NE(widget, nullptr) << "no widget named " << QString::fromUtf16(name).toStdString();
    return widget;
  }

  static void PressKey(QWidget* target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                       const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(target, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(target, &release);
  }

  // Runs `action` once the modal loop about to start is running.
  static void WhenModal(std::function<void()> action) {
    QTimer::singleShot(0, qApp, std::move(action));
  }

  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
  std::unique_ptr<studio::QtToolkit> toolkit;

 private:
  int argc_ = 1;
  char name_[14] = "studio_tests";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> app_;
};

}  // namespace peerstest
