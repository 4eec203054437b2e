// FormatLinter: checks a project group on disk - .vbg, .vbp files and every module they list.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "CaseTable.h"

namespace vbgen {

struct LintResult {
  std::vector<std::string> problems;  // "<file>:<line>: <what>"
  std::size_t files = 0;
  std::size_t codeLines = 0;
  std::size_t largestModuleLines = 0;
  std::size_t mostMembers = 0;
};

class FormatLinter {
 public:
  LintResult LintGroup(const std::filesystem::path& vbg);

 private:
  void LintProject(const std::filesystem::path& vbp);
  bool LintItem(const std::filesystem::path& vbp, std::string_view key, std::string_view value,
                std::size_t number, CaseTable& names);
  void Setting(const std::filesystem::path& vbp, std::string_view key, std::string_view value,
               std::size_t number, std::size_t& lastRank);
  void Problem(const std::filesystem::path& file, std::size_t line, const std::string& text);

  LintResult result_;
};

}  // namespace vbgen
