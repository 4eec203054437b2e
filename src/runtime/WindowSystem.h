// vb::WindowSystem: the window handles of forms, controls and the host's windows, and the few
// window-system calls the add-in makes, with the contracts of their Win32 counterparts.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vb {

class EventLoop;

// A window handle, VB's Long hWnd. 0 is "no window".
using Hwnd = std::int32_t;

// Win32 values the callers pass.
inline constexpr Hwnd kHwndTopMost = -1;
inline constexpr Hwnd kHwndNoTopMost = -2;
inline constexpr int kSwpNoSize = 0x1;
inline constexpr int kSwpNoMove = 0x2;
inline constexpr int kWmSysKeyDown = 260;
inline constexpr int kLvmSetExtendedListViewStyle = 4150;
inline constexpr int kLvmGetExtendedListViewStyle = 4151;
inline constexpr int kLvsExFullRowSelect = 32;

struct PostedMessage {
  Hwnd hwnd = 0;
  int message = 0;
  std::intptr_t wParam = 0;
  std::intptr_t lParam = 0;
  bool operator==(const PostedMessage&) const = default;
};

class WindowSystem {
 public:
  using MessageHandler = std::function<std::intptr_t(int message, std::intptr_t, std::intptr_t)>;
  using FocusHandler = std::function<void(bool gained)>;
  // Pixels, as SetWindowPos passes them.
  using PlaceHandler = std::function<void(int x, int y, int cx, int cy, int flags)>;

  explicit WindowSystem(EventLoop& loop) : loop_(loop) {}
  WindowSystem(const WindowSystem&) = delete;
  WindowSystem& operator=(const WindowSystem&) = delete;

  // Registration by forms, controls and the host. Handles are unique for the life of the
  // object and never reused. A window with parent 0 is top-level.
  Hwnd Create(std::u16string title, Hwnd parent = 0);
  void Destroy(Hwnd hwnd);  // also forgets focus on it
  bool Exists(Hwnd hwnd) const { return windows_.contains(hwnd); }
  void SetTitle(Hwnd hwnd, std::u16string title);
  std::u16string Title(Hwnd hwnd) const;
  void SetParent(Hwnd hwnd, Hwnd parent);
  void SetMessageHandler(Hwnd hwnd, MessageHandler handler);
  void SetFocusHandler(Hwnd hwnd, FocusHandler handler);
  void SetPlaceHandler(Hwnd hwnd, PlaceHandler handler);
  bool IsTopMost(Hwnd hwnd) const;

  // FindWindow(NULL, title): the first top-level window, in creation order, whose whole title
  // equals `title`; as in Windows the comparison ignores case. 0 when there is none.
  Hwnd FindWindow(std::u16string_view title) const;
  // SetFocus: returns the window that had the focus, or 0 (and changes nothing) when `hwnd` is
  // not a window. The losing and gaining windows' focus handlers run, in that order.
  Hwnd SetFocus(Hwnd hwnd);
  Hwnd GetFocus() const { return focus_; }
  // GetParent: 0 for a top-level window and for a handle that is not a window.
  Hwnd GetParent(Hwnd hwnd) const;
  // PostMessage: false for a handle that is not a window. Recorded; the window's handler gets
  // the message at the next DoEvents.
  bool PostMessage(Hwnd hwnd, int message, std::intptr_t wParam, std::intptr_t lParam);
  const std::vector<PostedMessage>& PostedMessages() const { return posted_; }
  // SendMessage: the window's handler's result, at once; 0 when nothing handles it.
  std::intptr_t SendMessage(Hwnd hwnd, int message, std::intptr_t wParam, std::intptr_t lParam);
  // SetWindowPos: kHwndTopMost / kHwndNoTopMost change the top-most state; without kSwpNoMove
  // or kSwpNoSize the window's place handler moves it. False when `hwnd` is not a window.
  bool SetWindowPos(Hwnd hwnd, Hwnd insertAfter, int x, int y, int cx, int cy, int flags);

  // A toolkit mirrors these to its real windows: the top-most state of a window changed, the
  // focus moved to a window (after the focus handlers ran), a window is being destroyed (a
  // form's or document's once its controls are gone).
  std::function<void(Hwnd)> onTopMostChanged;
  std::function<void(Hwnd)> onFocusChanged;
  std::function<void(Hwnd)> onDestroyed;

 private:
  struct Window {
    std::u16string title;
    Hwnd parent = 0;
    bool topMost = false;
    MessageHandler onMessage;
    FocusHandler onFocus;
    PlaceHandler onPlace;
  };
  Window& At(Hwnd hwnd);

  EventLoop& loop_;
  std::map<Hwnd, Window> windows_;  // handles grow, so this is creation order
  std::vector<PostedMessage> posted_;
  Hwnd focus_ = 0;
  Hwnd next_ = 0x10010;
};

}  // namespace vb
