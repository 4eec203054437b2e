// vbide::Members and vbide::Member: the module-level names of a code module.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vbide/Enums.h"
#include "vbide/Fwd.h"

namespace vbide {

// In order of first appearance. Item(name) ignores case and raises 9 when absent.
class Members {
 public:
  virtual ~Members() = default;
  virtual int Count() = 0;
  virtual MemberPtr Item(int index) = 0;  // 1-based
  virtual MemberPtr Item(std::u16string_view name) = 0;
  virtual std::vector<MemberPtr> Items() = 0;
};

class Member {
 public:
  virtual ~Member() = default;
  virtual std::u16string Name() = 0;
  virtual vbext_MemberType Type() = 0;
  virtual vbext_Scope Scope() = 0;
  virtual bool Static() = 0;
  // The line of its declaration; for a property, of its first accessor's statement.
  virtual int CodeLocation() = 0;
};

}  // namespace vbide
