// host::EventHub.
#include "host/EventHub.h"

#include <algorithm>

namespace host {

EventHub::EventHub() : projects_(std::make_shared<vbide::VBProjectsEvents>()) {}

template <class T>
void EventHub::Prune(std::vector<Narrowed<T>>& list) {
  std::erase_if(list, [](const Narrowed<T>& n) { return n.source.expired(); });
}

vbide::VBComponentsEventsPtr EventHub::VBComponentsEvents(const vbide::VBProjectPtr& project) {
  Prune(components_);
  auto source = std::make_shared<vbide::VBComponentsEvents>();
  components_.push_back({project.get(), nullptr, source});
  return source;
}

vbide::VBControlsEventsPtr EventHub::VBControlsEvents(const vbide::VBProjectPtr& project,
                                                      const vbide::VBFormPtr& designer) {
  Prune(controls_);
  auto source = std::make_shared<vbide::VBControlsEvents>();
  controls_.push_back({project.get(), designer.get(), source});
  return source;
}

vbide::CommandBarEventsPtr EventHub::CommandBarEvents(const vbide::CommandBarControlPtr& control) {
  Prune(clicks_);
  auto source = std::make_shared<vbide::CommandBarEvents>();
  clicks_.push_back({control.get(), nullptr, source});
  return source;
}

void EventHub::ForComponents(const vbide::VBProject* project,
                             const std::function<void(vbide::VBComponentsEvents&)>& raise) {
  // Collect first: a handler may subscribe new sources while we raise.
  std::vector<std::shared_ptr<vbide::VBComponentsEvents>> targets;
  for (auto& n : components_)
    if (auto s = n.source.lock(); s && (!n.project || n.project == project)) targets.push_back(s);
  for (auto& s : targets) raise(*s);
}

void EventHub::ForControls(const vbide::VBProject* project, const vbide::VBForm* designer,
                           const std::function<void(vbide::VBControlsEvents&)>& raise) {
  std::vector<std::shared_ptr<vbide::VBControlsEvents>> targets;
  for (auto& n : controls_) {
    auto s = n.source.lock();
    if (!s) continue;
    if (n.project && n.project != project) continue;
    if (n.designer && n.designer != designer) continue;
    targets.push_back(s);
  }
  for (auto& s : targets) raise(*s);
}

bool EventHub::RaiseClick(const vbide::CommandBarControlPtr& control) {
  std::vector<std::shared_ptr<vbide::CommandBarEvents>> targets;
  for (auto& n : clicks_)
    if (auto s = n.source.lock(); s && n.project == control.get()) targets.push_back(s);
  bool handled = false;
  bool cancelDefault = false;
  for (auto& s : targets) s->Click.Raise(control, handled, cancelDefault);
  return !targets.empty();
}

}  // namespace host
