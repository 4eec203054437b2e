// studio::VbHighlighter.
#include "studio/VbHighlighter.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace studio {
namespace {

// Sorted, lower case: looked up by binary search.
constexpr std::array<std::string_view, 95> kKeywords = {
    "addressof",  "and",        "any",        "as",       "attribute", "boolean",  "byref",
    "byte",       "byval",      "call",       "case",     "const",     "currency", "date",
    "declare",    "defint",     "deflng",     "defstr",   "dim",       "do",       "double",
    "each",       "else",       "elseif",     "empty",    "end",       "enum",     "eqv",
    "erase",      "error",      "event",      "exit",     "explicit",  "false",    "for",
    "friend",     "function",   "get",        "global",   "gosub",     "goto",     "if",
    "imp",        "implements", "in",         "integer",  "is",        "let",      "lib",
    "like",       "long",       "loop",       "lset",     "me",        "mod",      "new",
    "next",       "not",        "nothing",    "null",     "object",    "on",       "option",
    "optional",   "or",         "paramarray", "preserve", "private",   "property", "public",
    "raiseevent", "redim",      "resume",     "return",   "rset",      "select",   "set",
    "single",     "static",     "step",       "stop",     "string",    "sub",      "then",
    "to",         "true",       "type",       "typeof",   "until",     "variant",  "wend",
    "while",      "with",       "withevents", "xor",
};

bool IsKeyword(const QString& word) {
  std::string lower = word.toLower().toStdString();
  static_assert(std::is_sorted(kKeywords.begin(), kKeywords.end()));
  return std::binary_search(kKeywords.begin(), kKeywords.end(), std::string_view(lower));
}

bool IsWordChar(QChar c) {
  return c.isLetterOrNumber() || c == u'_';
}

}  // namespace

VbHighlighter::VbHighlighter(QTextDocument* document) : QSyntaxHighlighter(document) {
  keyword_.setForeground(QColor(0, 0, 128));
  comment_.setForeground(QColor(0, 128, 0));
  string_.setForeground(QColor(128, 0, 0));
}

QString VbHighlighter::Classify(const QString& line) {
  QString kinds(line.size(), u' ');
  qsizetype i = 0;
  bool statementStart = true;  // Rem is a comment only where a statement starts
  while (i < line.size()) {
    QChar c = line[i];
    if (c == u'"') {
      qsizetype end = i + 1;
      // A doubled quote stays inside the string.
      while (end < line.size() &&
             !(line[end] == u'"' && (end + 1 >= line.size() || line[end + 1] != u'"')))
        end += line[end] == u'"' ? 2 : 1;
      end = std::min(end + 1, line.size());
      for (qsizetype k = i; k < end; ++k) kinds[k] = u's';
      i = end;
      statementStart = false;
      continue;
    }
    if (c == u'\'') {
      for (qsizetype k = i; k < line.size(); ++k) kinds[k] = u'c';
      break;
    }
    if (IsWordChar(c) && (i == 0 || !IsWordChar(line[i - 1]))) {
      qsizetype end = i;
      while (end < line.size() && IsWordChar(line[end])) ++end;
      QString word = line.mid(i, end - i);
      if (statementStart && word.compare(u"Rem", Qt::CaseInsensitive) == 0) {
        for (qsizetype k = i; k < line.size(); ++k) kinds[k] = u'c';
        break;
      }
      bool member = i > 0 && line[i - 1] == u'.';  // obj.End is a member, not a keyword
      if (!member && IsKeyword(word))
        for (qsizetype k = i; k < end; ++k) kinds[k] = u'k';
      i = end;
      statementStart = false;
      continue;
    }
    if (c == u':')
      statementStart = true;
    else if (!c.isSpace())
      statementStart = false;
    ++i;
  }
  return kinds;
}

void VbHighlighter::highlightBlock(const QString& text) {
  QString kinds = Classify(text);
  for (qsizetype i = 0; i < kinds.size();) {
    qsizetype end = i;
    while (end < kinds.size() && kinds[end] == kinds[i]) ++end;
    if (kinds[i] == u'k')
      setFormat(int(i), int(end - i), keyword_);
    else if (kinds[i] == u'c')
      setFormat(int(i), int(end - i), comment_);
    else if (kinds[i] == u's')
      setFormat(int(i), int(end - i), string_);
    i = end;
  }
}

}  // namespace studio
