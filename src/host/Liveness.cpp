// Name comparison for the embedded IDE: identifiers ignore case, as VB's do.
#include "host/Liveness.h"

#include "runtime/CaseFold.h"

namespace host {

void Liveness::Removed(std::u16string_view kind, std::u16string_view name) {
  std::u16string what(kind);
  if (!name.empty()) what.append(u" ").append(name);
  throw vb::Error::Standard(vb::err::kObjectNotSet, what + u" was removed");
}

bool SameName(std::u16string_view a, std::u16string_view b) {
  return vb::EqualsText(a, b);
}

}  // namespace host
