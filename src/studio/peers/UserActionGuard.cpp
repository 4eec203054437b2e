// Errors that escape a user's action are shown in a message box, never thrown into Qt.
#include "studio/peers/UserActionGuard.h"

#include "runtime/Error.h"
#include "runtime/Utf.h"

namespace studio {

void GuardUserAction(vb::Runtime& runtime, const std::function<void()>& action) {
  try {
    action();
  } catch (const vb::Error& error) {
    runtime.ReportError(error);
  } catch (const std::exception& error) {
    runtime.ReportError(vb::Error(51, u"Internal error: " + vb::FromUtf8(error.what())));
  }
}

}  // namespace studio
