// studio::CodeEditor.
#include "studio/CodeEditor.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "host/CodeModule.h"
#include "host/Window.h"
#include "runtime/Error.h"
#include "studio/QtText.h"
#include "studio/VbHighlighter.h"

namespace studio {
namespace {

// Makes `flag` true for the life of the scope and puts back what it was.
class Busy {
 public:
  explicit Busy(bool& flag) : flag_(flag), old_(std::exchange(flag, true)) {}
  ~Busy() { flag_ = old_; }

 private:
  bool& flag_;
  bool old_;
};

std::vector<QString> EditorLines(const QTextDocument& document) {
  std::vector<QString> lines;
  if (document.isEmpty()) return lines;  // an empty module, not one empty line
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    lines.push_back(block.text());
  return lines;
}

}  // namespace

class CodeEditor::Gutter final : public QWidget {
 public:
  explicit Gutter(CodeEditor& editor) : QWidget(&editor), editor_(editor) {}
  QSize sizeHint() const override { return {editor_.GutterWidth(), 0}; }

 protected:
  void paintEvent(QPaintEvent* event) override { editor_.PaintGutter(event); }

 private:
  CodeEditor& editor_;
};

CodeEditor::CodeEditor(std::shared_ptr<host::CodePane> pane, QWidget* parent)
    : QPlainTextEdit(parent),
      pane_(std::move(pane)),
      module_(pane_->Module()),
      gutter_(new Gutter(*this)) {
  QFont font(QStringLiteral("Courier New"));
  font.setStyleHint(QFont::Monospace);
  font.setPointSize(10);
  setFont(font);
  setLineWrapMode(NoWrap);
  new VbHighlighter(document());
  gutter_->hide();
  ReloadFromModule();
  connect(document(), &QTextDocument::contentsChanged, this, [this] { PushEdits(); });
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { PushSelection(); });
  connect(this, &QPlainTextEdit::selectionChanged, this, [this] { PushSelection(); });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
          [this](int value) { PushTopLine(value); });
  connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& rect, int dy) {
    if (dy != 0)
      gutter_->scroll(0, dy);
    else
      gutter_->update(0, rect.y(), gutter_->width(), rect.height());
  });
  module_->onChange = [this] {
    if (!syncing_) ReloadFromModule();
  };
  pane_->onChange = [this] {
    if (!syncing_) PullSelection();
  };
}

CodeEditor::~CodeEditor() {
  // The module and pane outlive the editor; their hooks must not call into a dead widget.
  if (module_) module_->onChange = nullptr;
  pane_->onChange = nullptr;
}

void CodeEditor::ReloadFromModule() {
  Busy busy(syncing_);
  int count = module_->CountOfLines();
  QString text = count == 0 ? QString() : ToQt(module_->Lines(1, count));
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  setPlainText(text);
  PullSelection();
}

void CodeEditor::PushEdits() {
  if (syncing_) return;
  Busy busy(syncing_);
  std::vector<QString> lines = EditorLines(*document());
  int oldCount = module_->CountOfLines();
  int newCount = static_cast<int>(lines.size());
  auto same = [&](int oldLine, int newIndex) {
    return ToQt(module_->LineView(oldLine)) == lines[newIndex];
  };
  // Only the changed run of lines is written: the module keeps the untouched lines' bytes.
  int prefix = 0;
  while (prefix < oldCount && prefix < newCount && same(prefix + 1, prefix)) ++prefix;
  int suffix = 0;
  while (suffix < oldCount - prefix && suffix < newCount - prefix &&
         same(oldCount - suffix, newCount - 1 - suffix))
    ++suffix;
  int oldMiddle = oldCount - prefix - suffix, newMiddle = newCount - prefix - suffix;
  int common = std::min(oldMiddle, newMiddle);
  for (int i = 0; i < common; ++i) module_->ReplaceLine(prefix + 1 + i, FromQt(lines[prefix + i]));
  if (newMiddle > common) {
    QStringList added;
    for (int i = common; i < newMiddle; ++i) added << lines[prefix + i];
    module_->InsertLines(prefix + common + 1, FromQt(added.join(QStringLiteral("\r\n"))));
  } else if (oldMiddle > common) {
    module_->DeleteLines(prefix + common + 1, oldMiddle - common);
  }
}

