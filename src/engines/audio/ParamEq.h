#pragma once
// One band of the equaliser: a peaking filter (RBJ audio EQ cookbook biquad),
// centre in Hz, bandwidth in semitones between the frequencies where the boost
// is half its dB value, gain in dB.

#include "engines/audio/Bass.h"
#include "engines/audio/Decoder.h"
#include "engines/audio/Effect.h"

#include <array>
#include <atomic>
#include <cstdint>

namespace yarvo::audio {

class ParamEq final : public Effect {
 public:
  ParamEq(int rate, int channels);

  bool setParameters(const void* record) noexcept override;
  void getParameters(void* record) const noexcept override;
  void process(float* interleaved, std::size_t frames) noexcept override;
  ParamEq* asBand() noexcept override { return this; }

  // Output thread: the same as calling process() of each band in turn (for
  // stereo, delayed by one frame per band after the first: 0.2 ms for ten),
  // several times faster. All bands belong to one channel; at most 32.
  static void processCascade(ParamEq* const* bands, std::size_t count, float* interleaved,
                             std::size_t frames) noexcept;

 private:
  // Normalised by a0; transposed direct form II.
  struct Coefficients {
    float b0 = 1.0f, b1 = 0.0f, b2 = 0.0f, a1 = 0.0f, a2 = 0.0f;
  };

  // Output thread: takes new parameters; false when the band is bypassed.
  bool refresh() noexcept;
  void updateCoefficients() noexcept;
  static void cascadeStereo(ParamEq* const* bands, std::size_t count, float* interleaved,
                            std::size_t frames) noexcept;
  // Stereo bands all flat with their filters at rest: the cascade is a pure
  // delay of count - 1 frames, held in the bands' pipes.
  static bool restingStereo(ParamEq* const* bands, std::size_t count) noexcept;
  static void delayStereo(ParamEq* const* bands, std::size_t count, float* interleaved,
                          std::size_t frames) noexcept;
  static void cascadeAny(ParamEq* const* bands, std::size_t count, float* interleaved,
                         std::size_t frames) noexcept;

  int rate_;
  int channels_;
  std::atomic<float> center_{8000.0f};
  std::atomic<float> bandwidth_{12.0f};
  std::atomic<float> gain_{0.0f};
  std::atomic<std::uint32_t> version_{1};

  // Output thread only.
  std::uint32_t seen_ = 0;
  // At 0 dB the filter is the identity and is skipped.
  bool bypass_ = true;
  // The identity while bypassed.
  Coefficients k_;
  std::array<float, kMaxChannels> z1_{};
  std::array<float, kMaxChannels> z2_{};
  // Stereo cascades only: the sample on its way into this band from the one
  // before it (see cascadeStereo).
  std::array<float, 2> pipe_{};
};

}  // namespace yarvo::audio
