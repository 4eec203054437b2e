// host::VbLexer: the small scanner of VB source behind the code index: comments, string literals,
// line continuations, statements and leading keywords.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/files/CodeLines.h"

namespace host {

// Units >= 0x80 count as letters so that DBCS names (Japanese, Chinese projects) read as
// identifiers; VB's own keywords are all ASCII.
constexpr bool IsIdentifierUnit(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
         c == u'_' || c >= 0x80;
}
constexpr bool IsBlankUnit(char16_t c) {
  return c == u' ' || c == u'\t';
}

// ASCII case-insensitive equality, for keywords.
bool EqualsKeyword(std::u16string_view text, std::u16string_view keyword);

// One physical line as the lexer reads it.
struct PhysicalLine {
  std::u16string_view code;    // the text before any comment, without a continuation mark
  bool hasComment = false;     // an apostrophe comment, a Rem, or the tail of a continued comment
  bool continues = false;      // ends in " _": the next line belongs to the same logical line
  bool endsInComment = false;  // with `continues`: the next line is comment too
  bool atStatementStart =
      false;  // the code ends where a statement may start (Rem is then a comment)
  bool plain = false;  // no quote, colon, bracket or comment: the code is one statement
};

// `inComment`: a comment on the previous line was continued into this one. `atStatementStart`:
// the previous line of the same logical line ended at the start of a statement.
PhysicalLine ScanPhysicalLine(std::u16string_view text, bool inComment, bool atStatementStart);
// The same, unit by unit, without the quick answer for plain lines (which must agree with it).
PhysicalLine ScanPhysicalLineFully(std::u16string_view text, bool atStatementStart);

// A statement continued over several physical lines is one logical line.
struct LogicalLine {
  int first = 0;  // physical lines, counting from 1
  int last = 0;
  std::u16string_view code;  // the code of its physical lines joined by spaces, comments removed
  bool hasComment = false;
  bool plain = false;  // one physical line of plain code: a single statement
  bool HasCode() const;
  bool IsBlank() const { return !hasComment && !HasCode(); }
};

// Reads a module one logical line at a time. A single physical line is returned as a view of the
// store; only continued lines are copied, into one buffer reused from line to line.
class LogicalLineReader {
 public:
  explicit LogicalLineReader(const files::CodeLines& lines) : lines_(lines) {}
  // False at the end of the module. The line's code is valid until the next call.
  bool Next(LogicalLine& line);

 private:
  const files::CodeLines& lines_;
  int next_ = 1;
  std::u16string joined_;
};

// Splits code without comments at ':' outside string literals and [bracketed names]. Labels
// ("Retry:") come out as statements of their own.
class StatementSplitter {
 public:
  // `single`: the code is known to hold one statement (a plain line), given whole.
  explicit StatementSplitter(std::u16string_view code, bool single = false)
      : code_(code), single_(single) {}
  bool Next(std::u16string_view& statement);

 private:
  std::u16string_view code_;
  std::size_t pos_ = 0;
  bool single_ = false;
  bool done_ = false;
};

// A cursor over the words of one statement.
class VbWords {
 public:
  explicit VbWords(std::u16string_view text) : text_(text) {}
  // Consumes the next word when it is `keyword` (any case) as a whole word.
  bool Accept(std::u16string_view keyword);
  // Reads an identifier, or a [bracketed name] without its brackets; empty (and nothing read)
  // when none stands next. A type suffix (%&!#@$) is not part of the name.
  std::u16string_view Identifier();
  // Skips a line number ("10 Exit Sub").
  void SkipLineNumber();
  bool AtEnd();
  bool Peek(char16_t c);
  std::u16string_view Rest();

 private:
  void SkipBlanks();
  std::u16string_view text_;
  std::size_t pos_ = 0;
};

// Splits a declarator list at commas outside string literals and parentheses, and gives each
// declarator's name: "a(1 To 2, 3) As Long, WithEvents b As Foo" gives a and b.
class DeclaratorNames {
 public:
  explicit DeclaratorNames(std::u16string_view list) : list_(list) {}
  // False when no declarator is left. A declarator without a readable name gives "".
  bool Next(std::u16string_view& name);

 private:
  std::u16string_view list_;
  std::size_t pos_ = 0;
  bool done_ = false;
};

}  // namespace host
