// Test builders for module code written inline.
#include "support/VbText.h"

#include "runtime/Utf.h"

namespace testing_vb {

host::files::CodeLines VbLines(std::u16string_view text) {
  host::files::CodeLines lines;
  if (text.empty()) return lines;
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(u'\n', start);
    if (end == std::u16string_view::npos) {
      lines.Append(text.substr(start), host::files::Eol::CrLf);
      return lines;
    }
    lines.Append(text.substr(start, end - start), host::files::Eol::CrLf);
    start = end + 1;
  }
}

std::string Show(std::u16string_view text) {
  return vb::ToUtf8(text);
}

}  // namespace testing_vb
