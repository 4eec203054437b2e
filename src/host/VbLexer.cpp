// host::VbLexer: the small scanner of VB source behind the code index.
#include "host/VbLexer.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace host {

namespace {

constexpr char16_t LowerAscii(char16_t c) {
  return c >= u'A' && c <= u'Z' ? c + (u'a' - u'A') : c;
}

bool OnlyBlanksFrom(std::u16string_view text, std::size_t pos) {
  for (; pos < text.size(); ++pos) {
    if (!IsBlankUnit(text[pos])) return false;
  }
  return true;
}

// The position of a continuation mark (a '_' after a blank or at the start, with only blanks
// after it), or npos. Trailing blanks are tolerated: files edited outside the IDE keep them.
std::size_t ContinuationMark(std::u16string_view text) {
  std::size_t end = text.size();
  while (end > 0 && IsBlankUnit(text[end - 1])) --end;
  if (end == 0 || text[end - 1] != u'_') return std::u16string_view::npos;
  const std::size_t mark = end - 1;
  if (mark > 0 && !IsBlankUnit(text[mark - 1])) return std::u16string_view::npos;
  return mark;
}

bool IsLineNumber(std::u16string_view word) {
  for (const char16_t c : word) {
    if (c < u'0' || c > u'9') return false;
  }
  return true;
}

// The end of the word starting at `pos`.
std::size_t WordEnd(std::u16string_view text, std::size_t pos) {
  while (pos < text.size() && IsIdentifierUnit(text[pos])) ++pos;
  return pos;
}

// The position after the closing quote of the string literal opened at `pos`; "" inside is an
// escaped quote. An unterminated literal runs to the end.
std::size_t StringEnd(std::u16string_view text, std::size_t pos) {
  for (++pos; pos < text.size(); ++pos) {
    if (text[pos] != u'"') continue;
    if (pos + 1 < text.size() && text[pos + 1] == u'"') {
      ++pos;
      continue;
    }
    return pos + 1;
  }
  return std::u16string_view::npos;
}

// The position after the ']' closing the name opened at `pos`, or the end.
std::size_t BracketEnd(std::u16string_view text, std::size_t pos) {
  const std::size_t close = text.find(u']', pos + 1);
  return close == std::u16string_view::npos ? text.size() : close + 1;
}

PhysicalLine CommentFrom(std::u16string_view text, std::size_t pos, bool atStatementStart) {
  PhysicalLine line;
  line.code = text.substr(0, pos);
  line.hasComment = true;
  line.continues = ContinuationMark(text.substr(pos)) != std::u16string_view::npos;
  line.endsInComment = line.continues;
  line.atStatementStart = atStatementStart;
  return line;
}

}  // namespace

bool EqualsKeyword(std::u16string_view text, std::u16string_view keyword) {
  if (text.size() != keyword.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (LowerAscii(text[i]) != LowerAscii(keyword[i])) return false;
  }
  return true;
}

namespace {

// Whether the line holds a quote, an apostrophe, a colon or a bracket: without them a line is
// one statement of plain code, which most lines of a module are.
bool HasLexicalMarks(std::u16string_view text) {
  std::size_t i = 0;
#if defined(__SSE2__)
  const __m128i quote = _mm_set1_epi16(u'"'), apostrophe = _mm_set1_epi16(u'\''),
                colon = _mm_set1_epi16(u':'), bracket = _mm_set1_epi16(u'[');
  for (; i + 8 <= text.size(); i += 8) {
    __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + i));
    __m128i marks = _mm_or_si128(
        _mm_or_si128(_mm_cmpeq_epi16(units, quote), _mm_cmpeq_epi16(units, apostrophe)),
        _mm_or_si128(_mm_cmpeq_epi16(units, colon), _mm_cmpeq_epi16(units, bracket)));
    if (_mm_movemask_epi8(marks) != 0) return true;
  }
#endif
  for (; i < text.size(); ++i) {
    char16_t c = text[i];
    if (c == u'"' || c == u'\'' || c == u':' || c == u'[') return true;
  }
  return false;
}

}  // namespace

PhysicalLine ScanPhysicalLine(std::u16string_view text, bool inComment, bool atStatementStart) {
  if (inComment) return CommentFrom(text, 0, false);
  // The quick answer for a line of plain code, when the words that need a closer look (a line
  // number or Rem at the start of a statement, a continuation mark) are not there either.
  if (!HasLexicalMarks(text)) {
    std::size_t first = 0;
    while (first < text.size() && IsBlankUnit(text[first])) ++first;
    if (first == text.size()) return PhysicalLine{text, false, false, false, atStatementStart, true};
    char16_t c = text[first];
    bool settled = !(c >= u'0' && c <= u'9') &&
                   ContinuationMark(text) == std::u16string_view::npos &&
                   !(atStatementStart &&
                     EqualsKeyword(text.substr(first, WordEnd(text, first) - first), u"rem"));
    if (settled) return PhysicalLine{text, false, false, false, false, true};
  }
  return ScanPhysicalLineFully(text, atStatementStart);
}

