// host::files ASCII helpers for the keywords of VB6 files, which are compared ignoring case.
#pragma once

#include <cstddef>
#include <string_view>

namespace host::files {

constexpr char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}
constexpr bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
constexpr bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\t';
}

constexpr bool EqualsAsciiNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  return true;
}

constexpr std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// The same on decoded text: spaces and tabs only.
constexpr std::u16string_view TrimBlanks(std::u16string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// True when `text` starts with `word` (any case) followed by a blank or the end of the text.
// The header keywords are plain ASCII; trail bytes of double-byte characters are never blanks,
// so this is safe on undecoded lines.
constexpr bool StartsWithWord(std::string_view text, std::string_view word) {
  if (text.size() < word.size() || !EqualsAsciiNoCase(text.substr(0, word.size()), word))
    return false;
  return text.size() == word.size() || IsBlank(text[word.size()]);
}

static_assert(StartsWithWord("Begin VB.Form Form1 ", "begin"));
static_assert(!StartsWithWord("BeginProperty Font ", "Begin"));
static_assert(StartsWithWord("END", "End") && !StartsWithWord("EndProperty", "End"));

}  // namespace host::files
