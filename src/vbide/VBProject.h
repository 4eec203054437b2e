// vbide::VBProjects and vbide::VBProject: the loaded projects, in load order.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vbide/Enums.h"
#include "vbide/Fwd.h"

namespace vbide {

// 1-based. Item raises error 9 for an index or name that is not there; names ignore case.
class VBProjects {
 public:
  virtual ~VBProjects() = default;
  virtual int Count() = 0;
  virtual VBProjectPtr Item(int index) = 0;
  virtual VBProjectPtr Item(std::u16string_view name) = 0;
  virtual std::vector<VBProjectPtr> Items() = 0;  // a snapshot, in collection order
  virtual VBEPtr VBE() = 0;
};

class VBProject {
 public:
  virtual ~VBProject() = default;
  virtual std::u16string Name() = 0;
  virtual void SetName(std::u16string_view name) = 0;  // fires ItemRenamed(project, oldName)
  virtual std::u16string FileName() = 0;  // absolute path of the .vbp; empty when never saved
  virtual vbext_ProjectType Type() = 0;
  virtual bool IsDirty() = 0;
  bool Saved() { return !IsDirty(); }
  // Writes the project file and every changed component, each through a temporary file and a
  // rename: a failure leaves the old file whole and raises 75 or 70 naming the path. Unchanged
  // files and lines are written back byte for byte.
  virtual void SaveAs(std::u16string_view fileName) = 0;
  virtual VBComponentsPtr VBComponents() = 0;
  virtual VBProjectsPtr Collection() = 0;
  virtual int CodePage() = 0;  // the code page its files are read and written in (ours)
};

}  // namespace vbide
