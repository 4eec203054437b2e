// vbide::VBComponents and vbide::VBComponent: a project's components in project-file order.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vbide/Enums.h"
#include "vbide/Fwd.h"

namespace vbide {

// 1-based. Item raises error 9 for an index or name that is not there; names ignore case.
class VBComponents {
 public:
  virtual ~VBComponents() = default;
  virtual int Count() = 0;
  virtual VBComponentPtr Item(int index) = 0;
  virtual VBComponentPtr Item(std::u16string_view name) = 0;
  virtual std::vector<VBComponentPtr> Items() = 0;  // a snapshot, in collection order
  // Adds a new, never-saved component of that type (Module1, Class1, Form1 ...); fires ItemAdded.
  virtual VBComponentPtr Add(vbext_ComponentType type) = 0;
  // Removes the component; fires ItemRemoved. The object stays valid to hold; using it raises 91.
  virtual void Remove(const VBComponentPtr& component) = 0;
  virtual VBProjectPtr Parent() = 0;
};

class VBComponent {
 public:
  virtual ~VBComponent() = default;
  virtual std::u16string Name() = 0;
  virtual void SetName(std::u16string_view name) = 0;  // fires ItemRenamed(component, oldName)
  virtual vbext_ComponentType Type() = 0;
  // Null for components without code (resource files, related documents).
  virtual CodeModulePtr CodeModule() = 0;
  // The designer for forms, user controls, property pages, user documents and designers; else null.
  virtual VBFormPtr Designer() = 0;
  virtual bool IsDirty() = 0;
  virtual int FileCount() = 0;
  // 1-based: the module file, then its binary companion if any. Absolute paths.
  virtual std::u16string FileNames(int index) = 0;
  virtual void SaveAs(std::u16string_view fileName) = 0;
  // Shows the designer window when there is a designer, else the code window; fires ItemActivated.
  virtual void Activate() = 0;
  virtual WindowPtr DesignerWindow() = 0;  // null without a designer
  virtual VBComponentsPtr Collection() = 0;
};

}  // namespace vbide
