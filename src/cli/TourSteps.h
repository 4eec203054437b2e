// The steps the tour takes between connecting and disconnecting (the search features add theirs).
#pragma once

#include <ostream>
#include <string>

#include "cli/Commands.h"
#include "cli/Composition.h"

namespace cli {

// Opens FILE in the desk's IDE, printing its problems as "file:line: message"; returns how many.
// Throws UsageError for a file that is not a .vbg/.vbp that exists.
int OpenInDesk(Desk& desk, const std::string& file, std::ostream& err);

// Runs the tour's steps on the connected add-in; returns the number of problems reported.
int RunTourSteps(Desk& desk, Streams io);

}  // namespace cli
