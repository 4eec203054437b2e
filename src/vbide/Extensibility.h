// vbide::IDTExtensibility: the interface an add-in's connection class implements.
#pragma once

#include "vbide/Enums.h"
#include "vbide/Fwd.h"

namespace vbide {

// The IDE calls these on its user-interface thread. VB's `custom()` arrays carry nothing the
// IDE fills in, so they are left out.
class IDTExtensibility {
 public:
  virtual ~IDTExtensibility() = default;
  virtual void OnConnection(const VBEPtr& application, ext_ConnectMode connectMode,
                            const AddInPtr& addInInst) = 0;
  virtual void OnDisconnection(ext_DisconnectMode removeMode) = 0;
  virtual void OnAddInsUpdate() = 0;
  virtual void OnStartupComplete() = 0;
};

}  // namespace vbide