void CodeEditor::PushSelection() {
  if (syncing_) return;
  Busy busy(syncing_);
  QTextCursor cursor = textCursor();
  auto where = [&](int position) {
    QTextBlock block = document()->findBlock(position);
    return std::pair(block.blockNumber() + 1, position - block.position() + 1);
  };
  auto [startLine, startColumn] = where(cursor.selectionStart());
  auto [endLine, endColumn] = where(cursor.selectionEnd());
  try {
    pane_->SetSelection(startLine, startColumn, endLine, endColumn);
  } catch (const vb::Error&) {
    // An empty module has no position for the caret to report; the pane keeps its last one.
  }
}

void CodeEditor::PullSelection() {
  Busy busy(syncing_);
  int startLine = 1, startColumn = 1, endLine = 1, endColumn = 1;
  pane_->GetSelection(startLine, startColumn, endLine, endColumn);
  auto position = [&](int line, int column) {
    QTextBlock block = document()->findBlockByNumber(line - 1);
    if (!block.isValid()) return document()->characterCount() - 1;
    return block.position() + std::min(column - 1, block.length() - 1);
  };
  QTextCursor cursor(document());
  cursor.setPosition(position(startLine, startColumn));
  cursor.setPosition(position(endLine, endColumn), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
  verticalScrollBar()->setValue(pane_->TopLine() - 1);
}

void CodeEditor::PushTopLine(int firstVisibleBlock) {
  if (syncing_ || module_->CountOfLines() == 0) return;
  Busy busy(syncing_);
  pane_->SetTopLine(firstVisibleBlock + 1);
}

void CodeEditor::SetLineNumbersVisible(bool visible) {
  lineNumbers_ = visible;
  gutter_->setVisible(visible);
  LayoutGutter();
}

int CodeEditor::GutterWidth() const {
  if (!lineNumbers_) return 0;
  int digits = QString::number(std::max(1, blockCount())).size();
  return 8 + fontMetrics().horizontalAdvance(u'9') * std::max(3, digits);
}

void CodeEditor::LayoutGutter() {
  setViewportMargins(GutterWidth(), 0, 0, 0);
  QRect inner = contentsRect();
  gutter_->setGeometry(inner.left(), inner.top(), GutterWidth(), inner.height());
}

void CodeEditor::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  LayoutGutter();
  int lineHeight = std::max(1, fontMetrics().lineSpacing());
  pane_->SetCountOfVisibleLines(std::max(1, viewport()->height() / lineHeight));
  // The pane's top line was set before the editor had a size to scroll in (a match opened in
  // a window that is only now laid out): it is applied once the text can scroll there.
  Busy busy(syncing_);
  verticalScrollBar()->setValue(pane_->TopLine() - 1);
}

void CodeEditor::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  // The IDE learns which code window is active, as its ActiveCodePane reports.
  if (auto window = pane_->CodeWindow(); window && window->Alive()) window->SetFocus();
}

void CodeEditor::PaintGutter(QPaintEvent* event) {
  QPainter painter(gutter_);
  painter.fillRect(event->rect(), QColor(240, 240, 240));
  painter.setPen(Qt::darkGray);
  QTextBlock block = firstVisibleBlock();
  int top = qRound(blockBoundingGeometry(block).translated(contentOffset()).top());
  while (block.isValid() && top <= event->rect().bottom()) {
    int bottom = top + qRound(blockBoundingRect(block).height());
    if (block.isVisible() && bottom >= event->rect().top())
      painter.drawText(0, top, gutter_->width() - 4, fontMetrics().height(), Qt::AlignRight,
                       QString::number(block.blockNumber() + 1));
    block = block.next();
    top = bottom;
  }
}

}  // namespace studio
