// The Exec line of a .desktop file as a command with a place for the files it opens.
#include "runtime/DesktopEntry.h"

namespace vb {

namespace {

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
    text.remove_suffix(1);
  return text;
}

// The first level of escaping, common to every string value: \s \n \t \r \\.
std::string UnescapeValue(std::string_view value) {
  std::string out;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      out += value[i];
      continue;
    }
    char e = value[++i];
    out += e == 's' ? ' ' : e == 'n' ? '\n' : e == 't' ? '\t' : e == 'r' ? '\r' : e;
  }
  return out;
}

bool IsFileCode(char c) {
  return c == 'f' || c == 'F' || c == 'u' || c == 'U' || c == 'd' || c == 'D' || c == 'n' ||
         c == 'N';
}

}  // namespace

std::optional<std::vector<std::string>> SplitExecLine(std::string_view exec) {
  std::vector<std::string> words;
  std::string word;
  bool inWord = false;
  bool quoted = false;
  for (std::size_t i = 0; i < exec.size(); ++i) {
    char c = exec[i];
    if (quoted) {
      if (c == '"')
        quoted = false;
      else if (c == '\\' && i + 1 < exec.size())
        word += exec[++i];
      else
        word += c;
      continue;
    }
    if (c == ' ' || c == '\t') {
      if (inWord) words.push_back(std::move(word));
      word.clear();
      inWord = false;
      continue;
    }
    inWord = true;
    if (c == '"')
      quoted = true;
    else
      word += c;
  }
  if (quoted) return std::nullopt;
  if (inWord) words.push_back(std::move(word));
  return words;
}

std::optional<DesktopCommand> ParseDesktopEntry(std::string_view text) {
  bool inEntry = false;
  std::optional<std::string> exec;
  while (!text.empty() && !exec) {
    std::size_t end = text.find('\n');
    std::string_view line = Trimmed(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.starts_with('['))
      inEntry = line == "[Desktop Entry]";
    else if (inEntry && line.starts_with("Exec") && Trimmed(line.substr(4)).starts_with('='))
      exec = UnescapeValue(Trimmed(Trimmed(line.substr(4)).substr(1)));
  }
  if (!exec) return std::nullopt;
  auto words = SplitExecLine(*exec);
  if (!words || words->empty()) return std::nullopt;

  DesktopCommand command;
  command.program = (*words)[0];
  std::optional<std::size_t> slot;
  for (std::size_t i = 1; i < words->size(); ++i) {
    const std::string& word = (*words)[i];
    if (word.size() == 2 && word[0] == '%' && word[1] != '%') {
      if (IsFileCode(word[1]) && !slot) slot = command.arguments.size();
      continue;  // a field code standing alone is replaced by nothing or by the files
    }
    std::string literal;
    for (std::size_t k = 0; k < word.size(); ++k) {
      if (word[k] == '%' && k + 1 < word.size()) {
        if (word[++k] == '%') literal += '%';
        continue;  // a code inside a word is dropped
      }
      literal += word[k];
    }
    command.arguments.push_back(std::move(literal));
  }
  command.fileSlot = slot.value_or(command.arguments.size());
  return command;
}

std::vector<std::string> DesktopCommand::WithFiles(const std::vector<std::string>& files) const {
  std::vector<std::string> argv{program};
  argv.insert(argv.end(), arguments.begin(), arguments.begin() + fileSlot);
  argv.insert(argv.end(), files.begin(), files.end());
  argv.insert(argv.end(), arguments.begin() + fileSlot, arguments.end());
  return argv;
}

}  // namespace vb
