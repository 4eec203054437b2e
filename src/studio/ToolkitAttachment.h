// studio::AttachToolkit: makes a runtime use Qt: message boxes, the beep, the event loop's pump.
#pragma once

#include "runtime/Runtime.h"

namespace studio {

void AttachToolkit(vb::Runtime& runtime);

}  // namespace studio
