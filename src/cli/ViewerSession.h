// cli::ViewerSession: the add-in connected to the embedded IDE holding FILE, its Component Viewer
// open, and the component named by --component selected in the Project window; the viewer is
// then driven through its controls as a user would.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "cli/Args.h"
#include "composition/Composition.h"
#include "vbide/Fwd.h"
#include "viewer/docListView.h"

namespace cli {

// The options members, rename and delete share.
inline const std::set<std::string> kViewerOptions = {"component", "codepage", "config-dir"};

class ViewerSession {
 public:
  struct Row {
    std::u16string key, text, icon;
  };

  // Opens FILE, connects the add-in, opens the Component Viewer from its menu and selects the
  // component. Problems loading FILE go to `err`; usage errors (no FILE, no such component)
  // throw UsageError.
  ViewerSession(const Args& args, std::ostream& err);
  ~ViewerSession();

  quillmark::docListView& Viewer() const;
  composition::Desk& GetDesk() const { return *desk_; }
  const vbide::VBComponentPtr& Component() const { return component_; }
  const vbide::VBProjectPtr& Project() const { return project_; }
  // "Project/Module" with the names as the IDE holds them.
  const std::string& Label() const { return label_; }
  int LoadProblems() const { return loadProblems_; }

  // Types `text` into the view selector and presses Enter.
  void Show(const std::u16string& text);
  std::vector<Row> Rows() const;
  // Selects the row with `key`, as the arrow keys do: no Click, so a control row does not bring
  // its control to the front and the form's layout stays as it is. False when there is none.
  bool SelectRow(std::u16string_view key);
  // The right button on the list, then the popup menu's item.
  void PopupCommand(std::u16string_view menu);

  // The row --member NAME or --control NAME[(INDEX)] names (names ignore case, as in VB), shown
  // in a view that lists it: a member in the first of its kind's views, a control in
  // "(Controls)". Selects it and returns its key; Refused when there is no such row.
  struct Target {
    std::u16string key;
    std::string name;  // as the option gave it
    bool control = false;
  };
  Target SelectTarget(const Args& args);
  // Runs an edit the viewer makes, then saves what changed unless --dry-run. A Refused edit is
  // printed with "nothing was saved". The command's exit status.
  int EditAndSave(const Args& args, std::ostream& out, std::ostream& err,
                  const std::function<void()>& edit);

 private:
  std::unique_ptr<composition::Desk> desk_;
  vbide::VBProjectPtr project_;
  vbide::VBComponentPtr component_;
  std::string label_;
  int loadProblems_ = 0;
};

// What the user asked for cannot be done: printed with "nothing was saved", exit status 1.
struct Refused : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A name VB accepts for a control or procedure: a letter first, then letters, digits or "_".
// Characters beyond ASCII count as letters (VB in a double-byte locale takes them), as long as
// the project's code page can write them; `why` says what is wrong otherwise.
bool IsVbName(std::u16string_view name, int codePage, std::string& why);

}  // namespace cli
