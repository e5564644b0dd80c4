#pragma once
// What drives the timers of the form models.
//
// Arm starts (or restarts) a timer's countdown from now with its Interval;
// when it runs out the scheduler calls Timer::Fire and starts the next
// countdown. Disarm stops it; it is safe for a timer that is not armed. All on
// the interface thread.

namespace yarvo {

class Timer;

class TimerScheduler {
 public:
  virtual ~TimerScheduler() = default;
  virtual void Arm(Timer& timer) = 0;
  virtual void Disarm(Timer& timer) = 0;

  // The scheduler of the running program; set for its lifetime by Use.
  static TimerScheduler& Current();

  // Makes `scheduler` the current one while the guard lives.
  class Use {
   public:
    explicit Use(TimerScheduler& scheduler);
    ~Use();
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

   private:
    TimerScheduler* previous_;
  };
};

}  // namespace yarvo
