// vbide::ClassRegistry: classes a host creates by name (add-in connection classes, tool-window
// documents), the counterpart of COM's registered ProgIDs.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/UserDocument.h"
#include "vbide/Extensibility.h"

namespace vbide {

class ClassRegistry {
 public:
  using AddInFactory = std::function<std::shared_ptr<IDTExtensibility>()>;
  using DocumentFactory = std::function<std::shared_ptr<vb::UserDocument>()>;

  void RegisterAddIn(std::u16string progId, std::u16string description, AddInFactory factory);
  void RegisterDocument(std::u16string progId, DocumentFactory factory);

  // Null when nothing is registered under that name (names ignore case, like ProgIDs).
  std::shared_ptr<IDTExtensibility> CreateAddIn(std::u16string_view progId) const;
  std::shared_ptr<vb::UserDocument> CreateDocument(std::u16string_view progId) const;
  bool HasAddIn(std::u16string_view progId) const;
  std::u16string AddInDescription(std::u16string_view progId) const;
  std::vector<std::u16string> AddInProgIds() const;  // in registration order

 private:
  struct AddInClass {
    std::u16string progId;
    std::u16string description;
    AddInFactory factory;
  };
  const AddInClass* FindAddIn(std::u16string_view progId) const;
  std::vector<AddInClass> addIns_;
  std::vector<std::pair<std::u16string, DocumentFactory>> documents_;
};

}  // namespace vbide
