#include "engines/audio/Limiter.h"

#include <algorithm>
#include <array>
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
  for (std::size_t f = 0; f < frames; f += kChunk)
    limitChunk(stereo + 2 * f, std::min(kChunk, frames - f));
}

// A frame whose louder side is m may have a gain of at most kCeiling / m.
// Those bounds and the products come a chunk at a time; what runs frame
// after frame is only the recovery and the bound, with no division in it.
void Limiter::limitChunk(float* stereo, std::size_t frames) noexcept {
  std::array<float, kChunk> gains;
  for (std::size_t f = 0; f < frames; ++f)
    gains[f] = kCeiling / std::max(std::fabs(stereo[2 * f]), std::fabs(stereo[2 * f + 1]));
  float gain = gain_;
  for (std::size_t f = 0; f < frames; ++f) {
    gain += release_ * (1.0f - gain);
    // Land on 1 so that the quiet path above is taken again.
    if (gain > kRested) gain = 1.0f;
    gain = std::min(gain, gains[f]);
    gains[f] = gain;
  }
  gain_ = gain;
  for (std::size_t f = 0; f < frames; ++f) {
    stereo[2 * f] *= gains[f];
    stereo[2 * f + 1] *= gains[f];
  }
}

}  // namespace yarvo::audio
