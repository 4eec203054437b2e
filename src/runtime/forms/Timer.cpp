// Timer: scheduling on the event loop.
#include "runtime/forms/Timer.h"

#include "runtime/Runtime.h"
#include "runtime/forms/ControlError.h"
#include "runtime/forms/FormBase.h"

namespace vb {

Timer::~Timer() {
  if (id_ != 0) GetRuntime().Loop().StopTimer(id_);
}

void Timer::SetInterval(int value) {
  if (value < 0 || value > 65535) throw ctlerr::InvalidPropertyValue(Name() + u".Interval");
  interval_ = value;
  Restart();
}

void Timer::SetEnabled(bool value) {
  Control::SetEnabled(value);
  Restart();
}

void Timer::Restart() {
  auto& loop = GetRuntime().Loop();
  if (id_ != 0) loop.StopTimer(id_);
  id_ = 0;
  if (!Enabled() || interval_ == 0 || !Parent().IsLoaded()) return;
  id_ = loop.StartTimer(interval_, [this] { Dispatch([this] { Raise(Tick); }); });
}

}  // namespace vb
