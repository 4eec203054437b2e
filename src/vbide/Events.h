// vbide::Events and the event sources it hands out.
#pragma once

#include <string>

#include "vbide/Event.h"
#include "vbide/Fwd.h"

namespace vbide {

// Timing: Added after the item is in its collection; Removed after it left it (the object is
// still valid for the handler); Renamed after the new name is set; Selected when the Project
// window's selection changes; Activated when the item's window becomes active or the active
// project changes.
class VBProjectsEvents {
 public:
  Event<VBProjectPtr> ItemAdded;
  Event<VBProjectPtr> ItemRemoved;
  Event<VBProjectPtr, std::u16string> ItemRenamed;  // project, old name
  Event<VBProjectPtr> ItemActivated;
};

class VBComponentsEvents {
 public:
  Event<VBComponentPtr> ItemAdded;
  Event<VBComponentPtr> ItemRemoved;
  Event<VBComponentPtr, std::u16string> ItemRenamed;  // component, old name
  Event<VBComponentPtr> ItemSelected;
  Event<VBComponentPtr> ItemActivated;
  Event<VBComponentPtr> ItemReloaded;
};

class VBControlsEvents {
 public:
  Event<VBControlPtr> ItemAdded;
  Event<VBControlPtr> ItemRemoved;
  Event<VBControlPtr, std::u16string, int> ItemRenamed;  // control, old name, old index
};

// Click fires when the user clicks a button or menu item, or commits a combo box (Enter in it, or
// an entry picked). The handler may set `handled` and `cancelDefault`.
class CommandBarEvents {
 public:
  Event<CommandBarControlPtr, bool&, bool&> Click;
};

class Events {
 public:
  virtual ~Events() = default;
  virtual VBProjectsEventsPtr VBProjectsEvents() = 0;
  // Events of one project's components, or of every project's with a null project.
  virtual VBComponentsEventsPtr VBComponentsEvents(const VBProjectPtr& project) = 0;
  // Narrowed by project and designer; null for either means all.
  virtual VBControlsEventsPtr VBControlsEvents(const VBProjectPtr& project,
                                               const VBFormPtr& designer) = 0;
  // The source of one control's Click; keep it alive for as long as clicks are wanted.
  virtual CommandBarEventsPtr CommandBarEvents(const CommandBarControlPtr& control) = 0;
};

}  // namespace vbide
