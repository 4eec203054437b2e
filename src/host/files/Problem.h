// host::files::Problem: something wrong found while loading a file, reported instead of thrown.
#pragma once

#include <string>
#include <vector>

namespace host::files {

// What could not be read as expected. Loading goes on: the bytes are kept and written back.
struct Problem {
  std::string file;  // UTF-8 path as the user would recognise it
  int line = 0;      // 1-based; 0 when the problem concerns the whole file
  std::string message;
  bool warning = false;  // true when nothing was skipped (an unknown key kept raw, ...)
  bool operator==(const Problem&) const = default;
};
using Problems = std::vector<Problem>;

// "file:line: message", or "file: message" when the line is 0.
std::string FormatProblem(const Problem& problem);

}  // namespace host::files
