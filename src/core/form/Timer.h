#pragma once
// A timer of a form model: Interval in milliseconds, Enabled, and the handler
// that each tick runs.
//
// A timer does not count time itself. Enabling it, or changing its interval
// while enabled, hands it to the program's TimerScheduler, which restarts its
// countdown; the app's scheduler is driven by the event loop, the tests' by a
// manual clock.

#include <functional>
#include <vector>

#include "core/form/Control.h"

namespace yarvo {

class Timer : public Control {
 public:
  Timer(Form* owner, std::string name, int interval, bool enabled, int index = -1);
  ~Timer() override;

  Property<int> Interval;
  // The tick handler ("Timer" event).
  std::function<void()> Tick;

  // A quiet timer's tick depends on the forms' properties and lists alone
  // and changes nothing else. A tick of it that changed nothing would change
  // nothing again until something it read changes, so the timer sleeps till
  // then: an idle program does not wake for it. It ticks again at most one
  // interval after the change.
  bool Quiet = false;

  // Called by the scheduler when the countdown ran out: one tick, run as an
  // event of its own.
  void Fire();

 private:
  void Rearm();
  void Sleep(std::vector<const void*> reads);
};

}  // namespace yarvo
