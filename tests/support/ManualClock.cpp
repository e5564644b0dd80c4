#include "support/ManualClock.h"

#include "core/form/Timer.h"

namespace yarvo::test {

void ManualClock::Arm(Timer& timer) {
  Disarm(timer);
  queue_.emplace(Due{now_ + timer.Interval, armed_++}, &timer);
}

void ManualClock::Disarm(Timer& timer) {
  for (auto it = queue_.begin(); it != queue_.end(); ++it) {
    if (it->second == &timer) {
      queue_.erase(it);
      return;
    }
  }
}

bool ManualClock::Armed(const Timer& timer) const {
  for (const auto& [due, armed] : queue_) {
    if (armed == &timer) return true;
  }
  return false;
}

void ManualClock::Advance(std::int64_t ms) {
  const std::int64_t end = now_ + ms;
  while (!queue_.empty() && queue_.begin()->first.at <= end) {
    auto first = queue_.begin();
    Timer* timer = first->second;
    now_ = first->first.at;
    queue_.erase(first);
    // The next countdown starts before the tick runs, as a periodic timer's
    // does; a tick that disables or re-arms its timer overrides it.
    queue_.emplace(Due{now_ + timer->Interval, armed_++}, timer);
    timer->Fire();
  }
  now_ = end;
}

}  // namespace yarvo::test
