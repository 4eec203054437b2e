// The event loop: posted work, virtual-time timers, DoEvents and the headless modal loop.
#include "runtime/EventLoop.h"

#include <utility>

#include "runtime/Error.h"
#include "runtime/ScriptError.h"
#include "runtime/Utf.h"

namespace vb {

void EventLoop::Post(Work work) {
  posted_.push_back(std::move(work));
  if (onScheduleChanged) onScheduleChanged();
}

void EventLoop::Script(Work action) {
  scripted_.push_back(std::move(action));
}

EventLoop::TimerId EventLoop::StartTimer(int intervalMs, Work tick) {
  if (intervalMs <= 0) throw Error::Standard(err::kInvalidProcedureCall, u"timer interval");
  auto id = nextTimer_++;
  timers_.emplace(id, TimerEntry{intervalMs, clock_.Now() + std::chrono::milliseconds(intervalMs),
                                 std::move(tick)});
  if (onScheduleChanged) onScheduleChanged();
  return id;
}

void EventLoop::StopTimer(TimerId id) {
  timers_.erase(id);
}

void EventLoop::RunPosted() {
  // Only what was posted before we started: work that posts itself again waits for the next
  // round instead of spinning here for ever.
  auto count = posted_.size();
  for (std::size_t i = 0; i < count && !posted_.empty(); ++i) {
    auto work = std::move(posted_.front());
    posted_.pop_front();
    work();
  }
}

bool EventLoop::FireNextDue(Date limit) {
  auto next = timers_.end();
  for (auto it = timers_.begin(); it != timers_.end(); ++it) {
    if (it->second.running || it->second.due > limit) continue;
    if (next == timers_.end() || it->second.due < next->second.due) next = it;
  }
  if (next == timers_.end()) return false;
  auto id = next->first;
  auto& entry = next->second;
  if (clock_.IsVirtual() && entry.due > clock_.Now()) clock_.AdvanceTo(entry.due);
  entry.due = clock_.Now() + std::chrono::milliseconds(entry.interval);
  entry.running = true;
  auto tick = entry.tick;  // the tick may stop (erase) its own timer
  tick();
  if (auto it = timers_.find(id); it != timers_.end()) it->second.running = false;
  return true;
}

void EventLoop::DoEvents() {
  RunPending();
  if (pumpToolkit) pumpToolkit();
}

void EventLoop::RunPending() {
  RunPosted();
  auto now = clock_.Now();
  // Each timer at most once per call: a fired timer's next tick lies after `now`.
  while (FireNextDue(now)) {
  }
}

std::optional<Date> EventLoop::NextDue() const {
  std::optional<Date> next;
  for (const auto& [id, entry] : timers_) {
    if (!entry.running && (!next || entry.due < *next)) next = entry.due;
  }
  return next;
}

void EventLoop::Advance(std::chrono::milliseconds span) {
  auto target = clock_.Now() + span;
  RunPosted();
  while (FireNextDue(target)) RunPosted();
  clock_.AdvanceTo(target);
}

void EventLoop::RunModal(const std::function<bool()>& stillOpen, std::u16string_view formName) {
  while (stillOpen()) {
    DoEvents();
    if (!stillOpen()) return;
    if (scripted_.empty()) {
      throw ScriptError("modal form '" + ToUtf8(formName) +
                        "' is waiting for the user, and no user action is scripted");
    }
    auto action = std::move(scripted_.front());
    scripted_.pop_front();
    action();
  }
}

}  // namespace vb
