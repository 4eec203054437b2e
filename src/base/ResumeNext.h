// VB's "On Error Resume Next" for one statement, and the Nothing check that comes with it.
#pragma once

#include <memory>
#include <utility>

#include "runtime/Error.h"

namespace quillmark {

// Runs `statement`; a run-time error is ignored and the caller goes on with its next statement.
// Used exactly where a routine ignores errors: event handlers, show/hide, teardown.
template <class Statement>
void ResumeNext(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
  } catch (const vb::Error&) {
    // Ignored on purpose: the routine continues with its next statement.
  }
}

// The object behind `slot`, or run-time error 91 when the slot is empty (VB's Nothing).
template <class T>
T& Obj(const std::shared_ptr<T>& slot) {
  if (!slot) throw vb::Error::Standard(vb::err::kObjectNotSet);
  return *slot;
}

}  // namespace quillmark
