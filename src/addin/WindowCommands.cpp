// Close All Windows and Clear Debug Window.
#include "addin/WindowCommands.h"

#include "vbide/Window.h"

namespace quillmark {

void CloseAllWindows(vbide::VBE& vbe) {
  for (auto& window : vbe.Windows()->Items()) {
    int type = window->Type();
    if (type == vbide::vbext_wt_CodeWindow || type == vbide::vbext_wt_Designer) window->Close();
  }
}

void ClearDebugWindow(vbide::VBE& vbe, vb::Runtime& runtime) {
  // The walk does not stop at the first Immediate window.
  for (auto& window : vbe.Windows()->Items()) {
    if (window->Type() != vbide::vbext_wt_Immediate || !window->Visible()) continue;
    // The keys go to whatever has the focus when they are processed: focus it right before.
    window->SetFocus();
    runtime.DoEvents();
    runtime.SendKeys(u"^{END}", true);
    runtime.SendKeys(u"+^{HOME}", true);
    runtime.SendKeys(u"{DEL}", true);
    vbe.MainWindow()->SetFocus();
  }
}

}  // namespace quillmark
