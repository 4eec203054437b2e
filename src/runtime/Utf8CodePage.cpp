// vb::Utf8CodePage: strict UTF-8 decoding and encoding.
#include "runtime/Utf8CodePage.h"

#include "runtime/AsciiRun.h"

namespace vb {

namespace {

constexpr char16_t kEscapeBase = 0xDC00;

constexpr bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

// The length of the well-formed sequence at `src` (2..4), or 0 when its first byte must be
// escaped. The second byte's range excludes overlong forms, surrogates and values past U+10FFFF.
std::size_t SequenceLength(const unsigned char* src, std::size_t available) {
  const unsigned char lead = src[0];
  std::size_t length = 0;
  unsigned char low = 0x80;
  unsigned char high = 0xBF;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return 0;
  }
  if (available < length || src[1] < low || src[1] > high) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!IsContinuation(src[i])) return 0;
  }
  return length;
}

char32_t DecodeSequence(const unsigned char* src, std::size_t length) {
  char32_t code = src[0] & (0x7F >> length);
  for (std::size_t i = 1; i < length; ++i) code = code << 6 | (src[i] & 0x3F);
  return code;
}

char* Put(char* dst, char32_t code) {
  if (code < 0x800) {
    *dst++ = static_cast<char>(0xC0 | code >> 6);
  } else if (code < 0x10000) {
    *dst++ = static_cast<char>(0xE0 | code >> 12);
    *dst++ = static_cast<char>(0x80 | (code >> 6 & 0x3F));
  } else {
    *dst++ = static_cast<char>(0xF0 | code >> 18);
    *dst++ = static_cast<char>(0x80 | (code >> 12 & 0x3F));
    *dst++ = static_cast<char>(0x80 | (code >> 6 & 0x3F));
  }
  *dst++ = static_cast<char>(0x80 | (code & 0x3F));
  return dst;
}

}  // namespace

void Utf8CodePage::Decode(std::string_view bytes, std::u16string& out) const {
  // No sequence yields more units than it has bytes.
  const std::size_t base = out.size();
  out.resize(base + bytes.size());
  char16_t* dst = out.data() + base;
  const auto* src = reinterpret_cast<const unsigned char*>(bytes.data());
  const auto* end = src + bytes.size();
  while (src != end) {
    const std::size_t run = ascii::WidenRun(src, end, dst);
    src += run;
    dst += run;
    if (src == end) break;
    const std::size_t length = SequenceLength(src, static_cast<std::size_t>(end - src));
    if (length == 0) {
      *dst++ = static_cast<char16_t>(kEscapeBase + *src++);
      continue;
    }
    const char32_t code = DecodeSequence(src, length);
    src += length;
    if (code < 0x10000) {
      *dst++ = static_cast<char16_t>(code);
    } else {
      *dst++ = static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
      *dst++ = static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    }
  }
  out.resize(static_cast<std::size_t>(dst - out.data()));
}

void Utf8CodePage::Encode(std::u16string_view text, std::string& out,
                          std::size_t* unmappable) const {
  // Three bytes per unit is the most any unit needs (a pair gives four bytes for two units).
  const std::size_t base = out.size();
  out.resize(base + text.size() * 3);
  char* dst = out.data() + base;
  const char16_t* src = text.data();
  const char16_t* end = src + text.size();
  std::size_t missing = 0;
  while (src != end) {
    const std::size_t run = ascii::NarrowRun(src, end, dst);
    src += run;
    dst += run;
    if (src == end) break;
    const char16_t unit = *src++;
    const bool high = unit >= 0xD800 && unit <= 0xDBFF;
    if (high && src != end && *src >= 0xDC00 && *src <= 0xDFFF) {
      // A real pair wins over reading its low half as an escaped byte: decoding only ever
      // produces a high surrogate together with its low one.
      dst = Put(dst, 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (*src++ - 0xDC00));
    } else if (IsEscapedByte(unit)) {
      *dst++ = static_cast<char>(unit - kEscapeBase);
    } else if (unit >= 0xD800 && unit <= 0xDFFF) {
      *dst++ = '?';
      ++missing;
    } else {
      dst = Put(dst, unit);
    }
  }
  out.resize(static_cast<std::size_t>(dst - out.data()));
  if (unmappable != nullptr) *unmappable += missing;
}

}  // namespace vb
