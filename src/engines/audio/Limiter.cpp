#include "engines/audio/Limiter.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace yarvo::audio {
namespace {
constexpr double kReleaseSeconds = 0.15;
constexpr float kRested = 0.99999f;

// Four lanes at a time (GCC and Clang vector extension), which a plain loop
// of std::max does not get without licence to reorder floating point.
using V4 = float __attribute__((vector_size(16)));
using V4i = int __attribute__((vector_size(16)));

// The largest magnitude of `count` samples; a NaN sample is passed over, as
// std::max passes it over.
float peakOf(const float* samples, std::size_t count) noexcept {
  V4 peak{};
  std::size_t i = 0;
  for (; i + 4 <= count; i += 4) {
    V4 v;
    std::memcpy(&v, samples + i, sizeof v);
    const V4 magnitude = reinterpret_cast<V4>(reinterpret_cast<V4i>(v) & 0x7FFFFFFF);
    peak = magnitude > peak ? magnitude : peak;
  }
  float result = std::max(std::max(peak[0], peak[1]), std::max(peak[2], peak[3]));
  for (; i < count; ++i) result = std::max(result, std::fabs(samples[i]));
  return result;
}

}  // namespace

Limiter::Limiter(int rate)
    : release_(static_cast<float>(1.0 - std::exp(-1.0 / (kReleaseSeconds * rate)))) {}

void Limiter::process(float* stereo, std::size_t frames) noexcept {
  // Most blocks are quiet enough with the gain at rest: nothing to do.
  if (gain_ == 1.0f && peakOf(stereo, 2 * frames) <= kCeiling) return;
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
