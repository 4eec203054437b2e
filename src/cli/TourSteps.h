// The steps the tour takes between connecting and disconnecting (the search features add theirs).
#pragma once

#include <ostream>
#include <string>

#include "cli/Commands.h"
#include "composition/Composition.h"

namespace cli {

// Disconnects the add-in (its last settings are written then) and prints the settings store's
// problems not printed before (a damaged file, a failed write) as "file:line: message";
// returns how many.
int FinishAndReportSettings(composition::Desk& desk, std::ostream& err);

// Runs the tour's steps on the connected add-in; returns the number of problems reported.
int RunTourSteps(composition::Desk& desk, Streams io);

}  // namespace cli
