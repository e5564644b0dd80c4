// The audio library's effects on their fast paths: a flat equalizer is a
// pure delay, and the reverb, the bands and the limiter give the same samples
// whatever the size of the blocks the output asks for.

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <random>
#include <vector>

#include "engines/audio/Limiter.h"
#include "engines/audio/ParamEq.h"
#include "engines/audio/Reverb.h"

namespace yarvo::audio {
namespace {

constexpr float kCentres[10] = {80, 150, 300, 500, 750, 1000, 3000, 8000, 12000, 15000};

std::vector<float> Noise(std::size_t samples, unsigned seed) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<float> level(-0.5f, 0.5f);
  std::vector<float> out(samples);
  for (float& v : out) v = level(rng);
  return out;
}

struct Equalizer {
  explicit Equalizer(int channels) {
    for (float centre : kCentres) {
      owned.push_back(std::make_unique<ParamEq>(44100, channels));
      const BASS_DX8_PARAMEQ flat{centre, 18, 0};
      owned.back()->setParameters(&flat);
      bands.push_back(owned.back().get());
    }
  }
  void Gain(int band, float db) {
    const BASS_DX8_PARAMEQ p{kCentres[band], 18, db};
    bands[static_cast<std::size_t>(band)]->setParameters(&p);
  }
  void Run(float* stereo, std::size_t frames) {
    ParamEq::processCascade(bands.data(), bands.size(), stereo, frames);
  }

  std::vector<std::unique_ptr<ParamEq>> owned;
  std::vector<ParamEq*> bands;
};

// Runs `effect` over `signal` in blocks of the sizes given, in turn.
template <class Effect>
std::vector<float> InBlocks(Effect&& effect, std::vector<float> signal,
                            const std::vector<std::size_t>& sizes) {
  std::size_t frame = 0;
  const std::size_t frames = signal.size() / 2;
  for (std::size_t i = 0; frame < frames; ++i) {
    const std::size_t n = std::min(sizes[i % sizes.size()], frames - frame);
    effect(signal.data() + 2 * frame, n, frame);
    frame += n;
  }
  return signal;
}

TEST(EffectPathsTest, AFlatStereoEqualizerDelaysByOneFramePerBandAfterTheFirst) {
  const std::vector<float> input = Noise(2 * 4000, 1);
  for (const std::vector<std::size_t>& sizes :
       {std::vector<std::size_t>{512}, {1}, {3, 9, 100}, {8, 10}}) {
    SCOPED_TRACE(sizes.front());
    Equalizer eq(2);
    const auto out =
        InBlocks([&](float* x, std::size_t n, std::size_t) { eq.Run(x, n); }, input, sizes);
    for (std::size_t i = 0; i < 18; ++i) ASSERT_EQ(out[i], 0.0f) << i;
    for (std::size_t i = 18; i < out.size(); ++i) ASSERT_EQ(out[i], input[i - 18]) << i;
  }
}

TEST(EffectPathsTest, TheEqualizerSoundsTheSameWhateverTheBlockSize) {
  // Flat, then band 6 at +3 dB from frame 1024, then flat again from 2048:
  // the bands leave and re-enter their resting state on the way.
  const std::vector<float> input = Noise(2 * 6144, 2);
  auto run = [&](const std::vector<std::size_t>& sizes, float boost = 3) {
    Equalizer eq(2);
    return InBlocks(
        [&](float* x, std::size_t n, std::size_t at) {
          if (at == 1024) eq.Gain(6, boost);
          if (at == 2048) eq.Gain(6, 0);
          eq.Run(x, n);
        },
        input, sizes);
  };
  const auto whole = run({512});
  EXPECT_NE(whole, run({512}, 0)) << "the boost is heard";
  EXPECT_EQ(run({256, 128, 128}), whole);
  EXPECT_EQ(run({64}), whole);
}

TEST(EffectPathsTest, TheReverbSoundsTheSameWhateverTheBlockSize) {
  const std::vector<float> input = Noise(2 * 44100, 3);
  auto run = [&](const std::vector<std::size_t>& sizes) {
    Reverb reverb(44100, 2);
    const BASS_DX8_REVERB room{0, -3, 800, 0.2f};
    reverb.setParameters(&room);
    return InBlocks(
        [&](float* x, std::size_t n, std::size_t at) {
          if (at == 22016) {
            const BASS_DX8_REVERB drier{-2, -20, 300, 0.7f};
            reverb.setParameters(&drier);
          }
          reverb.process(x, n);
        },
        input, sizes);
  };
  const auto whole = run({512});
  EXPECT_NE(whole, input) << "the tail is heard";
  EXPECT_EQ(run({1}), whole);
  EXPECT_EQ(run({96, 97, 63}), whole);
  EXPECT_EQ(run({256}), whole);
}

TEST(EffectPathsTest, TheLimiterFindsAPeakInAnyPlaceOfABlock) {
  for (std::size_t at = 0; at < 7; ++at) {
    SCOPED_TRACE(at);
    Limiter limiter(44100);
    std::vector<float> block(7, 0.5f);
    block.push_back(0.5f);  // 4 frames
    block[at] = -0.99f;
    limiter.process(block.data(), 4);
    EXPECT_LT(limiter.gain(), 1.0f);
    EXPECT_NEAR(std::fabs(block[at]), Limiter::kCeiling, 1e-6);
  }
  Limiter quiet(44100);
  std::vector<float> block(7, -0.98f);
  block.push_back(0.98f);
  quiet.process(block.data(), 4);
  EXPECT_EQ(quiet.gain(), 1.0f) << "the ceiling itself is not passed";
}

// One frame at twice the ceiling halves the gain; from there the gain wins
// back 1 - 1/e of what it lost in every 150 ms, across chunks and blocks.
TEST(EffectPathsTest, TheLimiterRecoversWithItsTimeConstant) {
  Limiter limiter(44100);
  std::vector<float> block(2 * 44100, 0.1f);
  block[1] = 2.0f * Limiter::kCeiling;
  for (std::size_t f = 0; f < 44100; f += 500)
    limiter.process(block.data() + 2 * f, std::min<std::size_t>(500, 44100 - f));
  const auto gainAt = [&](double seconds) {
    return block[2 * static_cast<std::size_t>(seconds * 44100)] / 0.1f;
  };
  EXPECT_NEAR(gainAt(0.0), 0.5, 1e-6);
  for (const double t : {0.15, 0.3, 0.75}) {
    SCOPED_TRACE(t);
    EXPECT_NEAR(gainAt(t), 1.0 - 0.5 * std::exp(-t / 0.15), 2e-4);
  }
}

}  // namespace
}  // namespace yarvo::audio
