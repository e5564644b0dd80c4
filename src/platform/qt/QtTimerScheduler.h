#pragma once
// Drives the form models' timers from the Qt event loop: one QTimer per
// armed timer. Each tick runs as an event of its own (QtEvents::Dispatch).

#include <QTimer>

#include <memory>
#include <unordered_map>

#include "core/form/TimerScheduler.h"

namespace yarvo {

class QtTimerScheduler final : public TimerScheduler {
 public:
  void Arm(Timer& timer) override;
  void Disarm(Timer& timer) override;

 private:
  std::unordered_map<Timer*, QTimer*> timers_;
};

}  // namespace yarvo
