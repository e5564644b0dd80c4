#pragma once
// Sums the playing channels, applies the limiter and then the global stream
// volume (unless the output applies the volume itself), and hands the result
// to the output.
//
// Lock: one std::mutex guards the list of channels. The output thread holds it
// for the mixing of one block (at most 512 frames, well under a millisecond);
// the interface thread takes it only to attach or detach a channel, which is
// what makes freeing a channel safe: once detach() returns, the output thread
// cannot be inside that channel. A lock-free hand-over would save the
// interface thread that short wait and nothing else, since it happens once a
// song.

#include "engines/audio/AudioOutput.h"
#include "engines/audio/Limiter.h"

#include <atomic>
#include <mutex>
#include <vector>

namespace yarvo::audio {

class Channel;

class Mixer final : public AudioSource {
 public:
  // realTime false: channels wait for their decoders (see AudioOutput).
  Mixer(int rate, bool realTime);

  [[nodiscard]] int rate() const noexcept { return rate_; }

  // Interface thread.
  void attach(Channel& channel);
  void detach(Channel& channel);
  // Linear, 0..1; reached within about 10 ms without zipper noise.
  void setVolume(float volume) noexcept { volume_.store(volume, std::memory_order_relaxed); }

  std::size_t render(float* stereo, std::size_t frames) noexcept override;
  std::uint64_t renderedFrames() const noexcept override {
    return rendered_.load(std::memory_order_acquire);
  }

 private:
  // False when no channel added anything.
  bool renderBlock(float* stereo, std::size_t frames, bool& sounding) noexcept;
  void applyVolume(float* stereo, std::size_t frames) noexcept;

  const int rate_;
  const bool offline_;
  std::mutex mutex_;
  std::vector<Channel*> channels_;
  std::atomic<float> volume_{1.0f};
  std::atomic<std::uint64_t> rendered_{0};

  // Output thread only.
  float currentVolume_ = -1.0f;
  float volumeSmoothing_;
  Limiter limiter_;
};

}  // namespace yarvo::audio
