// LineReader: splits a file's bytes into lines and reports every line end that is not CR LF.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vbgen {

struct SplitText {
  std::vector<std::string_view> lines;  // without terminators; line i is numbered i + 1
  std::vector<std::string> problems;    // "<name>:<line>: ..." for bare LF, bare CR, no final CR LF
};

// The IDE ends every line, the last one included, with CR LF; anything else is reported.
inline SplitText SplitLines(std::string_view name, std::string_view bytes) {
  SplitText result;
  std::size_t start = 0;
  auto where = [&](std::size_t line) {
    return std::string(name) + ":" + std::to_string(line) + ": ";
  };
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    char c = bytes[i];
    if (c != '\r' && c != '\n') continue;
    std::size_t number = result.lines.size() + 1;
    result.lines.push_back(bytes.substr(start, i - start));
    if (c == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') {
      ++i;
    } else {
      result.problems.push_back(where(number) + (c == '\n' ? "line ends with LF only, not CR LF"
                                                           : "line ends with CR only, not CR LF"));
    }
    start = i + 1;
  }
  if (start < bytes.size()) {
    result.lines.push_back(bytes.substr(start));
    result.problems.push_back(where(result.lines.size()) + "last line has no CR LF");
  }
  return result;
}

}  // namespace vbgen
