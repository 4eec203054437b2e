// The text form of one settings file: sections and keys, UTF-8, with a reversible escape scheme.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "runtime/SettingsStore.h"

namespace vb {

// File form, one application per file:
//   [section]
//   key=value
// Blank lines and lines starting with ';' or '#' are ignored; spaces and tabs around a section
// name, a key or a value are ignored, so hand-edited files with "key = value" read as meant.
// Because of that, and because a line ends at CR or LF, the writer escapes with a backslash:
//   \\  a backslash       \n \r \t  line feed, carriage return, tab
//   \s  a space (only where it would otherwise be trimmed: first or last character)
//   \=  \[  \]  \;  \#    the characters that would otherwise end a key or start a section
//                         or a comment
//   \uXXXX                any other control character, and UTF-16 units that are not valid
//                         on their own (lone surrogates), so every VB string comes back
// Any other character after a backslash makes the line damaged.

struct SettingsIniProblem {
  int line = 0;  // 1-based; 0 when the problem is not tied to a line
  std::string message;
};

struct SettingsIniParse {
  SettingsSections sections;  // every key that could be read, damaged lines left out
  std::optional<SettingsIniProblem> problem;  // the first damaged line, when there is one
  int damagedLines = 0;
};

SettingsIniParse ParseSettingsIni(std::string_view bytes);
std::string FormatSettingsIni(const SettingsSections& sections);

// The escaped forms, exposed for the file names and for tests of the scheme.
std::u16string EscapeIniName(std::u16string_view name);
std::u16string EscapeIniValue(std::u16string_view value);
// The escaped text back to the original, or nothing when an escape is malformed.
std::optional<std::u16string> UnescapeIni(std::u16string_view text);

}  // namespace vb
