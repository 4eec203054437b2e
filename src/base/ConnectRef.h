// quillmark::ConnectRef: how documents and dialogs reach the connection. The connection may be
// gone (disconnected, or unloaded in the Add-In Manager) while a tool window it made is still on
// screen; the reference knows, and using it then raises run-time error 91 as VB would for an
// object variable set to Nothing.
#pragma once

#include <memory>

#include "base/IConnect.h"

namespace quillmark {

class ConnectRef {
 public:
  ConnectRef() = default;

  // The connection, or run-time error 91 when it is gone (or was never set).
  IConnect& operator*() const;
  IConnect* operator->() const { return &**this; }
  mdlMain& Main() const { return (**this).Main(); }
  bool Alive() const;

 private:
  friend class ConnectAnchor;
  explicit ConnectRef(std::weak_ptr<IConnect* const> slot) : slot_(std::move(slot)) {}

  std::weak_ptr<IConnect* const> slot_;
};

// Held by the connection: hands out references, and cuts them all at disconnection (and when
// the connection is destroyed).
class ConnectAnchor {
 public:
  explicit ConnectAnchor(IConnect& target) : slot_(std::make_shared<IConnect* const>(&target)) {}
  ConnectRef Ref() const { return ConnectRef(slot_); }
  void Release() { slot_.reset(); }

 private:
  std::shared_ptr<IConnect* const> slot_;
};

}  // namespace quillmark
