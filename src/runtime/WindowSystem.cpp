// The headless window system: a table of windows and the Win32 calls over it.
#include "runtime/WindowSystem.h"

#include "runtime/CaseFold.h"
#include "runtime/Error.h"
#include "runtime/EventLoop.h"
#include "runtime/Utf.h"

namespace vb {

Hwnd WindowSystem::Create(std::u16string title, Hwnd parent) {
  Hwnd hwnd = next_;
  next_ += 4;  // Windows hands out handles in steps of 4 too; nothing depends on it
  Window window;
  window.title = std::move(title);
  window.parent = parent;
  windows_.emplace(hwnd, std::move(window));
  return hwnd;
}

void WindowSystem::Destroy(Hwnd hwnd) {
  if (windows_.erase(hwnd) > 0 && onDestroyed) onDestroyed(hwnd);
  if (focus_ == hwnd) focus_ = 0;
}

WindowSystem::Window& WindowSystem::At(Hwnd hwnd) {
  auto it = windows_.find(hwnd);
  if (it == windows_.end()) {
    throw Error::Standard(err::kInvalidProcedureCall,
                          u"no window with handle " + FromUtf8(std::to_string(hwnd)));
  }
  return it->second;
}

void WindowSystem::SetTitle(Hwnd hwnd, std::u16string title) {
  At(hwnd).title = std::move(title);
}

std::u16string WindowSystem::Title(Hwnd hwnd) const {
  auto it = windows_.find(hwnd);
  return it == windows_.end() ? std::u16string() : it->second.title;
}

void WindowSystem::SetParent(Hwnd hwnd, Hwnd parent) {
  At(hwnd).parent = parent;
}
void WindowSystem::SetMessageHandler(Hwnd hwnd, MessageHandler h) {
  At(hwnd).onMessage = std::move(h);
}
void WindowSystem::SetFocusHandler(Hwnd hwnd, FocusHandler h) {
  At(hwnd).onFocus = std::move(h);
}
void WindowSystem::SetPlaceHandler(Hwnd hwnd, PlaceHandler h) {
  At(hwnd).onPlace = std::move(h);
}

bool WindowSystem::IsTopMost(Hwnd hwnd) const {
  auto it = windows_.find(hwnd);
  return it != windows_.end() && it->second.topMost;
}

Hwnd WindowSystem::FindWindow(std::u16string_view title) const {
  for (const auto& [hwnd, window] : windows_) {
    if (window.parent == 0 && EqualsText(window.title, title)) return hwnd;
  }
  return 0;
}

Hwnd WindowSystem::SetFocus(Hwnd hwnd) {
  if (!Exists(hwnd)) return 0;
  Hwnd previous = focus_;
  if (previous == hwnd) return previous;
  focus_ = hwnd;
  // Copies: a focus handler may destroy windows (an unloading form).
  if (auto it = windows_.find(previous); it != windows_.end() && it->second.onFocus) {
    auto handler = it->second.onFocus;
    handler(false);
  }
  if (auto it = windows_.find(hwnd); it != windows_.end() && it->second.onFocus) {
    auto handler = it->second.onFocus;
    handler(true);
  }
  if (onFocusChanged && focus_ == hwnd) onFocusChanged(hwnd);
  return previous;
}

Hwnd WindowSystem::GetParent(Hwnd hwnd) const {
  auto it = windows_.find(hwnd);
  return it == windows_.end() ? 0 : it->second.parent;
}

bool WindowSystem::PostMessage(Hwnd hwnd, int message, std::intptr_t wParam, std::intptr_t lParam) {
  if (!Exists(hwnd)) return false;
  posted_.push_back({hwnd, message, wParam, lParam});
  loop_.Post([this, hwnd, message, wParam, lParam] {
    auto it = windows_.find(hwnd);
    if (it == windows_.end() || !it->second.onMessage) return;
    auto handler = it->second.onMessage;
    handler(message, wParam, lParam);
  });
  return true;
}

std::intptr_t WindowSystem::SendMessage(Hwnd hwnd, int message, std::intptr_t wParam,
                                        std::intptr_t lParam) {
  auto it = windows_.find(hwnd);
  if (it == windows_.end() || !it->second.onMessage) return 0;
  auto handler = it->second.onMessage;
  return handler(message, wParam, lParam);
}

bool WindowSystem::SetWindowPos(Hwnd hwnd, Hwnd insertAfter, int x, int y, int cx, int cy,
                                int flags) {
  auto it = windows_.find(hwnd);
  if (it == windows_.end()) return false;
  bool wasTopMost = it->second.topMost;
  if (insertAfter == kHwndTopMost) it->second.topMost = true;
  if (insertAfter == kHwndNoTopMost) it->second.topMost = false;
  if (wasTopMost != it->second.topMost && onTopMostChanged) onTopMostChanged(hwnd);
  if ((flags & (kSwpNoMove | kSwpNoSize)) != (kSwpNoMove | kSwpNoSize) && it->second.onPlace) {
    auto handler = it->second.onPlace;
    handler(x, y, cx, cy, flags);
  }
  return true;
}

}  // namespace vb
