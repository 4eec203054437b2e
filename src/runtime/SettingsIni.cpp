// Reading and writing the text form of a settings file.
#include "runtime/SettingsIni.h"

#include <cstdint>

#include "runtime/Utf.h"

namespace vb {

namespace {

bool IsHighSurrogate(char16_t u) {
  return u >= 0xD800 && u <= 0xDBFF;
}
bool IsLowSurrogate(char16_t u) {
  return u >= 0xDC00 && u <= 0xDFFF;
}

void AppendHexUnit(std::u16string& out, char16_t unit) {
  static constexpr char16_t kHex[] = u"0123456789ABCDEF";
  out += u"\\u";
  for (int shift = 12; shift >= 0; shift -= 4) out += kHex[(unit >> shift) & 0xF];
}

// Escapes what every escaped text needs; `special` lists the characters that also need a
// backslash in this position. Spaces at either end become \s.
std::u16string Escape(std::u16string_view text, std::u16string_view special) {
  std::u16string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char16_t u = text[i];
    bool atEdge = i == 0 || i + 1 == text.size();
    if (u == u'\\')
      out += u"\\\\";
    else if (u == u'\n')
      out += u"\\n";
    else if (u == u'\r')
      out += u"\\r";
    else if (u == u'\t')
      out += u"\\t";
    else if (u == u' ' && atEdge)
      out += u"\\s";
    else if (special.find(u) != std::u16string_view::npos)
      (out += u'\\') += u;
    else if (u < 0x20 || u == 0x7F)
      AppendHexUnit(out, u);
    else if (IsHighSurrogate(u) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      out += u;
      out += text[++i];
    } else if (IsHighSurrogate(u) || IsLowSurrogate(u))
      AppendHexUnit(out, u);
    else
      out += u;
  }
  return out;
}

int HexDigit(char16_t u) {
  if (u >= u'0' && u <= u'9') return u - u'0';
  if (u >= u'A' && u <= u'F') return u - u'A' + 10;
  if (u >= u'a' && u <= u'f') return u - u'a' + 10;
  return -1;
}

// The position of `wanted` that is not preceded by an escaping backslash, or npos.
std::size_t FindUnescaped(std::u16string_view text, char16_t wanted, std::size_t from = 0) {
  for (std::size_t i = from; i < text.size(); ++i) {
    if (text[i] == u'\\')
      ++i;
    else if (text[i] == wanted)
      return i;
  }
  return std::u16string_view::npos;
}

std::u16string_view TrimBlanks(std::u16string_view text) {
  auto blank = [](char16_t u) { return u == u' ' || u == u'\t'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

// Offset of the first byte that does not belong to well-formed UTF-8 (no overlong forms, no
// surrogates, nothing past U+10FFFF), or npos.
std::size_t FirstInvalidUtf8(std::string_view bytes) {
  std::size_t i = 0;
  while (i < bytes.size()) {
    auto b = static_cast<unsigned char>(bytes[i]);
    int length = b < 0x80           ? 1
                 : (b >> 5) == 0x6  ? 2
                 : (b >> 4) == 0xE  ? 3
                 : (b >> 3) == 0x1E ? 4
                                    : 0;
    if (length == 0 || i + length > bytes.size()) return i;
    std::uint32_t cp = length == 1 ? b : b & (0x7F >> length);
    for (int k = 1; k < length; ++k) {
      auto c = static_cast<unsigned char>(bytes[i + k]);
      if ((c & 0xC0) != 0x80) return i;
      cp = (cp << 6) | (c & 0x3F);
    }
    static constexpr std::uint32_t kMinimum[] = {0, 0, 0x80, 0x800, 0x10000};
    if (cp < kMinimum[length] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return i;
    i += length;
  }
  return std::string_view::npos;
}

// Interprets one trimmed, non-blank, non-comment line. Returns an error message, or "" when the
// line was taken.
std::string TakeLine(std::u16string_view line, SettingsSections& out,
                     std::optional<std::u16string>& section) {
  if (line.front() == u'[') {
    std::size_t close = FindUnescaped(line, u']', 1);
    if (close != line.size() - 1) return "a section line must end with ']'";
    auto name = UnescapeIni(TrimBlanks(line.substr(1, close - 1)));
    if (!name) return "malformed backslash escape in the section name";
    section = std::move(*name);
    return "";
  }
  std::size_t equals = FindUnescaped(line, u'=');
  if (equals == std::u16string_view::npos) return "expected [section], key=value or a comment";
  if (!section) return "a key before the first [section]";
  auto key = UnescapeIni(TrimBlanks(line.substr(0, equals)));
  auto value = UnescapeIni(TrimBlanks(line.substr(equals + 1)));
  if (!key || !value) return "malformed backslash escape";
  out.Set(*section, *key, *value);
  return "";
}

}  // namespace

std::u16string EscapeIniName(std::u16string_view name) {
  return Escape(name, u"=[];#");
}

std::u16string EscapeIniValue(std::u16string_view value) {
  return Escape(value, u"");
}

std::optional<std::u16string> UnescapeIni(std::u16string_view text) {
  std::u16string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\\') {
      out += text[i];
      continue;
    }
    if (++i == text.size()) return std::nullopt;
    switch (char16_t e = text[i]) {
      case u'\\':
      case u'=':
      case u'[':
      case u']':
      case u';':
      case u'#':
        out += e;
        break;
      case u'n':
        out += u'\n';
        break;
      case u'r':
        out += u'\r';
        break;
      case u't':
        out += u'\t';
        break;
      case u's':
        out += u' ';
        break;
      case u'u': {
        if (i + 4 >= text.size()) return std::nullopt;
        int unit = 0;
        for (int k = 1; k <= 4; ++k) {
          int digit = HexDigit(text[i + k]);
          if (digit < 0) return std::nullopt;
          unit = unit * 16 + digit;
        }
        out += static_cast<char16_t>(unit);
        i += 4;
        break;
      }
      default:
        return std::nullopt;
    }
  }
  return out;
}

SettingsIniParse ParseSettingsIni(std::string_view bytes) {
  SettingsIniParse result;
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);  // a BOM from a Windows editor
  std::optional<std::u16string> section;
  int lineNumber = 0;
  std::size_t start = 0;
  // A damaged line is skipped and the rest is read on, so one bad byte costs one key. The keys
  // under a damaged section line are skipped too: their section is not known.
  auto damaged = [&](std::string message) {
    ++result.damagedLines;
    if (!result.problem) result.problem = SettingsIniProblem{lineNumber, std::move(message)};
  };
  while (start < bytes.size()) {
    std::size_t end = bytes.find_first_of("\r\n", start);
    if (end == std::string_view::npos) end = bytes.size();
    ++lineNumber;
    std::string_view raw = bytes.substr(start, end - start);
    start = end + (bytes.substr(end).starts_with("\r\n") ? 2 : 1);
    if (FirstInvalidUtf8(raw) != std::string_view::npos) {
      damaged("not valid UTF-8");
      if (raw.find('[') != std::string_view::npos) section.reset();
      continue;
    }
    std::u16string text = FromUtf8(raw);
    std::u16string_view line = TrimBlanks(text);
    if (line.empty() || line.front() == u';' || line.front() == u'#') continue;
    bool sectionLine = line.front() == u'[';
    if (!sectionLine && !section && result.problem) continue;  // under a damaged section line
    if (std::string message = TakeLine(line, result.sections, section); !message.empty()) {
      if (sectionLine) section.reset();
      damaged(std::move(message));
    }
  }
  return result;
}

std::string FormatSettingsIni(const SettingsSections& sections) {
  std::u16string text;
  for (const auto& section : sections.All()) {
    if (!text.empty()) text += u'\n';
    text += u'[' + EscapeIniName(section.name) + u"]\n";
    for (const auto& [key, value] : section.keys)
      text += EscapeIniName(key) + u'=' + EscapeIniValue(value) + u'\n';
  }
  return ToUtf8(text);
}

}  // namespace vb
