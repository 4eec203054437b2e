// Test builders for module code written inline: "line 1\nline 2" as a code-line store.
#pragma once

#include <string>
#include <string_view>

#include "host/files/CodeLines.h"

namespace testing_vb {

// Splits at "\n" only, so a test can put a lone CR inside a line; every line ends in CR LF.
// "" gives an empty module; a trailing "\n" gives a last empty line.
host::files::CodeLines VbLines(std::u16string_view text);

// UTF-8 for test messages.
std::string Show(std::u16string_view text);

}  // namespace testing_vb
