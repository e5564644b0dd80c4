#include "platform/qt/QtTimerScheduler.h"

#include "core/form/Timer.h"
#include "platform/qt/QtEvents.h"

namespace yarvo {

void QtTimerScheduler::Arm(Timer& timer) {
  Disarm(timer);
  auto* qtimer = new QTimer();  // owned by timers_; freed by deleteLater in Disarm
  // Short intervals (the visualisation's 25 ms) need the precise timer; the
  // coarse one may be 5 % late.
  qtimer->setTimerType(timer.Interval < 100 ? Qt::PreciseTimer : Qt::CoarseTimer);
  QObject::connect(qtimer, &QTimer::timeout,
                   [&timer] { QtEvents::Dispatch([&timer] { timer.Fire(); }); });
  qtimer->start(timer.Interval);
  timers_[&timer] = qtimer;
}

void QtTimerScheduler::Disarm(Timer& timer) {
  const auto found = timers_.find(&timer);
  if (found == timers_.end()) return;
  // A timer may be disarmed from inside its own tick: the QTimer must outlive
  // the signal that is being delivered.
  found->second->stop();
  found->second->disconnect();
  found->second->deleteLater();
  timers_.erase(found);
}

}  // namespace yarvo
