// vbide::Windows and vbide::Window: the IDE's windows, and the tool windows add-ins create.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/UserDocument.h"
#include "vbide/Enums.h"
#include "vbide/Fwd.h"

namespace vbide {

class Windows {
 public:
  virtual ~Windows() = default;
  virtual int Count() = 0;
  virtual WindowPtr Item(int index) = 0;  // 1-based
  virtual std::vector<WindowPtr> Items() = 0;
  // Creates a hidden tool window holding a new instance of the document class registered under
  // `progId`; returns the window and, through `document`, the document. `guid` keys the window's
  // remembered docking place. Raises 5 when no document class has that name.
  virtual WindowPtr CreateToolWindow(const AddInPtr& addIn, std::u16string_view progId,
                                     std::u16string_view caption, std::u16string_view guid,
                                     std::shared_ptr<vb::UserDocument>& document) = 0;
};

class Window {
 public:
  virtual ~Window() = default;
  virtual std::u16string Caption() = 0;
  virtual vbext_WindowType Type() = 0;
  virtual bool Visible() = 0;
  virtual void SetVisible(bool visible) = 0;
  // Code and designer windows leave the collection without asking; any other window is hidden.
  virtual void Close() = 0;
  // Makes it the window that receives keystrokes.
  virtual void SetFocus() = 0;
  // A handle the window system calls understand (FindWindow, SetFocus, GetParent ...).
  virtual std::intptr_t HWnd() = 0;
  virtual WindowsPtr Collection() = 0;
};

}  // namespace vbide
