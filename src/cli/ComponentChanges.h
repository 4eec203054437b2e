// cli::ComponentChanges: what an edit made through the Component Viewer changed in one
// component, against a snapshot taken before it: lines of code rewritten or removed, controls
// renamed or removed. And the save of every changed file through the IDE.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "vbide/Fwd.h"

namespace host {
class Ide;
}

namespace cli {

class ComponentChanges {
 public:
  struct Counts {
    int changed = 0;   // lines rewritten
    int removed = 0;   // lines gone
    int added = 0;     // lines that were not there
    int controls = 0;  // controls renamed or removed
    bool Any() const { return changed + removed + added + controls > 0; }
  };

  // Takes the snapshot. `label` names the component in what is printed ("Project/Module").
  ComponentChanges(vbide::VBComponentPtr component, std::string label);

  // Prints "label: control A renamed B" and "label: control A(1) removed", then, in line order,
  // "label:LINE<TAB>before<TAB>after" for a rewritten line, "label:LINE<TAB>text" for a removed
  // one (its number before the edit) and "label:LINE<TAB>+<TAB>text" for an added one.
  Counts Print(std::ostream& out) const;

 private:
  std::vector<std::u16string> Lines() const;
  std::vector<std::u16string> Controls() const;
  void PrintControls(std::ostream& out, Counts& counts) const;
  void PrintLines(std::ostream& out, Counts& counts) const;

  vbide::VBComponentPtr component_;
  std::string label_;
  std::vector<std::u16string> lines_;
  std::vector<std::u16string> controls_;  // "Name", or "Name(Index)" in a control array
};

// Saves every component and project of `ide` that changed, each through the IDE's own save (a
// temporary file renamed over the old one). Prints "saved FILE" for each to `out` and each
// failure to `err`; returns the number of failures.
int SaveChanged(host::Ide& ide, std::ostream& out, std::ostream& err);

}  // namespace cli
