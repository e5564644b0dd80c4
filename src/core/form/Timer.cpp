#include "core/form/Timer.h"

#include "core/form/Events.h"
#include "core/form/TimerScheduler.h"

namespace yarvo {

Timer::Timer(Form* owner, std::string name, int interval, bool enabled, int index)
    : Control(owner, std::move(name), index), Interval(interval) {
  Visible = false;
  Enabled = enabled;
  Enabled.onChange([this] { Rearm(); });
  Interval.onChange([this] { Rearm(); });
  if (enabled) Rearm();
}

Timer::~Timer() { TimerScheduler::Current().Disarm(*this); }

void Timer::Rearm() {
  auto& scheduler = TimerScheduler::Current();
  if (Enabled && Interval > 0) {
    scheduler.Arm(*this);
  } else {
    scheduler.Disarm(*this);
  }
}

void Timer::Fire() {
  if (!Enabled || !Tick) return;
  RunEvent(Tick);
}

}  // namespace yarvo
