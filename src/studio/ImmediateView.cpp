// studio::ImmediateView.
#include "studio/ImmediateView.h"

#include <QKeyEvent>

#include "studio/QtText.h"

namespace studio {
namespace {

// Qt keys the Immediate window understands, as the Windows virtual-key codes it takes.
struct KeyCode {
  int qt;
  int vk;
};
constexpr KeyCode kKeys[] = {
    {Qt::Key_End, 35},    {Qt::Key_Home, 36},  {Qt::Key_Left, 37},   {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},  {Qt::Key_Down, 40},  {Qt::Key_Delete, 46}, {Qt::Key_Backspace, 8},
    {Qt::Key_Return, 13}, {Qt::Key_Enter, 13},
};

}  // namespace

ImmediateView::ImmediateView(std::shared_ptr<host::ImmediateWindow> window, QWidget* parent)
    : QPlainTextEdit(parent), window_(std::move(window)) {
  QFont font(QStringLiteral("Courier New"));
  font.setStyleHint(QFont::Monospace);
  font.setPointSize(10);
  setFont(font);
  setUndoRedoEnabled(false);
  // The text is the IDE window's; Qt only shows it and its caret, and hands the keys on.
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  window_->onChange = [this] { Refresh(); };
  Refresh();
}

ImmediateView::~ImmediateView() {
  window_->onChange = nullptr;
}

void ImmediateView::Refresh() {
  const std::u16string& text = window_->Text();
  // The window's lines end in CR LF, the document's in one separator: offsets shrink by one
  // for every CR LF before them.
  auto position = [&](std::size_t offset) {
    int crlf = 0;
    for (std::size_t i = 0; i + 1 < offset && i + 1 < text.size(); ++i)
      crlf += text[i] == u'\r' && text[i + 1] == u'\n';
    return static_cast<int>(offset) - crlf;
  };
  QString shown = ToQt(text);
  shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  if (toPlainText() != shown) setPlainText(shown);
  QTextCursor cursor(document());
  cursor.setPosition(position(window_->Anchor()));
  cursor.setPosition(position(window_->Caret()), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void ImmediateView::keyPressEvent(QKeyEvent* event) {
  host::KeyStroke key;
  key.shift = event->modifiers() & Qt::ShiftModifier;
  key.ctrl = event->modifiers() & Qt::ControlModifier;
  key.alt = event->modifiers() & Qt::AltModifier;
  for (auto& k : kKeys)
    if (k.qt == event->key()) key.keyCode = k.vk;
  if (key.keyCode == 0) {
    QString text = event->text();
    if (text.size() != 1 || !text[0].isPrint() || key.ctrl || key.alt) {
      QPlainTextEdit::keyPressEvent(event);  // copy, select all and the like stay Qt's
      return;
    }
    key.character = text[0].unicode();
  }
  window_->Press(key);
  Refresh();
}

void ImmediateView::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  // SendKeys lands in the IDE's focused window: focusing this view must focus that window.
  window_->SetFocus();
}

}  // namespace studio
