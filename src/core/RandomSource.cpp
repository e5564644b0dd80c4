#include "core/RandomSource.h"

#include <chrono>

namespace yarvo {

int RandomSource::Below(int count) {
  if (count < 1) return 0;
  const int pick = static_cast<int>(Rnd() * count);
  return pick < count ? pick : count - 1;
}

void ClockRandom::Randomize() {
  engine_.seed(
      static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()));
}

double ClockRandom::Rnd() { return std::uniform_real_distribution<double>(0.0, 1.0)(engine_); }

}  // namespace yarvo
