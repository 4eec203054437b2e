// Conversions between VB's UTF-16 strings and UTF-8 for the console, file names and JSON.
#pragma once

#include <string>
#include <string_view>

namespace vb {

// UTF-16 to UTF-8. Units that are not valid UTF-16 (lone surrogates, including the U+DC80..U+DCFF
// escapes that stand for undecodable file bytes) come out as U+FFFD, so the result is valid UTF-8.
std::string ToUtf8(std::u16string_view text);

// UTF-8 to UTF-16. Invalid bytes become U+FFFD.
std::u16string FromUtf8(std::string_view text);

// A file-system path (UTF-8 on our platforms) from a VB string.
inline std::string PathFromVb(std::u16string_view text) {
  return ToUtf8(text);
}

}  // namespace vb
