// host::files::CodeLines.
#include "host/files/CodeLines.h"

#include <cassert>

namespace host::files {
namespace {
const std::vector<RawLine> kNoAttributes;
}

std::string_view EolBytes(Eol eol) {
  switch (eol) {
    case Eol::CrLf:
      return "\r\n";
    case Eol::Lf:
      return "\n";
    case Eol::Cr:
      return "\r";
    case Eol::None:
      return "";
  }
  return "";
}

const std::vector<RawLine>& CodeLines::Attributes(int line) const {
  int index = lines_[line - 1].attributes;
  return index < 0 ? kNoAttributes : attributes_[index];
}

void CodeLines::Reserve(std::size_t lines, std::size_t units) {
  lines_.reserve(lines);
  buffer_.reserve(units);
}

std::uint32_t CodeLines::Store(std::u16string_view text) {
  auto offset = static_cast<std::uint32_t>(buffer_.size());
  buffer_.append(text);
  return offset;
}

void CodeLines::Append(std::u16string_view text, Eol eol) {
  lines_.push_back({Store(text), static_cast<std::uint32_t>(text.size()), -1, eol});
  ++version_;
}

void CodeLines::AttachAttribute(RawLine attribute) {
  assert(!lines_.empty());
  Rec& r = lines_.back();
  if (r.attributes < 0) {
    r.attributes = static_cast<std::int32_t>(attributes_.size());
    attributes_.emplace_back();
  }
  attributes_[r.attributes].push_back(std::move(attribute));
}

void CodeLines::Insert(int before, const std::vector<std::u16string>& texts) {
  if (texts.empty()) return;
  std::vector<Rec> recs;
  recs.reserve(texts.size());
  for (auto& t : texts)
    recs.push_back({Store(t), static_cast<std::uint32_t>(t.size()), -1, Eol::CrLf});
  bool appendsAfterUnterminated =
      before == Count() + 1 && !lines_.empty() && lines_.back().eol == Eol::None;
  if (appendsAfterUnterminated) {
    lines_.back().eol = Eol::CrLf;
    recs.back().eol = Eol::None;
  }
  lines_.insert(lines_.begin() + (before - 1), recs.begin(), recs.end());
  ++version_;
}

void CodeLines::Erase(int start, int count) {
  if (count <= 0) return;
  bool removesLast = start + count - 1 == Count();
  Eol lastEol = lines_.back().eol;
  for (int i = start; i < start + count; ++i) deadUnits_ += lines_[i - 1].length;
  lines_.erase(lines_.begin() + (start - 1), lines_.begin() + (start - 1 + count));
  // The file's final-terminator state belongs to whatever line is last now.
  if (removesLast && !lines_.empty() && lastEol == Eol::None) lines_.back().eol = Eol::None;
  ++version_;
  MaybeCompact();
}

void CodeLines::Replace(int line, std::u16string_view text) {
  Rec& r = lines_[line - 1];
  deadUnits_ += r.length;
  r.offset = Store(text);
  r.length = static_cast<std::uint32_t>(text.size());
  ++version_;
  MaybeCompact();
}

void CodeLines::MaybeCompact() {
  if (deadUnits_ < (1u << 20) || deadUnits_ * 2 < buffer_.size()) return;
  std::u16string fresh;
  fresh.reserve(buffer_.size() - deadUnits_);
  for (Rec& r : lines_) {
    auto offset = static_cast<std::uint32_t>(fresh.size());
    fresh.append(buffer_, r.offset, r.length);
    r.offset = offset;
  }
  buffer_.swap(fresh);
  deadUnits_ = 0;
}

std::size_t CodeLines::MemoryBytes() const {
  std::size_t bytes = buffer_.capacity() * sizeof(char16_t) + lines_.capacity() * sizeof(Rec);
  for (auto& a : attributes_)
    for (auto& l : a) bytes += sizeof(RawLine) + l.bytes.capacity();
  return bytes;
}

std::vector<std::u16string> SplitLines(std::u16string_view text) {
  std::vector<std::u16string> lines;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\r' && text[i] != u'\n') continue;
    lines.emplace_back(text.substr(start, i - start));
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    start = i + 1;
  }
  lines.emplace_back(text.substr(start));
  return lines;
}

}  // namespace host::files
