#include "host/mpris/SeekWatch.h"

#include <cmath>

namespace yarvo {

void SeekWatch::Restart(double position, double now, bool running) {
  last_ = Reading{position, now, running};
}

bool SeekWatch::Jumped(double position, double now, bool running) {
  const std::optional<Reading> last = last_;
  Restart(position, now, running);
  if (!last) return false;
  const double expected = last->position + (last->running ? now - last->time : 0.0);
  return std::abs(position - expected) > kTolerance;
}

}  // namespace yarvo
