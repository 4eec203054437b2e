// vbide::ClassRegistry.
#include "vbide/ClassRegistry.h"

#include <algorithm>

namespace vbide {
namespace {

bool SameName(std::u16string_view a, std::u16string_view b) {
  auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? char16_t(c + 32) : c; };
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(),
                    [&](char16_t x, char16_t y) { return lower(x) == lower(y); });
}

}  // namespace

void ClassRegistry::RegisterAddIn(std::u16string progId, std::u16string description,
                                  AddInFactory factory) {
  addIns_.push_back({std::move(progId), std::move(description), std::move(factory)});
}

void ClassRegistry::RegisterDocument(std::u16string progId, DocumentFactory factory) {
  documents_.emplace_back(std::move(progId), std::move(factory));
}

const ClassRegistry::AddInClass* ClassRegistry::FindAddIn(std::u16string_view progId) const {
  for (auto& c : addIns_)
    if (SameName(c.progId, progId)) return &c;
  return nullptr;
}

std::shared_ptr<IDTExtensibility> ClassRegistry::CreateAddIn(std::u16string_view progId) const {
  auto* c = FindAddIn(progId);
  return c ? c->factory() : nullptr;
}

std::shared_ptr<vb::UserDocument> ClassRegistry::CreateDocument(std::u16string_view progId) const {
  for (auto& [name, factory] : documents_)
    if (SameName(name, progId)) return factory();
  return nullptr;
}

bool ClassRegistry::HasAddIn(std::u16string_view progId) const {
  return FindAddIn(progId) != nullptr;
}

std::u16string ClassRegistry::AddInDescription(std::u16string_view progId) const {
  auto* c = FindAddIn(progId);
  return c ? c->description : std::u16string();
}

std::vector<std::u16string> ClassRegistry::AddInProgIds() const {
  std::vector<std::u16string> ids;
  for (auto& c : addIns_) ids.push_back(c.progId);
  return ids;
}

}  // namespace vbide
