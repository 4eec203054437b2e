// The steps the tour takes between connecting and disconnecting (the search features add theirs).
#pragma once

#include <ostream>
#include <string>

#include "cli/Commands.h"
#include "composition/Composition.h"

namespace cli {

// Runs the tour's steps on the connected add-in; returns the number of problems reported.
int RunTourSteps(composition::Desk& desk, Streams io);

}  // namespace cli
