// vb::Clipboard: the system clipboard as VB's Clipboard object sees it (text or a picture).
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "runtime/Picture.h"

namespace vb {

// One clipboard is shared by the form engine and the host (command-bar faces are pasted from it).
// A toolkit may observe changes to mirror them to the desktop's clipboard.
class Clipboard {
 public:
  void Clear();
  void SetText(std::u16string text);
  void SetData(Picture picture);  // replaces whatever the clipboard held

  std::optional<std::u16string> GetText() const { return text_; }
  std::optional<Picture> GetData() const { return picture_; }

  std::function<void()> onChange;  // called after every change

 private:
  void Changed() const {
    if (onChange) onChange();
  }
  std::optional<std::u16string> text_;
  std::optional<Picture> picture_;
};

inline void Clipboard::Clear() {
  text_.reset();
  picture_.reset();
  Changed();
}
inline void Clipboard::SetText(std::u16string text) {
  picture_.reset();
  text_ = std::move(text);
  Changed();
}
inline void Clipboard::SetData(Picture picture) {
  text_.reset();
  picture_ = std::move(picture);
  Changed();
}

}  // namespace vb
