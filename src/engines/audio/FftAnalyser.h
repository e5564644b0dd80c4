#pragma once
// The 2048-point spectrum of BASS_DATA_FFT2048, with FFTW (single precision).
// The plan is made once, when the first spectrum is asked for, and reused.
// Interface thread only: FFTW's planner is not thread-safe.

#include <cstddef>
#include <memory>

namespace yarvo::audio {

class FftAnalyser {
 public:
  static constexpr std::size_t kSize = 2048;
  static constexpr std::size_t kBins = kSize / 2;

  FftAnalyser();
  ~FftAnalyser();
  FftAnalyser(const FftAnalyser&) = delete;
  FftAnalyser& operator=(const FftAnalyser&) = delete;

  // `interleaved`: kSize frames of `channels` channels. Writes kBins
  // magnitudes of the Hann-windowed mono mix, bin k at k * rate / kSize Hz,
  // scaled so that a full-scale sine centred on a bin gives 1.0.
  void compute(const float* interleaved, int channels, float* magnitudes) noexcept;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace yarvo::audio
