#include "core/form/TimerScheduler.h"

namespace yarvo {

namespace {

// Timers made with no program around (a form built on its own) never tick.
class IdleScheduler final : public TimerScheduler {
 public:
  void Arm(Timer&) override {}
  void Disarm(Timer&) override {}
};

IdleScheduler idle;
TimerScheduler* current = &idle;

}  // namespace

TimerScheduler& TimerScheduler::Current() { return *current; }

TimerScheduler::Use::Use(TimerScheduler& scheduler) : previous_(current) { current = &scheduler; }

TimerScheduler::Use::~Use() { current = previous_; }

}  // namespace yarvo
