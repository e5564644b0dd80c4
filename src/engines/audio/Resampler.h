#pragma once
// Sample-rate conversion of one channel's audio to the output's rate, with the
// Speex resampler of libspeexdsp (quality 5: about 90 dB of stop-band
// rejection at a small cost). Made on the interface thread, then used only on
// the output thread; process() does not allocate.

#include <cstddef>
#include <memory>
#include <utility>

struct SpeexResamplerState_;

namespace yarvo::audio {

class Resampler {
 public:
  struct StateDeleter {
    void operator()(SpeexResamplerState_* state) const noexcept;
  };
  using State = std::unique_ptr<SpeexResamplerState_, StateDeleter>;

  // nullptr when Speex refuses the rates.
  static std::unique_ptr<Resampler> create(int channels, int fromRate, int toRate);
  explicit Resampler(State state) : state_(std::move(state)) {}

  // Converts from `in` (up to `inFrames`) into `out` (up to `outFrames`);
  // returns the frames consumed and produced through the two references.
  void process(const float* in, std::size_t& inFrames, float* out, std::size_t& outFrames) noexcept;
  // Forgets the history, after a seek.
  void reset() noexcept;

 private:
  State state_;
};

}  // namespace yarvo::audio
