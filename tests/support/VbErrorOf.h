// The VB run-time error an action raises, so a table of cases can hold the number expected.
#pragma once

#include "runtime/Error.h"

namespace qmtest {

// The error `action` raises; number 0 when it raises none.
template <typename F>
vb::Error ErrorOf(F&& action) {
  try {
    action();
  } catch (const vb::Error& e) {
    return e;
  }
  return vb::Error(0, u"");
}

template <typename F>
int ErrorNumberOf(F&& action) {
  return ErrorOf(action).Number();
}

}  // namespace qmtest
