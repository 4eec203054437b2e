// host::files::CodeLines: the visible lines of a module, each with its own line terminator and
// the member-attribute lines that sit under it in the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host::files {

// How a line ends in the file. `None` only on the last line of a file without a final terminator.
enum class Eol : std::uint8_t { CrLf, Lf, Cr, None };

std::string_view EolBytes(Eol eol);

// A hidden line (header, module attribute, member attribute) kept as the file's bytes.
struct RawLine {
  std::string bytes;
  Eol eol = Eol::CrLf;
  bool operator==(const RawLine&) const = default;
};

// Lines count from 1. The text of every line lives in one buffer, so a million lines cost a
// few words each beyond their text; an edit appends the new text and the buffer is compacted
// once more than half of it is dead.
class CodeLines {
 public:
  int Count() const { return static_cast<int>(lines_.size()); }
  std::u16string_view Line(int line) const {
    const Rec& r = lines_[line - 1];
    return std::u16string_view(buffer_).substr(r.offset, r.length);
  }
  Eol Terminator(int line) const { return lines_[line - 1].eol; }
  void SetTerminator(int line, Eol eol) { lines_[line - 1].eol = eol; }
  // The member-attribute lines under `line`, in file order (empty when none).
  const std::vector<RawLine>& Attributes(int line) const;

  // Loading: appends a line, or a member-attribute line under the last appended line.
  void Append(std::u16string_view text, Eol eol);
  void AttachAttribute(RawLine attribute);
  void Reserve(std::size_t lines, std::size_t units);

  // Editing. New lines end in CR LF, except that a line added after a last line without a
  // terminator takes over the "no final terminator" state. Attributes go with their line.
  void Insert(int before, const std::vector<std::u16string>& texts);
  void Erase(int start, int count);
  void Replace(int line, std::u16string_view text);

  // Bumped by every edit; indexes built from the lines compare it to know they are stale.
  std::uint64_t Version() const { return version_; }
  std::size_t MemoryBytes() const;

 private:
  struct Rec {
    std::uint32_t offset;
    std::uint32_t length;
    std::int32_t attributes;  // index into attributes_, or -1
    Eol eol;
  };
  std::uint32_t Store(std::u16string_view text);
  void MaybeCompact();

  std::u16string buffer_;
  std::size_t deadUnits_ = 0;
  std::vector<Rec> lines_;
  std::vector<std::vector<RawLine>> attributes_;
  std::uint64_t version_ = 0;
};

// Splits text at CR LF, lone CR and lone LF, as InsertLines does: "a\r\nb" gives a and b;
// a trailing line break gives a last empty line; "" gives one empty line.
std::vector<std::u16string> SplitLines(std::u16string_view text);

}  // namespace host::files
