#pragma once
// A room reverb: four Schroeder all-pass diffusers in series, whose ringing
// is also heard as the early reflections, then an eight-line feedback delay
// network mixed by a Hadamard matrix (energy
// preserving, so the decay is set by the line gains alone). Each line's gain
// gives its recirculation the requested 60 dB decay time; a first-order shelf
// in each loop lets the highs above about 3 kHz decay in fHighFreqRTRatio
// of that time, which is what makes a room sound dark rather than metallic.
// Left and right take the lines with two orthogonal sign patterns, so the tail
// is wide and decorrelated.
//
// fInGain scales only what enters the network; the dry signal always passes
// untouched, and the wet tail is added at fReverbMix (-96 dB: none, and the
// network rests).

#include "engines/audio/Bass.h"
#include "engines/audio/Effect.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <vector>

namespace yarvo::audio {

class Reverb final : public Effect {
 public:
  Reverb(int rate, int channels);

  bool setParameters(const void* record) noexcept override;
  void getParameters(void* record) const noexcept override;
  void process(float* interleaved, std::size_t frames) noexcept override;

  static constexpr std::size_t kLines = 8;
  static constexpr std::size_t kDiffusers = 4;

 private:
  // A delay line whose length is fixed at construction; the buffer is a power
  // of two, so the index wraps with a mask, and at least a block longer than
  // the delay, so a block's reads and writes never meet.
  struct Delay {
    std::vector<float> buffer;
    std::size_t mask = 0;
    std::size_t length = 0;
    void init(std::size_t samples);
  };

  // Frames processed at once: no more than the shortest diffuser or line,
  // so that everything a block reads from them was written before it, and
  // each stage runs over the whole block without waiting on itself.
  static constexpr std::size_t kMaxBlock = 96;

  void updateParameters() noexcept;
  bool resting() noexcept;
  void silence() noexcept;
  void processBlock(float* interleaved, std::size_t frames) noexcept;
  // The diffusers over block_ in place; the early reflections to earlyLeft_
  // and earlyRight_.
  void diffuseBlock(std::size_t frames) noexcept;
  void allpass(Delay& d, float g, std::size_t frames, float* early) noexcept;
  std::size_t runLines(std::size_t k, std::size_t most) noexcept;
  void runLinesNarrow(const std::array<const float*, kLines>& rows, float* write, std::size_t k,
                      std::size_t run) noexcept;
  void runLinesWide(const std::array<const float*, kLines>& rows, float* write, std::size_t k,
                    std::size_t run) noexcept;
  void mixStereo(float* interleaved, std::size_t frames) noexcept;
  void mixAny(float* interleaved, std::size_t frames) noexcept;

  int rate_;
  int channels_;
  std::atomic<float> inGainDb_{0.0f};
  std::atomic<float> mixDb_{0.0f};
  std::atomic<float> timeMs_{1000.0f};
  std::atomic<float> hfRatio_{0.001f};
  std::atomic<std::uint32_t> version_{1};

  // Output thread only.
  std::uint32_t seen_ = 0;
  // The eight lines share one ring of frames of eight samples, line i in
  // slot i: a frame is written at once, and line i reads it back
  // lineLengths_[i] frames later.
  std::vector<float> ring_;
  std::size_t ringMask_ = 0;
  std::array<std::size_t, kLines> lineLengths_{};
  std::array<Delay, kDiffusers> diffusers_;
  std::size_t cursor_ = 0;
  std::size_t blockFrames_ = kMaxBlock;
  // One block's signal on its way through (output thread only).
  std::array<float, kMaxBlock> block_{};
  std::array<float, kMaxBlock> earlyLeft_{};
  std::array<float, kMaxBlock> earlyRight_{};
  std::array<float, kMaxBlock> wetLeft_{};
  std::array<float, kMaxBlock> wetRight_{};
  std::array<float, kLines> lowGain_{};
  std::array<float, kLines> highGain_{};
  std::array<float, kLines> shelfState_{};
  float shelfCoef_ = 0.0f;
  float inGain_ = 1.0f;
  float wetTarget_ = 1.0f;
  float wet_ = 1.0f;
  // Per-sample step of the wet level towards its target (about 10 ms).
  float wetSmoothing_ = 0.0f;
};

}  // namespace yarvo::audio
