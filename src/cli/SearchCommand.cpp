// quillmark search: presses Search in the add-in's dialog over FILE and prints the results window.
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/SearchSession.h"
#include "cli/TourSteps.h"
#include "runtime/Utf.h"

namespace cli {

int SearchCommand(const std::vector<std::string>& argv, Streams io) {
  Args args(argv, kSearchFlags, kSearchOptions);
  SearchSession session(args, io.err);
  bool clean = session.Search(vb::FromUtf8(args.Positional()[1]), io.err);
  if (args.Flag("json")) {
    session.PrintJson(io.out);
  } else {
    session.PrintRows(io.out);
  }
  session.PrintStatus(io.err);
  bool found = session.RowCount() > 0;
  FinishAndReportSettings(session.GetDesk(), io.err);  // reported; the rows decide the status
  return clean && found ? 0 : 1;
}

}  // namespace cli
