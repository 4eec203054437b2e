// host::Liveness: lets an object of the embedded IDE outlive its removal and raise error 91
// when it is used afterwards, as a COM reference to a removed IDE object does.
#pragma once

#include <string>
#include <string_view>

#include "runtime/Error.h"

namespace host {

class Liveness {
 public:
  bool Alive() const { return alive_; }
  void MarkRemoved() { alive_ = false; }

 protected:
  // `kind` and `name` name the object in the error ("component Form1"). Called on every
  // getter, so the text is put together only when the check fails.
  void CheckAlive(std::u16string_view kind, std::u16string_view name = {}) const {
    if (!alive_) [[unlikely]]
      Removed(kind, name);
  }

 private:
  [[noreturn]] static void Removed(std::u16string_view kind, std::u16string_view name);

  bool alive_ = true;
};

// Case-insensitive equality of VB identifiers and names.
bool SameName(std::u16string_view a, std::u16string_view b);

}  // namespace host
