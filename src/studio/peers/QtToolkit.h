// studio::QtToolkit: the form engine and its runtime services drawn and driven by Qt.
#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "runtime/Runtime.h"
#include "studio/peers/TwipScale.h"

class QWidget;

namespace vb {
class Form;
class FormBase;
class UserDocument;
}  // namespace vb

namespace studio {

class FormWindowPeer;
class LoopDriver;
class QtPlatformDialogs;

struct QtToolkitOptions {
  // The studio runs on the system's clock; a test keeps the runtime's virtual one.
  bool realClock = true;
  // Message boxes shown as QMessageBox; a test answers them through the runtime's script.
  bool showMessageBoxes = true;
};

// While it lives, every form and document created on the runtime gets a window and its
// controls get widgets; message boxes, the common dialogs, the beep, the clipboard, timers,
// posted work and DoEvents go through Qt; the screen is the real one. Destroying it detaches
// everything and leaves the runtime headless again; it must go before the QApplication does.
class QtToolkit : public QObject {
 public:
  QtToolkit(vb::Runtime& runtime, QtToolkitOptions options);
  ~QtToolkit() override;

  vb::Runtime& GetRuntime() const { return runtime_; }
  const TwipScale& Scale() const { return scale_; }
  FormWindowPeer* PeerOf(const vb::FormBase& object) const;

 private:
  void Attach(vb::FormBase& object);
  void MirrorToDesktop();
  void MirrorFromDesktop();
  int ShowMessageBox(const vb::MsgBoxRecord& box);
  FormWindowPeer* PeerOfWindow(vb::Hwnd hwnd) const;

  vb::Runtime& runtime_;
  TwipScale scale_;
  std::unique_ptr<LoopDriver> driver_;
  std::shared_ptr<QtPlatformDialogs> dialogs_;
  std::vector<std::unique_ptr<FormWindowPeer>> peers_;
  int mirroring_ = 0;
};

std::unique_ptr<QtToolkit> AttachQtToolkit(vb::Runtime& runtime, QtToolkitOptions options = {});

// The widgets drawing a document (for the shell's dock) and a form; null without a peer.
QWidget* WidgetOf(vb::UserDocument& document);
QWidget* WidgetOf(vb::Form& form);

}  // namespace studio
