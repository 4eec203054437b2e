// vb::codepages::CodePageTable: the generated, immutable tables behind one ANSI code page.
#pragma once

#include <cstdint>

namespace vb::codepages {

// Bytes below 0x80 are ASCII in every page and never looked up. A 0 entry means "no character":
// the decoder escapes such bytes and the encoder writes '?' for such characters.
struct CodePageTable {
  int number;
  const char16_t* single;         // [256] character of a lone byte
  const std::uint8_t* leadRow;    // [256] row of a lead byte in `trail`, 0 when not a lead byte;
                                  // null for single-byte pages
  const char16_t (*trail)[256];   // [rows][256] character of lead+trail; row 0 is empty
  const std::uint8_t* encodeRow;  // [256] block of a character's high byte
  const std::uint16_t (*encodeBlock)[256];  // [blocks][256] a byte, or lead << 8 | trail
};

extern const CodePageTable kCp874;
extern const CodePageTable kCp932;
extern const CodePageTable kCp936;
extern const CodePageTable kCp949;
extern const CodePageTable kCp950;
extern const CodePageTable kCp1250;
extern const CodePageTable kCp1251;
extern const CodePageTable kCp1252;
extern const CodePageTable kCp1253;
extern const CodePageTable kCp1254;
extern const CodePageTable kCp1255;
extern const CodePageTable kCp1256;
extern const CodePageTable kCp1257;
extern const CodePageTable kCp1258;

}  // namespace vb::codepages
