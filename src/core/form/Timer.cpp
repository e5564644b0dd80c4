#include "core/form/Timer.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "core/form/Events.h"
#include "core/form/TimerScheduler.h"

namespace yarvo {

namespace {

// The quiet timers asleep, and the places each waits on. Interface thread
// only, like every model.
struct Sleepers {
  std::unordered_multimap<const void*, Timer*> byPlace;
  std::unordered_map<Timer*, std::vector<const void*>> places;

  void Add(Timer* timer, std::vector<const void*> reads) {
    for (const void* place : reads) byPlace.emplace(place, timer);
    places[timer] = std::move(reads);
  }
  bool Remove(Timer* timer) {
    const auto found = places.find(timer);
    if (found == places.end()) return false;
    for (const void* place : found->second) {
      auto [first, last] = byPlace.equal_range(place);
      for (auto it = first; it != last;) it = it->second == timer ? byPlace.erase(it) : ++it;
    }
    places.erase(found);
    return true;
  }
};

Sleepers& sleepers() {
  static Sleepers all;
  return all;
}

class Recorder final : public detail::ReadRecorder {
 public:
  void Read(const void* place) override { reads.insert(place); }
  std::unordered_set<const void*> reads;
};

}  // namespace

void detail::Changed(const void* place) {
  auto& all = sleepers();
  if (all.places.empty()) return;
  const auto [first, last] = all.byPlace.equal_range(place);
  std::vector<Timer*> woken;
  for (auto it = first; it != last; ++it) woken.push_back(it->second);
  for (Timer* timer : woken) {
    if (all.Remove(timer)) TimerScheduler::Current().Arm(*timer);
  }
}

Timer::Timer(Form* owner, std::string name, int interval, bool enabled, int index)
    : Control(owner, std::move(name), index), Interval(interval) {
  Visible = false;
  Enabled = enabled;
  Enabled.onChange([this] { Rearm(); });
  Interval.onChange([this] { Rearm(); });
  if (enabled) Rearm();
}

Timer::~Timer() {
  sleepers().Remove(this);
  TimerScheduler::Current().Disarm(*this);
}

void Timer::Rearm() {
  sleepers().Remove(this);
  auto& scheduler = TimerScheduler::Current();
  if (Enabled && Interval > 0) {
    scheduler.Arm(*this);
  } else {
    scheduler.Disarm(*this);
  }
}

void Timer::Fire() {
  if (!Enabled || !Tick) return;
  if (!Quiet) {
    RunEvent(Tick);
    return;
  }
  const std::uint64_t before = modelRevision();
  Recorder recorder;
  struct Recording {
    explicit Recording(Recorder* recorder) : outer(std::exchange(detail::readRecorder, recorder)) {}
    ~Recording() { detail::readRecorder = outer; }
    detail::ReadRecorder* outer;
  };
  {
    const Recording recording(&recorder);
    RunEvent(Tick);
  }
  if (modelRevision() == before && Enabled) Sleep({recorder.reads.begin(), recorder.reads.end()});
}

void Timer::Sleep(std::vector<const void*> reads) {
  TimerScheduler::Current().Disarm(*this);
  sleepers().Add(this, std::move(reads));
}

}  // namespace yarvo
