// host::CreateIdeFor.
#include "host/RuntimeBridge.h"

#include "runtime/SendKeys.h"

namespace host {
namespace {

constexpr int kShiftMask = 1, kCtrlMask = 2, kAltMask = 4;

// SendKeys lands in whichever IDE window has the focus when the keys are processed.
class IdeKeySink final : public vb::KeySink {
 public:
  explicit IdeKeySink(std::weak_ptr<Ide> ide) : ide_(std::move(ide)) {}
  void Deliver(const std::vector<vb::KeyStroke>& strokes, bool) override {
    auto ide = ide_.lock();
    if (!ide) return;
    std::vector<KeyStroke> keys;
    for (auto& s : strokes) {
      KeyStroke k;
      k.shift = s.shift & kShiftMask;
      k.ctrl = s.shift & kCtrlMask;
      k.alt = s.shift & kAltMask;
      if (s.character != 0 && !k.ctrl && !k.alt)
        k.character = s.character;
      else
        k.keyCode = s.keyCode;
      keys.push_back(k);
    }
    ide->SendKeyStrokes(keys);
  }

 private:
  std::weak_ptr<Ide> ide_;
};

}  // namespace

std::shared_ptr<Ide> CreateIdeFor(const std::shared_ptr<vb::Runtime>& runtime,
                                  std::shared_ptr<const vbide::ClassRegistry> classes,
                                  int codePage) {
  auto clipboard = std::make_shared<vb::Clipboard>();
  runtime->SetClipboard(clipboard);
  vb::Runtime* rt = runtime.get();
  auto ide =
      Ide::Create({.clipboard = clipboard,
                   .classes = std::move(classes),
                   .codePage = codePage,
                   .windowSystem = &runtime->Windows(),
                   .reportAddInError = [rt](const std::u16string& text) { rt->MsgBox(text, 16); }});
  runtime->SetKeySink(std::make_shared<IdeKeySink>(ide));
  return ide;
}

}  // namespace host
