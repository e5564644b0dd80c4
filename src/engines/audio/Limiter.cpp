#include "engines/audio/Limiter.h"

#include <algorithm>
#include <cmath>

namespace yarvo::audio {
namespace {
constexpr double kReleaseSeconds = 0.15;
constexpr float kRested = 0.99999f;
}

Limiter::Limiter(int rate) : release_(static_cast<float>(1.0 - std::exp(-1.0 / (kReleaseSeconds * rate)))) {}

void Limiter::process(float* stereo, std::size_t frames) noexcept {
  // Most blocks are quiet enough with the gain at rest: nothing to do.
  if (gain_ == 1.0f) {
    float peak = 0.0f;
    for (std::size_t i = 0; i < 2 * frames; ++i) peak = std::max(peak, std::fabs(stereo[i]));
    if (peak <= kCeiling) return;
  }
  for (std::size_t f = 0; f < frames; ++f) {
    float& left = stereo[2 * f];
    float& right = stereo[2 * f + 1];
    gain_ += release_ * (1.0f - gain_);
    // Land on 1 so that the quiet path above is taken again.
    if (gain_ > kRested) gain_ = 1.0f;
    const float peak = std::max(std::fabs(left), std::fabs(right)) * gain_;
    if (peak > kCeiling) gain_ *= kCeiling / peak;
    if (gain_ < 1.0f) {
      left *= gain_;
      right *= gain_;
    }
  }
}

}  // namespace yarvo::audio
