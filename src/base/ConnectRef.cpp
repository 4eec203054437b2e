// quillmark::ConnectRef.
#include "base/ConnectRef.h"

#include "runtime/Error.h"

namespace quillmark {

IConnect& ConnectRef::operator*() const {
  auto slot = slot_.lock();
  if (!slot) throw vb::Error::Standard(vb::err::kObjectNotSet);
  return **slot;
}

bool ConnectRef::Alive() const {
  return !slot_.expired();
}

}  // namespace quillmark
