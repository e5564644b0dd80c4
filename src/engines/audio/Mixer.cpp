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

// Stops after the block in which the last channel fell silent, or before a
// block to which none added anything: the output need not keep what follows,
// and those frames are not counted.
std::size_t Mixer::render(float* stereo, std::size_t frames) noexcept {
  const FlushDenormals flush;
  std::size_t done = 0;
  bool sounding = true;
  while (done < frames && sounding) {
    const std::size_t n = std::min(frames - done, Channel::kMaxRenderFrames);
    if (!renderBlock(stereo + 2 * done, n, sounding)) break;
    done += n;
  }
  std::fill(stereo + 2 * done, stereo + 2 * frames, 0.0f);
  return sounding ? frames : done;
}

bool Mixer::renderBlock(float* stereo, std::size_t frames, bool& sounding) noexcept {
  std::fill_n(stereo, 2 * frames, 0.0f);
  bool added = false;
  sounding = false;
  {
    std::lock_guard lock(mutex_);
    const std::uint64_t first = rendered_.load(std::memory_order_relaxed);
    for (Channel* channel : channels_) {
      const Channel::Mix mix = channel->mixInto(stereo, frames, offline_, first);
      added = added || mix != Channel::Mix::Silent;
      sounding = sounding || mix == Channel::Mix::Sounding;
    }
    if (!added) return false;
    // Counted under the lock: a channel attached now starts its record of
    // output frames where this block ends.
    rendered_.store(first + frames, std::memory_order_release);
  }
  // After the limiter, so that it acts the same whether the volume is
  // applied here or by the sound server.
  limiter_.process(stereo, frames);
  applyVolume(stereo, frames);
  return true;
}

void Mixer::applyVolume(float* stereo, std::size_t frames) noexcept {
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
}

}  // namespace yarvo::audio
