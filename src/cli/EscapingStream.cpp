// cli::EscapingStreamBuf.
#include "cli/EscapingStream.h"

namespace cli {

EscapingStreamBuf::~EscapingStreamBuf() {
  if (pendingC2_) target_->sputc(static_cast<char>(0xC2));
  target_->pubsync();
}

void EscapingStreamBuf::PutHex(unsigned char byte) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  const char text[] = {'\\', 'x', kHex[byte >> 4], kHex[byte & 0xF]};
  target_->sputn(text, 4);
}

void EscapingStreamBuf::Put(unsigned char byte) {
  if (pendingC2_) {
    pendingC2_ = false;
    if (byte >= 0x80 && byte <= 0x9F) {
      PutHex(0xC2);
      PutHex(byte);
      return;
    }
    target_->sputc(static_cast<char>(0xC2));
  }
  if (byte == 0xC2) {
    pendingC2_ = true;
    return;
  }
  if ((byte < 0x20 && byte != '\t' && byte != '\n') || byte == 0x7F) {
    PutHex(byte);
    return;
  }
  target_->sputc(static_cast<char>(byte));
}

EscapingStreamBuf::int_type EscapingStreamBuf::overflow(int_type ch) {
  if (traits_type::eq_int_type(ch, traits_type::eof())) return traits_type::not_eof(ch);
  Put(static_cast<unsigned char>(traits_type::to_char_type(ch)));
  return ch;
}

std::streamsize EscapingStreamBuf::xsputn(const char* text, std::streamsize count) {
  for (std::streamsize i = 0; i < count; ++i) Put(static_cast<unsigned char>(text[i]));
  return count;
}

int EscapingStreamBuf::sync() {
  // A pending 0xC2 stays pending: the byte after it decides whether it is a C1 control.
  return target_->pubsync();
}

}  // namespace cli
