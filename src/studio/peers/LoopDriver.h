// studio::LoopDriver: runs the engine's posted work and timers from Qt's event loop.
#pragma once

#include <QObject>
#include <QTimer>

#include "runtime/Runtime.h"

namespace studio {

// One single-shot QTimer armed for the next thing the engine's loop has to do: at once for
// posted work, else at the next timer's due time on the runtime's clock. The engine's own
// DoEvents lets Qt process its events through pumpToolkit.
class LoopDriver : public QObject {
 public:
  explicit LoopDriver(vb::Runtime& runtime);
  ~LoopDriver() override;

  // Arms the timer for what is due next (called whenever the engine's schedule changes).
  void Rearm();
  // Milliseconds until the next run; -1 when nothing waits.
  int MillisecondsToNext() const;

 private:
  void Run();

  vb::Runtime& runtime_;
  vb::EventLoop& loop_;
  vb::Clock& clock_;
  QTimer timer_;
  bool running_ = false;
};

}  // namespace studio
