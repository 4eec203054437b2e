// vbide::Event: a VB-style event of the IDE's object model, with subscriptions that end with
// their token (the counterpart of releasing a WithEvents sink).
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vbide {

// Ends a subscription when destroyed or reset. Move-only.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
  Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    if (this != &other) {
      Reset();
      cancel_ = std::exchange(other.cancel_, nullptr);
    }
    return *this;
  }
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  ~Subscription() { Reset(); }

  void Reset() {
    if (auto cancel = std::exchange(cancel_, nullptr)) cancel();
  }
  bool Active() const { return static_cast<bool>(cancel_); }

 private:
  std::function<void()> cancel_;
};

// Handlers run synchronously in subscription order. A handler may subscribe, unsubscribe or raise
// events again (it may pump DoEvents): a handler removed during a raise is not called afterwards,
// and one added during a raise is called from the next raise on.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  Event() : state_(std::make_shared<State>()) {}
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  [[nodiscard]] Subscription Subscribe(Handler handler) {
    auto id = ++state_->nextId;
    state_->slots.push_back({id, std::make_shared<Handler>(std::move(handler))});
    std::weak_ptr<State> weak = state_;
    return Subscription([weak, id] {
      if (auto state = weak.lock())
        std::erase_if(state->slots, [id](auto& s) { return s.id == id; });
    });
  }

  void Raise(Args... args) const {
    auto snapshot = state_->slots;  // handlers may change the list while we walk it
    for (auto& slot : snapshot) {
      if (!Subscribed(slot.id)) continue;
      (*slot.handler)(args...);
    }
  }

  std::size_t SubscriberCount() const { return state_->slots.size(); }

 private:
  struct Slot {
    std::uint64_t id;
    std::shared_ptr<Handler> handler;
  };
  struct State {
    std::uint64_t nextId = 0;
    std::vector<Slot> slots;
  };
  bool Subscribed(std::uint64_t id) const {
    for (auto& s : state_->slots)
      if (s.id == id) return true;
    return false;
  }
  std::shared_ptr<State> state_;
};

}  // namespace vbide
