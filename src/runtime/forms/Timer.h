// vb::Timer: raises Timer every Interval milliseconds while Enabled and its form is loaded.
#pragma once

#include <functional>
#include <string>

#include "runtime/EventLoop.h"
#include "runtime/forms/Control.h"

namespace vb {

// Ticks come from the runtime's event loop (virtual time in tests). Setting Interval or
// re-enabling starts the count again from now, as VB does; Interval 0 stops the timer. An
// interval outside 0-65535 raises error 380.
class Timer : public Control {
 public:
  Timer(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index, false) {}
  ~Timer() override;
  std::u16string_view TypeName() const override { return u"Timer"; }

  int Interval() const { return interval_; }
  void SetInterval(int value);
  bool Enabled() const { return Control::Enabled(); }
  void SetEnabled(bool value);
  bool IsRunning() const { return id_ != 0; }

  std::function<void()> Tick;  // VB's Timer event (a member may not share the class's name)

  void OwnerLoadedChanged() override { Restart(); }

 private:
  void Restart();
  int interval_ = 0;
  EventLoop::TimerId id_ = 0;
};

}  // namespace vb
