// quillmark search: presses Search in the add-in's dialog over FILE and prints the results window.
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/SearchSession.h"
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
  return clean && session.RowCount() > 0 ? 0 : 1;
}

}  // namespace cli
