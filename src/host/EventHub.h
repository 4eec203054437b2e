// host::EventHub: the IDE's event sources (VBE.Events) and the raising of their events.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vbide/Events.h"

namespace host {

// Sources are handed out as shared pointers; the hub keeps only weak references, so a source
// nobody holds any more simply stops receiving. Narrowed sources (one project, one designer)
// get the events of their project or designer; the "all" sources get every event.
class EventHub : public vbide::Events {
 public:
  EventHub();

  vbide::VBProjectsEventsPtr VBProjectsEvents() override { return projects_; }
  vbide::VBComponentsEventsPtr VBComponentsEvents(const vbide::VBProjectPtr& project) override;
  vbide::VBControlsEventsPtr VBControlsEvents(const vbide::VBProjectPtr& project,
                                              const vbide::VBFormPtr& designer) override;
  vbide::CommandBarEventsPtr CommandBarEvents(const vbide::CommandBarControlPtr& control) override;

  // Raising. Components and controls name their project (and designer) so narrowed sources hear
  // only their own.
  const vbide::VBProjectsEvents& Projects() const { return *projects_; }
  void ForComponents(const vbide::VBProject* project,
                     const std::function<void(vbide::VBComponentsEvents&)>& raise);
  void ForControls(const vbide::VBProject* project, const vbide::VBForm* designer,
                   const std::function<void(vbide::VBControlsEvents&)>& raise);
  // Returns true when some source exists for the control (someone listens).
  bool RaiseClick(const vbide::CommandBarControlPtr& control);

 private:
  template <class T>
  struct Narrowed {
    const void* project;   // null: all projects
    const void* designer;  // null: all designers
    std::weak_ptr<T> source;
  };
  template <class T>
  static void Prune(std::vector<Narrowed<T>>& list);

  std::shared_ptr<vbide::VBProjectsEvents> projects_;
  std::vector<Narrowed<vbide::VBComponentsEvents>> components_;
  std::vector<Narrowed<vbide::VBControlsEvents>> controls_;
  std::vector<Narrowed<vbide::CommandBarEvents>> clicks_;  // `project` holds the control
};

}  // namespace host
