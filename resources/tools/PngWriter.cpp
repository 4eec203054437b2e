// A minimal PNG encoder: stored deflate blocks, so it needs no compression library.
#include "PngWriter.h"

#include <array>
#include <cstdint>

namespace quillmark {

namespace {

std::uint32_t Crc32(std::string_view bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (unsigned char byte : bytes) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320 & (0 - (crc & 1)));
  }
  return ~crc;
}

void PutBigEndian(std::string& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>((value >> shift) & 0xFF);
}

void PutChunk(std::string& out, std::string_view type, std::string_view data) {
  PutBigEndian(out, static_cast<std::uint32_t>(data.size()));
  std::string body = std::string(type) + std::string(data);
  out += body;
  PutBigEndian(out, Crc32(body));
}

// zlib stream of stored blocks (at most 65535 bytes each) with its Adler-32 trailer.
std::string StoredZlib(std::string_view raw) {
  std::string out = "\x78\x01";
  std::size_t offset = 0;
  do {
    std::size_t length = std::min<std::size_t>(raw.size() - offset, 65535);
    bool last = offset + length == raw.size();
    out += static_cast<char>(last ? 1 : 0);
    out += static_cast<char>(length & 0xFF);
    out += static_cast<char>(length >> 8);
    out += static_cast<char>(~length & 0xFF);
    out += static_cast<char>((~length >> 8) & 0xFF);
    out += raw.substr(offset, length);
    offset += length;
  } while (offset < raw.size());
  std::uint32_t a = 1, b = 0;
  for (unsigned char byte : raw) {
    a = (a + byte) % 65521;
    b = (b + a) % 65521;
  }
  PutBigEndian(out, (b << 16) | a);
  return out;
}

}  // namespace

std::string EncodePng(const vb::Picture& picture) {
  std::string header;
  PutBigEndian(header, static_cast<std::uint32_t>(picture.width));
  PutBigEndian(header, static_cast<std::uint32_t>(picture.height));
  header += std::string("\x08\x06\x00\x00\x00", 5);  // 8-bit RGBA, no interlace

  std::string raw;
  for (int y = 0; y < picture.height; ++y) {
    raw += '\0';  // filter: none
    for (int x = 0; x < picture.width; ++x) {
      std::uint32_t argb = picture.pixels[static_cast<std::size_t>(y) * picture.width + x];
      for (int shift : {16, 8, 0, 24}) raw += static_cast<char>((argb >> shift) & 0xFF);
    }
  }
  std::string png = "\x89PNG\r\n\x1a\n";
  PutChunk(png, "IHDR", header);
  PutChunk(png, "IDAT", StoredZlib(raw));
  PutChunk(png, "IEND", "");
  return png;
}

}  // namespace quillmark
