// host::files::Problem.
#include "host/files/Problem.h"

namespace host::files {

std::string FormatProblem(const Problem& problem) {
  std::string text = problem.file;
  if (problem.line > 0) text += ':' + std::to_string(problem.line);
  text += ": ";
  text += problem.message;
  return text;
}

}  // namespace host::files
