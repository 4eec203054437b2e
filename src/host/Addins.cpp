// host::Addins and host::AddIn.
#include "host/Addins.h"

#include "host/Ide.h"

namespace host {

void AddIn::SetConnect(bool connect) {
  auto ide = ide_.lock();
  if (!ide || connect == Connect()) return;
  if (connect)
    ide->ConnectAddIn(progId_, vbide::ext_cm_AfterStartup);
  else
    ide->DisconnectAddIn(progId_, vbide::ext_dm_UserClosed);
}

vbide::AddinsPtr AddIn::Collection() {
  auto ide = ide_.lock();
  return ide ? ide->Addins() : nullptr;
}

vbide::AddInPtr Addins::Item(int index) {
  if (index < 1 || index > Count())
    throw vb::Error::Standard(vb::err::kSubscriptOutOfRange, u"add-in");
  return items_[index - 1];
}

std::shared_ptr<AddIn> Addins::Find(std::u16string_view progId) const {
  for (auto& a : items_)
    if (SameName(a->ProgId(), progId)) return a;
  return nullptr;
}

vbide::AddInPtr Addins::Item(std::u16string_view progId) {
  if (auto a = Find(progId)) return a;
  throw vb::Error::Standard(vb::err::kSubscriptOutOfRange, u"no add-in " + std::u16string(progId));
}

std::vector<vbide::AddInPtr> Addins::Items() {
  return std::vector<vbide::AddInPtr>(items_.begin(), items_.end());
}

}  // namespace host
