// vbide::Addins and vbide::AddIn: the add-ins the IDE knows, by their class names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vbide/Fwd.h"

namespace vbide {

class Addins {
 public:
  virtual ~Addins() = default;
  virtual int Count() = 0;
  virtual AddInPtr Item(int index) = 0;                   // 1-based
  virtual AddInPtr Item(std::u16string_view progId) = 0;  // raises 9 when absent
  virtual std::vector<AddInPtr> Items() = 0;
};

class AddIn {
 public:
  virtual ~AddIn() = default;
  virtual std::u16string ProgId() = 0;  // "QuillmarkTools.Connect"
  virtual std::u16string Description() = 0;
  virtual bool Connect() = 0;  // currently connected
  // Connects (mode ext_cm_AfterStartup) or disconnects (ext_dm_UserClosed) the add-in.
  virtual void SetConnect(bool connect) = 0;
  virtual AddinsPtr Collection() = 0;
};

}  // namespace vbide
