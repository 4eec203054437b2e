// host::files line classifiers for module files: which raw line is a header keyword or attribute.
#pragma once

#include <algorithm>
#include <string_view>

#include "host/files/AsciiText.h"

namespace host::files {

inline bool IsAttributeLine(std::string_view line) {
  return StartsWithWord(line, "Attribute");
}

// The text after "Attribute" and the blanks that follow it.
inline std::string_view AttributeRest(std::string_view line) {
  return TrimBlanks(line.substr(std::string_view("Attribute").size()));
}

// "Attribute Member.VB_Description = ..." at column 0: a dotted name, then "=". The dot tells a
// member attribute from a statement that merely starts with a variable called Attribute.
inline bool IsMemberAttributeLine(std::string_view line) {
  if (!IsAttributeLine(line)) return false;
  std::string_view rest = AttributeRest(line);
  std::size_t end = std::min(rest.find_first_of(" \t="), rest.size());
  if (rest.substr(0, end).find('.') == std::string_view::npos) return false;
  rest = TrimBlanks(rest.substr(end));
  return !rest.empty() && rest.front() == '=';
}

inline bool IsNameAttribute(std::string_view line) {
  if (!IsAttributeLine(line)) return false;
  std::string_view rest = AttributeRest(line);
  constexpr std::string_view kName = "VB_Name";
  if (rest.size() < kName.size() || !EqualsAsciiNoCase(rest.substr(0, kName.size()), kName))
    return false;
  rest = TrimBlanks(rest.substr(kName.size()));
  return !rest.empty() && rest.front() == '=';
}

// The offsets of the first and the last double quote when the line has two, else npos for both.
// Safe on undecoded double-byte text: '"' is never a trail byte.
struct QuotedSpan {
  std::size_t open = std::string_view::npos;
  std::size_t close = std::string_view::npos;
  bool Found() const { return open != std::string_view::npos; }
};
inline QuotedSpan FindQuoted(std::string_view line) {
  std::size_t first = line.find('"');
  std::size_t last = line.rfind('"');
  if (first == std::string_view::npos || last == first) return {};
  return {first, last};
}

// The text between the first and the last double quote, or everything after "=" when unquoted.
inline std::string_view AttributeValue(std::string_view line) {
  QuotedSpan quoted = FindQuoted(line);
  if (quoted.Found()) return line.substr(quoted.open + 1, quoted.close - quoted.open - 1);
  std::size_t equals = line.find('=');
  return equals == std::string_view::npos ? std::string_view()
                                          : TrimBlanks(line.substr(equals + 1));
}

inline bool IsObjectLine(std::string_view line) {
  if (line.size() < 6 || !EqualsAsciiNoCase(line.substr(0, 6), "Object")) return false;
  std::string_view rest = TrimBlanks(line.substr(6));
  return !rest.empty() && rest.front() == '=';
}

inline bool IsBlockOpen(std::string_view trimmed) {
  return StartsWithWord(trimmed, "Begin") || StartsWithWord(trimmed, "BeginProperty");
}

inline bool IsBlockClose(std::string_view trimmed) {
  return EqualsAsciiNoCase(trimmed, "End") || EqualsAsciiNoCase(trimmed, "EndProperty");
}

}  // namespace host::files
