// studio::VbHighlighter: Visual Basic syntax colouring for the code windows (keywords, comments,
// strings), in the IDE's familiar colours.
#pragma once

#include <QSyntaxHighlighter>
#include <QTextCharFormat>

namespace studio {

class VbHighlighter final : public QSyntaxHighlighter {
  Q_OBJECT
 public:
  explicit VbHighlighter(QTextDocument* document);

  // What a character of a line is, for the colouring and for tests: 'k' keyword, 'c' comment,
  // 's' string, ' ' anything else. One entry per UTF-16 unit.
  static QString Classify(const QString& line);

 protected:
  void highlightBlock(const QString& text) override;

 private:
  QTextCharFormat keyword_, comment_, string_;
};

}  // namespace studio
