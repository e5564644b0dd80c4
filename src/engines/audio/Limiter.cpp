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
    : release_(static_cast<float>(1.0 - std::exp(-1.0 / (kReleaseSeconds * rate)))) {
  const double keep = 1.0 - static_cast<double>(release_);
  for (std::size_t n = 0; n < kChunk; ++n) {
    keepPower_[n] = static_cast<float>(std::pow(keep, static_cast<double>(n)));
    keepInverse_[n] = static_cast<float>(std::pow(keep, -static_cast<double>(n)));
  }
}

void Limiter::process(float* stereo, std::size_t frames) noexcept {
  // Most blocks are quiet enough with the gain at rest: nothing to do.
  if (gain_ == 1.0f && peakOf(stereo, 2 * frames) <= kCeiling) return;
  for (std::size_t f = 0; f < frames; f += kChunk)
    limitChunk(stereo + 2 * f, std::min(kChunk, frames - f));
}

// Frame by frame the gain is g(n) = min(b(n), 1 - (1 - g(n-1)) k), where b(n)
// is the bound kCeiling / (the louder side) and k = 1 - release: the deficit
// 1 - g shrinks by k each frame unless a bound holds it up. Unrolled, the
// deficit at frame n is k^n times the largest of (1 - g(-1)) k and of
// (1 - b(m)) / k^m for m <= n: a running maximum. A frame then waits on the
// one before it for a comparison only, rather than for a chain of steps.
void Limiter::limitChunk(float* stereo, std::size_t frames) noexcept {
  std::array<float, kChunk> bounds;
  std::array<float, kChunk> scaled;
  for (std::size_t f = 0; f < frames; ++f) {
    const float loudest = std::max(std::fabs(stereo[2 * f]), std::fabs(stereo[2 * f + 1]));
    bounds[f] = kCeiling / loudest;
    // A NaN sample sets no bound; silence (an infinite bound) sets none either.
    const float deficit = (1.0f - bounds[f]) * keepInverse_[f];
    scaled[f] = deficit == deficit ? deficit : 0.0f;
  }
  float largest = (1.0f - gain_) * (1.0f - release_);
  float gain = gain_;
  for (std::size_t f = 0; f < frames; ++f) {
    largest = std::max(largest, scaled[f]);
    gain = 1.0f - keepPower_[f] * largest;
    // The products above round; the bound itself is never passed.
    gain = std::min(gain, bounds[f]);
    stereo[2 * f] *= gain;
    stereo[2 * f + 1] *= gain;
  }
  // Land on 1 so that the quiet path above is taken again.
  gain_ = gain > kRested ? 1.0f : gain;
}

}  // namespace yarvo::audio
