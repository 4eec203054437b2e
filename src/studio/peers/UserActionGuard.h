// studio::GuardUserAction: what the studio does with an error escaping a user action or a tick.
#pragma once

#include <functional>

#include "runtime/Runtime.h"

namespace studio {

// A run-time error is shown as the IDE shows an add-in's error; anything else is a broken
// contract between a widget and the engine, shown the same way. Nothing is ever thrown into
// Qt's event loop.
void GuardUserAction(vb::Runtime& runtime, const std::function<void()>& action);

}  // namespace studio
