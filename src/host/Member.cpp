// host::Members.
#include "host/Member.h"

#include "host/Liveness.h"
#include "runtime/Error.h"

namespace host {

Members::Members(std::vector<MemberInfo> infos) {
  items_.reserve(infos.size());
  for (auto& info : infos) items_.push_back(std::make_shared<Member>(std::move(info)));
}

vbide::MemberPtr Members::Item(int index) {
  if (index < 1 || index > Count())
    throw vb::Error::Standard(vb::err::kSubscriptOutOfRange, u"member");
  return items_[index - 1];
}

vbide::MemberPtr Members::Item(std::u16string_view name) {
  for (auto& m : items_)
    if (SameName(m->Name(), name)) return m;
  throw vb::Error::Standard(vb::err::kSubscriptOutOfRange,
                            u"no member named " + std::u16string(name));
}

}  // namespace host
