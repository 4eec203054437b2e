// Copying runs of ASCII between bytes and UTF-16 eight at a time: the common case of every file.
#pragma once

#include <cstdint>
#include <cstring>

namespace vb::ascii {

inline constexpr std::uint64_t kHighBits = 0x8080808080808080ULL;

// Widens the ASCII bytes at `src` into `dst` until the first byte >= 0x80 or `end`; returns the
// number of bytes copied.
inline std::size_t WidenRun(const unsigned char* src, const unsigned char* end, char16_t* dst) {
  const unsigned char* start = src;
  while (end - src >= 8) {
    std::uint64_t word;
    std::memcpy(&word, src, 8);
    if (word & kHighBits) break;
    for (int i = 0; i < 8; ++i) dst[i] = src[i];
    src += 8;
    dst += 8;
  }
  while (src != end && *src < 0x80) *dst++ = *src++;
  return static_cast<std::size_t>(src - start);
}

// Narrows the units below 0x80 at `src` into `dst` until the first other unit or `end`; returns
// the number of units copied.
inline std::size_t NarrowRun(const char16_t* src, const char16_t* end, char* dst) {
  const char16_t* start = src;
  while (src != end && *src < 0x80) *dst++ = static_cast<char>(*src++);
  return static_cast<std::size_t>(src - start);
}

}  // namespace vb::ascii
