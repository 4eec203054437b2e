// vb::ParseSendKeys: VB's SendKeys syntax turned into keystrokes, and the sink that delivers them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vb {

// One keystroke. `keyCode` is the virtual-key code (0 for a character that has none, such as
// "é"); `shift` holds vbShiftMask / vbCtrlMask / vbAltMask as the modifiers hold it; `character`
// is the literal character typed, 0 for a named key ({END}, ~).
struct KeyStroke {
  int keyCode = 0;
  int shift = 0;
  char16_t character = 0;
  bool operator==(const KeyStroke&) const = default;
};

// Where SendKeys delivers: the host sets one that hands the strokes to its focused window.
class KeySink {
 public:
  virtual ~KeySink() = default;
  // `wait` is SendKeys' Wait argument: return only after the strokes were processed.
  virtual void Deliver(const std::vector<KeyStroke>& strokes, bool wait) = 0;
};

// Until a host sets its own sink, the strokes are kept for inspection.
class RecordingKeySink : public KeySink {
 public:
  void Deliver(const std::vector<KeyStroke>& strokes, bool) override {
    received.insert(received.end(), strokes.begin(), strokes.end());
  }
  std::vector<KeyStroke> received;
};

// "+" Shift, "^" Ctrl, "%" Alt apply to the next key or to a parenthesised group; "~" is Enter;
// "{NAME}" a named key (names ignore case), "{x}" the character x (so "{+}", "{{}", "{}}"),
// "{NAME n}" / "{x n}" repeat n times. Bad syntax (an unknown name, an unclosed brace or
// parenthesis, a modifier with nothing after it) raises error 5 naming the offending text.
std::vector<KeyStroke> ParseSendKeys(std::u16string_view keys);

}  // namespace vb
