// cli::EscapingStreamBuf: what quillmark prints, with control characters made visible.
#pragma once

#include <streambuf>
#include <string>

namespace cli {

// Passes text on to `target` with every control character except TAB and LF written as \xHH
// (C0 controls, DEL, and the C1 controls U+0080-U+009F in UTF-8), so that a name or value read
// from a user's file (an ESC in a .vbp value) cannot drive the terminal.
class EscapingStreamBuf : public std::streambuf {
 public:
  explicit EscapingStreamBuf(std::streambuf* target) : target_(target) {}
  ~EscapingStreamBuf() override;

 protected:
  int_type overflow(int_type ch) override;
  std::streamsize xsputn(const char* text, std::streamsize count) override;
  int sync() override;

 private:
  void Put(unsigned char byte);
  void PutHex(unsigned char byte);
  std::streambuf* target_;
  bool pendingC2_ = false;  // a UTF-8 lead byte 0xC2 waiting to see whether a C1 control follows
};

}  // namespace cli
