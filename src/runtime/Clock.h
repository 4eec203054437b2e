// vb::Clock: the time Now reports, virtual (moved only by its owner) in tests, the system's
// elsewhere.
#pragma once

#include "runtime/VbStrings.h"

namespace vb {

class Clock {
 public:
  static Clock Virtual(Date start) { return Clock(true, start); }
  static Clock System() { return Clock(false, Date{}); }

  Date Now() const;
  bool IsVirtual() const { return virtual_; }

  // Moves a virtual clock forward. Time never runs back, and the system clock is not ours to
  // move: both raise error 5 naming the request.
  void AdvanceTo(Date time);

 private:
  Clock(bool isVirtual, Date start) : virtual_(isVirtual), now_(start) {}
  bool virtual_;
  Date now_;
};

}  // namespace vb
