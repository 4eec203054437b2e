// host::Window, host::ImmediateWindow and host::Windows.
#include "host/Window.h"

#include <algorithm>

#include "host/Ide.h"

namespace host {

Window::Window(std::weak_ptr<Ide> ide, vbide::vbext_WindowType type, std::u16string caption,
               std::intptr_t hwnd, bool visible)
    : ide_(std::move(ide)),
      type_(type),
      caption_(std::move(caption)),
      hwnd_(hwnd),
      visible_(visible) {}

std::u16string Window::Caption() {
  CheckAlive(u"window", caption_);
  return caption_;
}

void Window::SetCaption(std::u16string caption) {
  caption_ = std::move(caption);
  if (auto ide = ide_.lock()) {
    ide->WindowRetitled(hwnd_, caption_);
    ide->changed.Raise();
  }
}

vbide::vbext_WindowType Window::Type() {
  CheckAlive(u"window", caption_);
  return type_;
}

bool Window::Visible() {
  CheckAlive(u"window", caption_);
  return visible_;
}

void Window::SetVisible(bool visible) {
  CheckAlive(u"window", caption_);
  if (visible) ++showRequests_;
  if (visible_ == visible) {
    if (auto ide = visible ? ide_.lock() : nullptr) ide->changed.Raise();
    return;
  }
  visible_ = visible;
  // A tool window's document sees its window shown and hidden.
  if (document_) document_->Display(visible);
  auto ide = ide_.lock();
  if (!ide) return;
  if (!visible) ide->WindowHidden(this);  // a hidden window loses the focus
  ide->changed.Raise();
}

void Window::Close() {
  CheckAlive(u"window", caption_);
  auto ide = ide_.lock();
  if (type_ == vbide::vbext_wt_CodeWindow || type_ == vbide::vbext_wt_Designer) {
    // Code and designer windows go away without asking; the pane or designer window is gone.
    if (ide) {
      ide->WindowList()->Remove(this);
      ide->WindowDestroyed(this);
      ide->changed.Raise();
    }
    MarkRemoved();
    return;
  }
  SetVisible(false);
}

void Window::SetFocus() {
  CheckAlive(u"window", caption_);
  if (auto ide = ide_.lock()) ide->WindowFocused(this);
}

std::intptr_t Window::HWnd() {
  CheckAlive(u"window", caption_);
  return hwnd_;
}

vbide::WindowsPtr Window::Collection() {
  CheckAlive(u"window", caption_);
  auto ide = ide_.lock();
  return ide ? ide->Windows() : nullptr;
}

void Window::Host(std::shared_ptr<vb::UserDocument> document, std::u16string persistentId) {
  document_ = std::move(document);
  persistentId_ = std::move(persistentId);
}

// ---- ImmediateWindow ---------------------------------------------------------------------------

namespace {
constexpr int kBack = 8, kEnter = 13, kEnd = 35, kHome = 36, kLeft = 37, kUp = 38, kRight = 39,
              kDown = 40, kDelete = 46;

std::size_t LineStart(const std::u16string& text, std::size_t pos) {
  while (pos > 0 && text[pos - 1] != u'\n') --pos;
  return pos;
}
std::size_t LineEnd(const std::u16string& text, std::size_t pos) {
  while (pos < text.size() && text[pos] != u'\r' && text[pos] != u'\n') ++pos;
  return pos;
}
}  // namespace

void ImmediateWindow::SetText(std::u16string text) {
  text_ = std::move(text);
  caret_ = anchor_ = text_.size();
  if (onChange) onChange();
}

void ImmediateWindow::Print(std::u16string_view line) {
  text_ += line;
  text_ += u"\r\n";
  caret_ = anchor_ = text_.size();
  if (onChange) onChange();
}

void ImmediateWindow::MoveCaret(std::size_t to, bool extend) {
  caret_ = std::min(to, text_.size());
  if (!extend) anchor_ = caret_;
}

void ImmediateWindow::DeleteSelection() {
  auto [from, to] = std::minmax(caret_, anchor_);
  text_.erase(from, to - from);
  caret_ = anchor_ = from;
}

void ImmediateWindow::Press(const KeyStroke& key) {
  if (key.keyCode == 0) {
    if (key.character == 0) return;
    DeleteSelection();
    text_.insert(text_.begin() + static_cast<std::ptrdiff_t>(caret_), key.character);
    caret_ = anchor_ = caret_ + 1;
  } else if (key.keyCode == kEnd) {
    MoveCaret(key.ctrl ? text_.size() : LineEnd(text_, caret_), key.shift);
  } else if (key.keyCode == kHome) {
    MoveCaret(key.ctrl ? 0 : LineStart(text_, caret_), key.shift);
  } else if (key.keyCode == kLeft) {
    MoveCaret(caret_ > 0 ? caret_ - 1 : 0, key.shift);
  } else if (key.keyCode == kRight) {
    MoveCaret(caret_ + 1, key.shift);
  } else if (key.keyCode == kUp || key.keyCode == kDown) {
    std::size_t start = LineStart(text_, caret_);
    std::size_t column = caret_ - start;
    std::size_t target = caret_;
    if (key.keyCode == kUp && start > 0) {
      std::size_t prevStart = LineStart(text_, start - 1);
      target = std::min(prevStart + column, LineEnd(text_, prevStart));
    } else if (key.keyCode == kDown) {
      std::size_t end = LineEnd(text_, caret_);
      std::size_t next =
          end < text_.size() ? end + (text_.compare(end, 2, u"\r\n") == 0 ? 2 : 1) : end;
      if (next != end) target = std::min(next + column, LineEnd(text_, next));
    }
    MoveCaret(target, key.shift);
  } else if (key.keyCode == kDelete) {
    if (caret_ == anchor_ && caret_ < text_.size()) ++anchor_;
    DeleteSelection();
  } else if (key.keyCode == kBack) {
    if (caret_ == anchor_ && caret_ > 0) --anchor_;
    DeleteSelection();
  } else if (key.keyCode == kEnter) {
    DeleteSelection();
    text_.insert(caret_, u"\r\n");
    caret_ = anchor_ = caret_ + 2;
  } else {
    return;  // other keys do nothing in the Immediate window
  }
  if (onChange) onChange();
}

// ---- Windows -----------------------------------------------------------------------------------

vbide::WindowPtr Windows::Item(int index) {
  if (index < 1 || index > Count())
    throw vb::Error::Standard(vb::err::kSubscriptOutOfRange, u"window");
  return items_[index - 1];
}

std::vector<vbide::WindowPtr> Windows::Items() {
  return std::vector<vbide::WindowPtr>(items_.begin(), items_.end());
}

vbide::WindowPtr Windows::CreateToolWindow(const vbide::AddInPtr&, std::u16string_view progId,
                                           std::u16string_view caption, std::u16string_view guid,
                                           std::shared_ptr<vb::UserDocument>& document) {
  auto created = classes_ ? classes_->CreateDocument(progId) : nullptr;
  if (!created) {
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall,
                              u"no document class is registered as " + std::u16string(progId));
  }
  auto ide = ide_.lock();
  auto window = std::make_shared<Window>(ide_, vbide::vbext_wt_ToolWindow, std::u16string(caption),
                                         ide ? ide->NewHandle(caption) : 0, false);
  // The document lives inside its tool window, so its top-level parent is the IDE's main window.
  if (ide && ide->WindowSystem())
    ide->WindowSystem()->SetParent(created->hWnd(), static_cast<vb::Hwnd>(window->HWnd()));
  window->Host(created, std::u16string(guid));
  items_.push_back(window);
  document = created;
  if (ide) ide->changed.Raise();
  return window;
}

void Windows::Remove(const Window* window) {
  std::erase_if(items_, [window](auto& w) { return w.get() == window; });
}

}  // namespace host
