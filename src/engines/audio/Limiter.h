#pragma once
// The last stage before the output: keeps stereo samples within +-kCeiling.
//
// Ten equaliser bands at +10 dB can lift a full-scale song by 20 dB or more;
// clipping that would crackle. The limiter works on the louder of the two
// sides: when a sample would pass the ceiling the gain drops at once to what
// brings it exactly there (no overshoot, no look-ahead latency), then recovers
// towards 1 with a 150 ms time constant, slow enough that the gain does not
// follow the waveform and so adds little distortion. Below the ceiling, with
// the gain recovered, it changes nothing.

#include <array>
#include <cstddef>

namespace yarvo::audio {

class Limiter {
 public:
  static constexpr float kCeiling = 0.98f;

  explicit Limiter(int rate);

  // In place, interleaved stereo. No allocation.
  void process(float* stereo, std::size_t frames) noexcept;

  [[nodiscard]] float gain() const noexcept { return gain_; }

 private:
  static constexpr std::size_t kChunk = 64;

  void limitChunk(float* stereo, std::size_t frames) noexcept;

  float release_;
  float gain_ = 1.0f;
  // (1 - release_) to the power n, and to the power -n, for n < kChunk.
  std::array<float, kChunk> keepPower_{};
  std::array<float, kChunk> keepInverse_{};
};

}  // namespace yarvo::audio
