// CaseTable: identifier tokenising of code lines and the spelling comparison.
#include "CaseTable.h"

#include <cctype>

namespace vbgen {
namespace {

bool IsWordStart(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) || c == '_';
}
bool IsWordChar(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

std::string Lower(std::string_view word) {
  std::string text(word);
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

}  // namespace

void CaseTable::Add(std::string_view word, std::string_view where,
                    std::vector<std::string>& problems) {
  auto [it, added] = names_.try_emplace(Lower(word), Entry{std::string(word), std::string(where)});
  if (added || it->second.spelling == word || it->second.reported) return;
  it->second.reported = true;  // one report per name is enough to find the cause
  problems.push_back(std::string(where) + "'" + std::string(word) + "' is spelled '" +
                     it->second.spelling + "' at " + it->second.where +
                     "; the IDE keeps one spelling per name");
}

bool CaseTable::AddLine(std::string_view line, std::string_view where,
                        std::vector<std::string>& problems) {
  std::size_t i = 0;
  bool lineStart = true;
  while (i < line.size()) {
    char c = line[i];
    if (c == '"') {
      std::size_t close = line.find('"', i + 1);
      i = close == std::string_view::npos ? line.size() : close + 1;
    } else if (c == '\'') {
      return line.ends_with(" _");
    } else if (IsWordStart(c) && (i == 0 || !IsWordChar(line[i - 1]))) {
      std::size_t end = i;
      while (end < line.size() && IsWordChar(line[end])) ++end;
      std::string_view word = line.substr(i, end - i);
      if (lineStart && word == "Rem") return line.ends_with(" _");
      // Type suffixes and numbers such as 1# or &H1F are not names.
      bool hex = i > 0 && line[i - 1] == '&';
      if (!hex) Add(word, where, problems);
      lineStart = false;
      i = end;
    } else if (std::isdigit(static_cast<unsigned char>(c))) {
      while (i < line.size() && IsWordChar(line[i])) ++i;
      lineStart = false;
    } else {
      if (c != ' ') lineStart = c == ':';
      ++i;
    }
  }
  return false;
}

}  // namespace vbgen
