// The virtual and system clocks.
#include "runtime/Clock.h"

#include <chrono>

#include "runtime/Error.h"

namespace vb {

Date Clock::Now() const {
  if (virtual_) return now_;
  return std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

void Clock::AdvanceTo(Date time) {
  if (!virtual_)
    throw Error::Standard(err::kInvalidProcedureCall, u"the system clock cannot be set");
  if (time < now_) throw Error::Standard(err::kInvalidProcedureCall, u"the clock cannot run back");
  now_ = time;
}

}  // namespace vb
