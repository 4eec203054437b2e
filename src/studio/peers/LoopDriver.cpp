// Qt's timer waking the engine's loop for posted work and due timers.
#include "studio/peers/LoopDriver.h"

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <limits>

#include "studio/peers/UserActionGuard.h"

namespace studio {

LoopDriver::LoopDriver(vb::Runtime& runtime)
    : runtime_(runtime), loop_(runtime.Loop()), clock_(runtime.GetClock()) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, this, [this] { Run(); });
  loop_.onScheduleChanged = [this] { Rearm(); };
  loop_.pumpToolkit = [] { QApplication::processEvents(); };
  Rearm();
}

LoopDriver::~LoopDriver() {
  loop_.onScheduleChanged = nullptr;
  loop_.pumpToolkit = nullptr;
}

int LoopDriver::MillisecondsToNext() const {
  if (loop_.PendingPosts() > 0) return 0;
  auto due = loop_.NextDue();
  if (!due) return -1;
  auto wait = std::chrono::duration_cast<std::chrono::milliseconds>(*due - clock_.Now()).count();
  return static_cast<int>(std::clamp<long long>(wait, 0, std::numeric_limits<int>::max()));
}

void LoopDriver::Rearm() {
  if (running_) return;  // Run re-arms when it is done
  int wait = MillisecondsToNext();
  if (wait < 0) {
    timer_.stop();
    return;
  }
  timer_.start(wait);
}

void LoopDriver::Run() {
  running_ = true;
  GuardUserAction(runtime_, [this] { loop_.RunPending(); });
  running_ = false;
  Rearm();
}

}  // namespace studio
