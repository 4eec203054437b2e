// vb::TableCodePage: table-driven decoding and encoding with surrogate escapes.
#include "runtime/TableCodePage.h"

#include "runtime/AsciiRun.h"

namespace vb {

namespace {

constexpr char16_t kEscapeBase = 0xDC00;

}  // namespace

void TableCodePage::Decode(std::string_view bytes, std::u16string& out) const {
  // Every byte yields at most one unit, so the output is sized once and trimmed at the end.
  const std::size_t base = out.size();
  out.resize(base + bytes.size());
  char16_t* dst = out.data() + base;
  const auto* src = reinterpret_cast<const unsigned char*>(bytes.data());
  const auto* end = src + bytes.size();
  const std::uint8_t* leadRow = table_.leadRow;
  while (src != end) {
    const std::size_t run = ascii::WidenRun(src, end, dst);
    src += run;
    dst += run;
    if (src == end) break;
    const unsigned char byte = *src;
    if (leadRow != nullptr && leadRow[byte] != 0 && end - src >= 2) {
      const char16_t pair = table_.trail[leadRow[byte]][src[1]];
      if (pair != 0) {
        *dst++ = pair;
        src += 2;
        continue;
      }
      // A lead byte without a valid trail stands alone; the next byte is read on its own, so a
      // following '\' or letter stays itself.
    }
    const char16_t single = table_.single[byte];
    *dst++ = single != 0 ? single : static_cast<char16_t>(kEscapeBase + byte);
    ++src;
  }
  out.resize(static_cast<std::size_t>(dst - out.data()));
}

void TableCodePage::Encode(std::u16string_view text, std::string& out,
                           std::size_t* unmappable) const {
  const std::size_t base = out.size();
  out.resize(base + text.size() * (table_.leadRow != nullptr ? 2 : 1));
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
    if (IsEscapedByte(unit)) {
      *dst++ = static_cast<char>(unit - kEscapeBase);
      continue;
    }
    // Surrogates (outside the escapes) are never in the tables, so a character beyond the BMP
    // becomes one '?' per unit.
    const std::uint16_t code = table_.encodeBlock[table_.encodeRow[unit >> 8]][unit & 0xFF];
    if (code == 0) {
      *dst++ = '?';
      ++missing;
    } else if (code < 0x100) {
      *dst++ = static_cast<char>(code);
    } else {
      *dst++ = static_cast<char>(code >> 8);
      *dst++ = static_cast<char>(code & 0xFF);
    }
  }
  out.resize(static_cast<std::size_t>(dst - out.data()));
  if (unmappable != nullptr) *unmappable += missing;
}

}  // namespace vb
