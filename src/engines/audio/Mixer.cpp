#include "engines/audio/Mixer.h"

#include "engines/audio/Channel.h"

#include <algorithm>
#include <cmath>

#if defined(__SSE__)
#include <xmmintrin.h>
#endif

namespace yarvo::audio {
namespace {

constexpr double kVolumeSmoothingSeconds = 0.005;

// Denormal numbers in the decaying tails of the filters and the reverb cost a
// hundred times the work of normal ones; flushing them to zero is inaudible.
// The previous mode is restored because a test may render on its own thread.
class FlushDenormals {
 public:
  FlushDenormals() noexcept {
#if defined(__SSE__)
    saved_ = _mm_getcsr();
    _mm_setcsr(saved_ | 0x8040u);  // flush-to-zero and denormals-are-zero
#endif
  }
  ~FlushDenormals() {
#if defined(__SSE__)
    _mm_setcsr(saved_);
#endif
  }
  FlushDenormals(const FlushDenormals&) = delete;
  FlushDenormals& operator=(const FlushDenormals&) = delete;

 private:
  unsigned saved_ = 0;
};

}  // namespace

Mixer::Mixer(int rate, bool realTime)
    : rate_(rate),
      offline_(!realTime),
      volumeSmoothing_(static_cast<float>(1.0 - std::exp(-1.0 / (kVolumeSmoothingSeconds * rate)))),
      limiter_(rate) {
  channels_.reserve(16);
}

void Mixer::attach(Channel& channel) {
  std::lock_guard lock(mutex_);
  channels_.push_back(&channel);
}

void Mixer::detach(Channel& channel) {
  std::lock_guard lock(mutex_);
  std::erase(channels_, &channel);
}

void Mixer::render(float* stereo, std::size_t frames) noexcept {
  const FlushDenormals flush;
  while (frames > 0) {
    const std::size_t n = std::min(frames, Channel::kMaxRenderFrames);
    renderBlock(stereo, n);
    stereo += 2 * n;
    frames -= n;
  }
}

void Mixer::renderBlock(float* stereo, std::size_t frames) noexcept {
  std::fill_n(stereo, 2 * frames, 0.0f);
  {
    std::lock_guard lock(mutex_);
    for (Channel* channel : channels_) channel->mixInto(stereo, frames, offline_);
  }
  const float target = volume_.load(std::memory_order_relaxed);
  if (currentVolume_ < 0.0f) currentVolume_ = target;
  std::size_t f = 0;
  for (; f < frames && currentVolume_ != target; ++f) {
    currentVolume_ += volumeSmoothing_ * (target - currentVolume_);
    // The smoothing only approaches its target; land on it, so that volume 0
    // is true silence and full volume leaves the samples as they are.
    if (std::fabs(target - currentVolume_) < 1e-6f) currentVolume_ = target;
    stereo[2 * f] *= currentVolume_;
    stereo[2 * f + 1] *= currentVolume_;
  }
  // Settled: one factor for the rest, none at all at full volume.
  if (target != 1.0f)
    for (std::size_t i = 2 * f; i < 2 * frames; ++i) stereo[i] *= target;
  limiter_.process(stereo, frames);
}

}  // namespace yarvo::audio
