// host::Window and host::Windows: the IDE's windows (main, Project, Properties, Immediate, code,
// designer and add-in tool windows) and which one has the focus.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/Liveness.h"
#include "vbide/ClassRegistry.h"
#include "vbide/Window.h"

namespace host {

class Ide;

class Window : public vbide::Window, public Liveness {
 public:
  Window(std::weak_ptr<Ide> ide, vbide::vbext_WindowType type, std::u16string caption,
         std::intptr_t hwnd, bool visible);

  std::u16string Caption() override;
  vbide::vbext_WindowType Type() override;
  bool Visible() override;
  void SetVisible(bool visible) override;
  void Close() override;
  void SetFocus() override;
  std::intptr_t HWnd() override;
  vbide::WindowsPtr Collection() override;

  void SetCaption(std::u16string caption);
  // How many times the window was asked to be visible, also while it already was: a shell
  // brings it to the front (out from behind a tab) when this grows.
  int ShowRequests() const { return showRequests_; }
  // Tool windows: the document they host and the id that keys their docking place.
  std::shared_ptr<vb::UserDocument> Document() const { return document_; }
  const std::u16string& PersistentId() const { return persistentId_; }
  void Host(std::shared_ptr<vb::UserDocument> document, std::u16string persistentId);

 protected:
  std::weak_ptr<Ide> ide_;

 private:
  vbide::vbext_WindowType type_;
  std::u16string caption_;
  std::intptr_t hwnd_;
  bool visible_;
  int showRequests_ = 0;
  std::shared_ptr<vb::UserDocument> document_;
  std::u16string persistentId_;
};

// A keystroke as the Immediate window receives it (virtual-key code, or a typed character).
struct KeyStroke {
  int keyCode = 0;  // Windows virtual-key code (VK_END 35, VK_HOME 36 ...); 0 for a character
  char16_t character = 0;
  bool shift = false;
  bool ctrl = false;
  bool alt = false;
};

// The Immediate window: text, a caret and a selection anchor, edited by keystrokes.
class ImmediateWindow final : public Window {
 public:
  using Window::Window;
  const std::u16string& Text() const { return text_; }
  void SetText(std::u16string text);
  // Positions are 0-based offsets into Text(); the selection runs between anchor and caret.
  std::size_t Caret() const { return caret_; }
  std::size_t Anchor() const { return anchor_; }
  void Press(const KeyStroke& key);
  void Print(std::u16string_view line);  // Debug.Print: appends a line

  std::function<void()> onChange;

 private:
  void MoveCaret(std::size_t to, bool extend);
  void DeleteSelection();
  std::u16string text_;
  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;
};

class Windows final : public vbide::Windows {
 public:
  Windows(std::weak_ptr<Ide> ide, std::shared_ptr<const vbide::ClassRegistry> classes)
      : ide_(std::move(ide)), classes_(std::move(classes)) {}

  int Count() override { return static_cast<int>(items_.size()); }
  vbide::WindowPtr Item(int index) override;
  std::vector<vbide::WindowPtr> Items() override;
  vbide::WindowPtr CreateToolWindow(const vbide::AddInPtr& addIn, std::u16string_view progId,
                                    std::u16string_view caption, std::u16string_view guid,
                                    std::shared_ptr<vb::UserDocument>& document) override;

  void Add(std::shared_ptr<Window> window) { items_.push_back(std::move(window)); }
  void Remove(const Window* window);
  const std::vector<std::shared_ptr<Window>>& List() const { return items_; }

 private:
  std::weak_ptr<Ide> ide_;
  std::shared_ptr<const vbide::ClassRegistry> classes_;
  std::vector<std::shared_ptr<Window>> items_;
};

}  // namespace host
