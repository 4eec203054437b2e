// host::Members and host::Member: a snapshot of a module's members, rebuilt after edits.
#pragma once

#include <memory>
#include <vector>

#include "host/CodeIndex.h"
#include "vbide/Member.h"

namespace host {

class Member final : public vbide::Member {
 public:
  explicit Member(MemberInfo info) : info_(std::move(info)) {}
  std::u16string Name() override { return info_.name; }
  vbide::vbext_MemberType Type() override { return info_.type; }
  vbide::vbext_Scope Scope() override { return info_.scope; }
  bool Static() override { return info_.isStatic; }
  int CodeLocation() override { return info_.codeLocation; }

 private:
  MemberInfo info_;
};

class Members final : public vbide::Members {
 public:
  explicit Members(std::vector<MemberInfo> infos);
  int Count() override { return static_cast<int>(items_.size()); }
  vbide::MemberPtr Item(int index) override;
  vbide::MemberPtr Item(std::u16string_view name) override;
  std::vector<vbide::MemberPtr> Items() override { return items_; }

 private:
  std::vector<vbide::MemberPtr> items_;
};

}  // namespace host
