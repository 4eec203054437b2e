// Name comparison for the embedded IDE: identifiers ignore case, as VB's do.
#include "host/Liveness.h"

#include "runtime/CaseFold.h"

namespace host {

bool SameName(std::u16string_view a, std::u16string_view b) {
  return vb::EqualsText(a, b);
}

}  // namespace host
