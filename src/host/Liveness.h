// host::Liveness: lets an object of the embedded IDE outlive its removal and raise error 91
// when it is used afterwards, as a COM reference to a removed IDE object does.
#pragma once

#include <string>

#include "runtime/Error.h"

namespace host {

class Liveness {
 public:
  bool Alive() const { return alive_; }
  void MarkRemoved() { alive_ = false; }

 protected:
  // `what` names the object in the error ("component Form1").
  void CheckAlive(const std::u16string& what) const {
    if (!alive_) throw vb::Error::Standard(vb::err::kObjectNotSet, what + u" was removed");
  }

 private:
  bool alive_ = true;
};

// Case-insensitive equality of VB identifiers and names.
bool SameName(std::u16string_view a, std::u16string_view b);

}  // namespace host
