// host::ConnectRuntime: puts an embedded IDE and the runtime its add-ins use on one desk — one
// clipboard, SendKeys into the IDE's focused window, the IDE's windows in the runtime's window
// system, and errors that escape an add-in shown the way the IDE shows them.
#pragma once

#include <memory>

#include "host/Ide.h"
#include "runtime/Runtime.h"

namespace host {

// Creates an IDE wired to `runtime`. The runtime must outlive the IDE.
std::shared_ptr<Ide> CreateIdeFor(const std::shared_ptr<vb::Runtime>& runtime,
                                  std::shared_ptr<const vbide::ClassRegistry> classes,
                                  int codePage = 1252);

}  // namespace host
