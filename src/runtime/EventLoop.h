// vb::EventLoop: posted work, timers, DoEvents, scripted user actions and the modal loop.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string_view>

#include "runtime/Clock.h"

namespace vb {

// Everything runs on one thread, as on the IDE's user-interface thread. Handlers may re-enter
// (a timer tick that calls DoEvents); a timer whose tick is running is not fired again inside it.
class EventLoop {
 public:
  using TimerId = std::uint64_t;
  using Work = std::function<void()>;

  explicit EventLoop(Clock& clock) : clock_(clock) {}
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;

  // Work that runs at the next DoEvents (or modal loop, or clock advance): a posted window
  // message, or a test's "the user clicks Stop while the search runs".
  void Post(Work work);
  std::size_t PendingPosts() const { return posted_.size(); }

  // Scripted user actions; a modal loop takes them one at a time, in order.
  void Script(Work action);
  std::size_t PendingScripted() const { return scripted_.size(); }

  // The first tick comes one interval after the start; each tick schedules the next one interval
  // after itself. `intervalMs` must be positive.
  TimerId StartTimer(int intervalMs, Work tick);
  void StopTimer(TimerId id);
  bool IsTimerRunning(TimerId id) const { return timers_.contains(id); }

  // Runs the work posted before the call and the timers due now, then lets the toolkit (if
  // one is attached) process its own events.
  void DoEvents();
  // DoEvents without the toolkit's part: what a toolkit's own loop calls when work is due.
  void RunPending();
  // When the next timer falls due; none when no timer runs.
  std::optional<Date> NextDue() const;

  // Moves the virtual clock forward by `span`, firing every timer that falls due on the way, in
  // time order (ties in the order the timers were started), with Now set to each tick's time.
  void Advance(std::chrono::milliseconds span);

  // Runs until `stillOpen` turns false: posted work, due timers, then one scripted action at a
  // time. With nothing scripted and the form still open, throws ScriptError naming `formName`.
  void RunModal(const std::function<bool()>& stillOpen, std::u16string_view formName);

  // The studio processes its own pending events here (QCoreApplication::processEvents).
  std::function<void()> pumpToolkit;
  // Called when work is posted or a timer starts, so a toolkit's loop can wake up for it.
  std::function<void()> onScheduleChanged;

 private:
  struct TimerEntry {
    int interval;
    Date due;
    Work tick;
    bool running = false;
  };
  void RunPosted();
  bool FireNextDue(Date limit);

  Clock& clock_;
  std::deque<Work> posted_;
  std::deque<Work> scripted_;
  std::map<TimerId, TimerEntry> timers_;  // ordered by id, which is start order
  TimerId nextTimer_ = 1;
};

}  // namespace vb
