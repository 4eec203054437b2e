// The command line run in-process, as a test reads it: status, standard output, standard error.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/Commands.h"

namespace qmtest {

struct CliResult {
  int status;
  std::string out;
  std::string err;
};

inline CliResult Quillmark(const std::vector<std::string>& args) {
  std::ostringstream out, err;
  int status = cli::Run(args, {out, err});
  return {status, out.str(), err.str()};
}

}  // namespace qmtest
