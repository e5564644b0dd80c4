#pragma once
// A TimerScheduler for tests: time stands still until the test advances it,
// and then every due tick fires in deadline order (ties in the order the
// timers were armed), each as an event of its own.

#include <cstdint>
#include <map>
#include <utility>

#include "core/form/TimerScheduler.h"

namespace yarvo::test {

class ManualClock final : public TimerScheduler {
 public:
  void Arm(Timer& timer) override;
  void Disarm(Timer& timer) override;

  // Moves time forward by `ms`, firing every tick that falls due.
  void Advance(std::int64_t ms);
  std::int64_t Now() const { return now_; }
  bool Armed(const Timer& timer) const;

 private:
  struct Due {
    std::int64_t at;
    std::uint64_t order;
    bool operator<(const Due& other) const {
      return std::pair(at, order) < std::pair(other.at, other.order);
    }
  };

  std::int64_t now_ = 0;
  std::uint64_t armed_ = 0;
  std::map<Due, Timer*> queue_;
};

}  // namespace yarvo::test
