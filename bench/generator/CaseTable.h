// CaseTable: one spelling per identifier in a project, as the IDE's shared name table keeps it.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vbgen {

class CaseTable {
 public:
  // Records `word` seen at `where`; a second spelling of the same name is a problem.
  void Add(std::string_view word, std::string_view where, std::vector<std::string>& problems);

  // Scans one code line: identifiers outside strings and comments. Returns true when the line
  // ends inside a comment that continues on the next line (a comment may end with " _").
  bool AddLine(std::string_view line, std::string_view where, std::vector<std::string>& problems);

 private:
  struct Entry {
    std::string spelling;
    std::string where;
    bool reported = false;
  };
  std::unordered_map<std::string, Entry> names_;  // key: lower-case name
};

}  // namespace vbgen
