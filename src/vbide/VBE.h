// vbide::VBE: the root of the IDE's object model, handed to an add-in when it connects.
#pragma once

#include <string>

#include "vbide/Fwd.h"

namespace vbide {

class VBE {
 public:
  virtual ~VBE() = default;

  virtual VBProjectsPtr VBProjects() = 0;
  // The project the user is working in; null when no project is loaded.
  virtual VBProjectPtr ActiveVBProject() = 0;
  virtual void SetActiveVBProject(const VBProjectPtr& project) = 0;
  // The component selected in the Project window, or null.
  virtual VBComponentPtr SelectedVBComponent() = 0;
  // The active or last active code pane; null when none was ever shown.
  virtual CodePanePtr ActiveCodePane() = 0;
  virtual void SetActiveCodePane(const CodePanePtr& pane) = 0;
  virtual CodePanesPtr CodePanes() = 0;
  virtual WindowsPtr Windows() = 0;
  virtual WindowPtr MainWindow() = 0;
  // The IDE window that has the focus; null when the main window itself has it.
  virtual WindowPtr ActiveWindow() = 0;
  virtual CommandBarsPtr CommandBars() = 0;
  virtual EventsPtr Events() = 0;
  virtual AddinsPtr Addins() = 0;
  virtual std::u16string Version() = 0;  // "6.00"
};

}  // namespace vbide
