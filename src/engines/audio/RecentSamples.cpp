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

// The ring is copied in at most two straight runs of samples (up to its end,
// then from its start), so the loops carry no per-frame wrap test.
void RecentSamples::append(const float* interleaved, std::size_t frames) noexcept {
  const auto chans = static_cast<std::size_t>(channels_);
  const std::uint64_t written = written_.load(std::memory_order_relaxed);
  const std::size_t total = capacity_ * chans;
  std::size_t at = static_cast<std::size_t>(written % capacity_) * chans;
  std::size_t left = std::min(frames, capacity_) * chans;
  // Only the newest frames fit when more arrive than the ring holds.
  const float* from = interleaved + (frames - std::min(frames, capacity_)) * chans;
  if (frames > capacity_)
    at = static_cast<std::size_t>((written + frames - capacity_) % capacity_) * chans;
  while (left > 0) {
    const std::size_t run = std::min(left, total - at);
    for (std::size_t k = 0; k < run; ++k) ring_[at + k].store(from[k], std::memory_order_relaxed);
    from += run;
    left -= run;
    at = 0;
  }
  written_.store(written + frames, std::memory_order_release);
}

void RecentSamples::newest(float* interleaved, std::size_t frames,
                           std::size_t skip) const noexcept {
  const auto chans = static_cast<std::size_t>(channels_);
  const std::uint64_t written = written_.load(std::memory_order_acquire);
  const std::uint64_t end = written - std::min<std::uint64_t>(skip, written);
  // Frames before the first ever written are silence.
  const std::size_t missing = end >= frames ? 0 : frames - static_cast<std::size_t>(end);
  std::fill_n(interleaved, missing * chans, 0.0f);
  const std::size_t total = capacity_ * chans;
  std::size_t at = static_cast<std::size_t>((end - (frames - missing)) % capacity_) * chans;
  float* to = interleaved + missing * chans;
  std::size_t left = (frames - missing) * chans;
  while (left > 0) {
    const std::size_t run = std::min(left, total - at);
    for (std::size_t k = 0; k < run; ++k) to[k] = ring_[at + k].load(std::memory_order_relaxed);
    to += run;
    left -= run;
    at = 0;
  }
}

}  // namespace yarvo::audio
