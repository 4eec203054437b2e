// UTF-16 <-> UTF-8 conversions.
#include "runtime/Utf.h"

namespace vb {
namespace {

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

void AppendUtf16(std::u16string& out, char32_t c) {
  if (c < 0x10000) {
    out += static_cast<char16_t>(c);
    return;
  }
  c -= 0x10000;
  out += static_cast<char16_t>(0xD800 + (c >> 10));
  out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
}

}  // namespace

std::string ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    char16_t u = text[i];
    if (u < 0x80) {
      out += static_cast<char>(u);
      continue;
    }
    if (u >= 0xD800 && u <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
        text[i + 1] <= 0xDFFF) {
      AppendUtf8(out, 0x10000 + ((char32_t(u) - 0xD800) << 10) + (text[i + 1] - 0xDC00));
      ++i;
      continue;
    }
    AppendUtf8(out, (u >= 0xD800 && u <= 0xDFFF) ? char32_t(0xFFFD) : char32_t(u));
  }
  return out;
}

std::u16string FromUtf8(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  size_t i = 0;
  while (i < text.size()) {
    unsigned char b = static_cast<unsigned char>(text[i]);
    if (b < 0x80) {
      out += static_cast<char16_t>(b);
      ++i;
      continue;
    }
    int extra = b >= 0xF0 && b <= 0xF4 ? 3 : b >= 0xE0 ? 2 : b >= 0xC2 && b < 0xE0 ? 1 : -1;
    char32_t c = extra == 3 ? (b & 0x07) : extra == 2 ? (b & 0x0F) : (b & 0x1F);
    bool ok = extra > 0 && i + extra < text.size() + 0 + 1 && i + extra <= text.size() - 0;
    for (int k = 1; ok && k <= extra; ++k) {
      if (i + k >= text.size()) {
        ok = false;
        break;
      }
      unsigned char t = static_cast<unsigned char>(text[i + k]);
      if ((t & 0xC0) != 0x80) ok = false;
      c = (c << 6) | (t & 0x3F);
    }
    if (ok && ((extra == 2 && (c < 0x800 || (c >= 0xD800 && c <= 0xDFFF))) ||
               (extra == 3 && (c < 0x10000 || c > 0x10FFFF)))) {
      ok = false;
    }
    if (!ok) {
      out += u'\uFFFD';
      ++i;
      continue;
    }
    AppendUtf16(out, c);
    i += extra + 1;
  }
  return out;
}

}  // namespace vb