PhysicalLine ScanPhysicalLineFully(std::u16string_view text, bool atStatementStart) {
  bool start = atStatementStart;
  std::size_t i = 0;
  while (i < text.size()) {
    const char16_t c = text[i];
    if (c == u'"') {
      i = StringEnd(text, i);
      // A literal cannot span lines, so a " _" inside an unterminated one is text.
      if (i == std::u16string_view::npos)
        return PhysicalLine{text, false, false, false, false, false};
      start = false;
    } else if (c == u'\'') {
      return CommentFrom(text, i, start);
    } else if (c == u':') {
      start = true;
      ++i;
    } else if (IsBlankUnit(c)) {
      ++i;
    } else if (c == u'[') {
      i = BracketEnd(text, i);
      start = false;
    } else if (IsIdentifierUnit(c)) {
      const std::size_t end = WordEnd(text, i);
      if (start && EqualsKeyword(text.substr(i, end - i), u"rem"))
        return CommentFrom(text, i, true);
      if (end - i == 1 && c == u'_' && (i == 0 || IsBlankUnit(text[i - 1])) &&
          OnlyBlanksFrom(text, end)) {
        return PhysicalLine{text.substr(0, i), false, true, false, start, false};
      }
      // A line number ("10 Rem ...") still leaves the statement to come.
      start = start && IsLineNumber(text.substr(i, end - i));
      i = end;
    } else {
      start = false;
      ++i;
    }
  }
  return PhysicalLine{text, false, false, false, start, false};
}

bool LogicalLine::HasCode() const {
  return !OnlyBlanksFrom(code, 0);
}

bool LogicalLineReader::Next(LogicalLine& line) {
  const int count = lines_.Count();
  if (next_ > count) return false;
  line.first = next_;
  PhysicalLine physical = ScanPhysicalLine(lines_.Line(next_), false, true);
  line.code = physical.code;
  line.hasComment = physical.hasComment;
  line.plain = physical.plain;
  if (physical.continues && next_ < count) {
    line.plain = false;
    joined_.assign(physical.code);
    while (physical.continues && next_ < count) {
      ++next_;
      physical =
          ScanPhysicalLine(lines_.Line(next_), physical.endsInComment, physical.atStatementStart);
      if (!physical.code.empty()) {
        joined_ += u' ';
        joined_ += physical.code;
      }
      line.hasComment = line.hasComment || physical.hasComment;
    }
    line.code = joined_;
  }
  line.last = next_;
  ++next_;
  return true;
}

bool StatementSplitter::Next(std::u16string_view& statement) {
  if (done_) return false;
  if (single_) {
    statement = code_;
    done_ = true;
    return true;
  }
  std::size_t i = pos_;
  while (i < code_.size() && code_[i] != u':') {
    if (code_[i] == u'"') {
      i = StringEnd(code_, i);
      if (i == std::u16string_view::npos) i = code_.size();
    } else if (code_[i] == u'[') {
      i = BracketEnd(code_, i);
    } else {
      ++i;
    }
  }
  statement = code_.substr(pos_, i - pos_);
  if (i >= code_.size()) {
    done_ = true;
  } else {
    pos_ = i + 1;
  }
  return true;
}

void VbWords::SkipBlanks() {
  while (pos_ < text_.size() && IsBlankUnit(text_[pos_])) ++pos_;
}

bool VbWords::Accept(std::u16string_view keyword) {
  SkipBlanks();
  if (text_.size() - pos_ < keyword.size()) return false;
  if (!EqualsKeyword(text_.substr(pos_, keyword.size()), keyword)) return false;
  const std::size_t end = pos_ + keyword.size();
  if (end < text_.size() && IsIdentifierUnit(text_[end])) return false;
  pos_ = end;
  return true;
}

std::u16string_view VbWords::Identifier() {
  SkipBlanks();
  if (pos_ >= text_.size()) return {};
  const char16_t c = text_[pos_];
  if (c == u'[') {
    const std::size_t end = BracketEnd(text_, pos_);
    const std::size_t inner = pos_ + 1;
    const std::size_t innerEnd = text_[end - 1] == u']' ? end - 1 : end;
    pos_ = end;
    return text_.substr(inner, innerEnd - inner);
  }
  if (!IsIdentifierUnit(c) || (c >= u'0' && c <= u'9')) return {};
  const std::size_t end = WordEnd(text_, pos_);
  const std::u16string_view name = text_.substr(pos_, end - pos_);
  pos_ = end;
  return name;
}

void VbWords::SkipLineNumber() {
  SkipBlanks();
  std::size_t end = pos_;
  while (end < text_.size() && text_[end] >= u'0' && text_[end] <= u'9') ++end;
  if (end > pos_ && (end == text_.size() || IsBlankUnit(text_[end]))) pos_ = end;
}

bool VbWords::AtEnd() {
  SkipBlanks();
  return pos_ >= text_.size();
}

bool VbWords::Peek(char16_t c) {
  SkipBlanks();
  return pos_ < text_.size() && text_[pos_] == c;
}

std::u16string_view VbWords::Rest() {
  SkipBlanks();
  return text_.substr(pos_);
}

bool DeclaratorNames::Next(std::u16string_view& name) {
  if (done_) return false;
  int depth = 0;
  std::size_t i = pos_;
  while (i < list_.size() && !(list_[i] == u',' && depth == 0)) {
    const char16_t c = list_[i];
    if (c == u'"') {
      i = StringEnd(list_, i);
      if (i == std::u16string_view::npos) i = list_.size();
      continue;
    }
    if (c == u'[') {
      i = BracketEnd(list_, i);
      continue;
    }
    if (c == u'(') ++depth;
    if (c == u')' && depth > 0) --depth;
    ++i;
  }
  VbWords words(list_.substr(pos_, i - pos_));
  words.Accept(u"WithEvents");
  name = words.Identifier();
  if (i >= list_.size()) {
    done_ = true;
  } else {
    pos_ = i + 1;
  }
  return true;
}

}  // namespace host
