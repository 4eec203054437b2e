// host::files::LineScanner: walks a file's bytes line by line, keeping each line's terminator.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "host/files/CodeLines.h"

namespace host::files {

// One physical line: its bytes without the terminator, and the terminator it had.
struct LineView {
  std::string_view bytes;
  Eol eol = Eol::CrLf;
};

// Splits at CR LF, lone LF and lone CR. A file that ends with a terminator has no empty line
// after it; a file that does not ends with a line whose terminator is Eol::None; "" has no lines.
// Splitting bytes is safe in double-byte code pages: trail bytes are never CR or LF.
class LineScanner {
 public:
  explicit LineScanner(std::string_view bytes) : bytes_(bytes) {}

  bool Next(LineView& line) {
    if (pos_ >= bytes_.size()) return false;
    std::size_t length = FindBreak() - pos_;
    const char* start = bytes_.data() + pos_;
    std::size_t rest = bytes_.size() - pos_;
    line.bytes = std::string_view(start, length);
    if (length == rest) {
      line.eol = Eol::None;
      pos_ = bytes_.size();
    } else if (start[length] == '\n') {
      line.eol = Eol::Lf;
      pos_ += length + 1;
    } else if (length + 1 < rest && start[length + 1] == '\n') {
      line.eol = Eol::CrLf;
      pos_ += length + 2;
    } else {
      line.eol = Eol::Cr;
      pos_ += length + 1;
    }
    return true;
  }

 private:
  // The position of the next CR or LF at or after pos_, or the end. memchr runs far ahead of a
  // byte loop; lone CRs are rare, so the next LF is found once and remembered (a CR-only file
  // would otherwise be scanned to its end for every line), and only the stretch before it is
  // searched for a CR.
  std::size_t FindBreak() {
    if (!searched_ || nextLf_ < pos_) {
      searched_ = true;
      const void* lf = std::memchr(bytes_.data() + pos_, '\n', bytes_.size() - pos_);
      nextLf_ = lf ? static_cast<std::size_t>(static_cast<const char*>(lf) - bytes_.data())
                   : bytes_.size();
    }
    const void* cr = std::memchr(bytes_.data() + pos_, '\r', nextLf_ - pos_);
    return cr ? static_cast<std::size_t>(static_cast<const char*>(cr) - bytes_.data()) : nextLf_;
  }

  std::string_view bytes_;
  std::size_t pos_ = 0;
  std::size_t nextLf_ = 0;  // the next LF (or the end) once searched_, valid while >= pos_
  bool searched_ = false;
};

// The lines of `bytes` as raw lines (for project and group files, which are small).
inline std::vector<RawLine> SplitRawLines(std::string_view bytes) {
  std::vector<RawLine> lines;
  lines.reserve(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1);
  LineScanner scanner(bytes);
  for (LineView line; scanner.Next(line);) lines.push_back({std::string(line.bytes), line.eol});
  return lines;
}

// The bytes of raw lines, terminators included: the inverse of SplitRawLines. A line without a
// terminator that is not the last one (left so by an edit) gets CR LF, so lines never merge.
inline void AppendRawLines(const std::vector<RawLine>& lines, std::string& out, bool moreFollows) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    out += lines[i].bytes;
    bool last = i + 1 == lines.size() && !moreFollows;
    out += EolBytes(lines[i].eol == Eol::None && !last ? Eol::CrLf : lines[i].eol);
  }
}

}  // namespace host::files
