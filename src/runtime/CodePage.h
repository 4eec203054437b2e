// vb::CodePage: lossless conversion between a file's ANSI bytes and VB's UTF-16 strings.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vb {

// Supported: 874, 932, 936, 949, 950, 1250-1258, and 65001 (UTF-8).
//
// Decoding never loses a byte: a byte that does not decode, or whose character would not encode
// back to the same bytes (cp932's duplicate NEC/IBM codes, for example), becomes the "surrogate
// escape" U+DC00+byte (U+DC80..U+DCFF), and encoding turns such a unit back into its byte. So
// Encode(Decode(bytes)) == bytes for every byte string, in every code page.
class CodePage {
 public:
  // Null when the number is not a supported code page. The objects are immutable and live for
  // the whole program (they are tables, not state).
  static const CodePage* Find(int number);
  static const CodePage& Windows1252();

  virtual ~CodePage() = default;
  virtual int Number() const = 0;
  // True for a lead byte of a double-byte character (always false for single-byte pages).
  virtual bool IsLeadByte(unsigned char byte) const = 0;

  // Appends the decoded text to `out`.
  virtual void Decode(std::string_view bytes, std::u16string& out) const = 0;
  // Appends the encoded bytes to `out`. A character the page lacks is written as '?' (as Windows
  // does) and counted in `unmappable` (added to it) when given; in an ANSI page a character
  // beyond the BMP gives one '?' per UTF-16 unit, and in UTF-8 only lone surrogates are lacking.
  virtual void Encode(std::u16string_view text, std::string& out,
                      std::size_t* unmappable = nullptr) const = 0;

  std::u16string Decode(std::string_view bytes) const {
    std::u16string out;
    Decode(bytes, out);
    return out;
  }
  std::string Encode(std::u16string_view text) const {
    std::string out;
    Encode(text, out);
    return out;
  }
};

// True for the U+DC80..U+DCFF units that stand for undecodable bytes.
constexpr bool IsEscapedByte(char16_t unit) {
  return unit >= 0xDC80 && unit <= 0xDCFF;
}

}  // namespace vb
