#include "engines/audio/RecentSamples.h"

#include <algorithm>

namespace yarvo::audio {

RecentSamples::RecentSamples(std::size_t frames, int channels)
    : capacity_(frames),
      channels_(channels),
      ring_(std::make_unique<std::atomic<float>[]>(frames * static_cast<std::size_t>(channels))) {
  for (std::size_t i = 0; i < frames * static_cast<std::size_t>(channels); ++i)
    ring_[i].store(0.0f, std::memory_order_relaxed);
}

void RecentSamples::append(const float* interleaved, std::size_t frames) noexcept {
  const auto chans = static_cast<std::size_t>(channels_);
  const std::uint64_t written = written_.load(std::memory_order_relaxed);
  std::size_t slot = static_cast<std::size_t>(written % capacity_);
  for (std::size_t f = 0; f < frames; ++f) {
    for (std::size_t c = 0; c < chans; ++c)
      ring_[slot * chans + c].store(interleaved[f * chans + c], std::memory_order_relaxed);
    if (++slot == capacity_) slot = 0;
  }
  written_.store(written + frames, std::memory_order_release);
}

void RecentSamples::newest(float* interleaved, std::size_t frames) const noexcept {
  const auto chans = static_cast<std::size_t>(channels_);
  const std::uint64_t end = written_.load(std::memory_order_acquire);
  // Frames before the first ever written are silence.
  const std::size_t missing = end >= frames ? 0 : frames - static_cast<std::size_t>(end);
  std::fill_n(interleaved, missing * chans, 0.0f);
  std::size_t slot = static_cast<std::size_t>((end - (frames - missing)) % capacity_);
  for (std::size_t f = missing; f < frames; ++f) {
    for (std::size_t c = 0; c < chans; ++c)
      interleaved[f * chans + c] = ring_[slot * chans + c].load(std::memory_order_relaxed);
    if (++slot == capacity_) slot = 0;
  }
}

}  // namespace yarvo::audio
