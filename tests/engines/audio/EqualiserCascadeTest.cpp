// The stereo cascade of bands, in each of its frame loops, against each side
// run through the same bands on its own.

#include "engines/audio/ParamEq.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace yarvo::audio {
namespace {

struct Bands {
  std::vector<std::unique_ptr<ParamEq>> owned;
  std::vector<ParamEq*> raw;

  Bands(std::size_t count, int channels) {
    constexpr std::array<float, 6> kGains{6, -4, 0, 9, -12, 3};
    for (std::size_t b = 0; b < count; ++b) {
      const float centre = 80.0f * std::pow(200.0f, static_cast<float>(b) / 32.0f);
      const BASS_DX8_PARAMEQ p{centre, b % 2 == 0 ? 12.0f : 18.0f, kGains[b % kGains.size()]};
      owned.push_back(std::make_unique<ParamEq>(44100, channels));
      owned.back()->setParameters(&p);
      raw.push_back(owned.back().get());
    }
  }
  void run(float* samples, std::size_t frames) {
    ParamEq::processCascade(raw.data(), raw.size(), samples, frames);
  }
};

// Blocks of uneven length, so the state must carry across calls.
template <typename Run>
void inBlocks(std::size_t frames, std::size_t channels, float* samples, Run run) {
  constexpr std::array<std::size_t, 4> kBlocks{37, 512, 1, 300};
  for (std::size_t at = 0, i = 0; at < frames; ++i) {
    const std::size_t n = std::min(kBlocks[i % kBlocks.size()], frames - at);
    run(samples + at * channels, n);
    at += n;
  }
}

// The stereo loops send each frame through band s at step s, so the output is
// the same as each side's, count - 1 frames later.
TEST(EqualiserCascadeTest, BothSidesMatchTheirOwnCascadeInEveryFrameLoop) {
  constexpr std::size_t kFrames = 4000;
  std::mt19937 random(3);
  std::uniform_real_distribution<float> noise(-0.25f, 0.25f);
  std::vector<float> stereo(2 * kFrames);
  for (float& s : stereo) s = noise(random);

  for (const bool wide : {false, true}) {
    if (ParamEq::useWideRegisters(wide) != wide) continue;  // no AVX2 here
    for (const std::size_t count : std::array<std::size_t, 10>{1, 2, 3, 4, 5, 7, 10, 16, 31, 32}) {
      SCOPED_TRACE(testing::Message() << (wide ? "AVX2, " : "SSE, ") << count << " bands");
      std::vector<float> out = stereo;
      Bands both(count, 2);
      inBlocks(kFrames, 2, out.data(), [&](float* at, std::size_t n) { both.run(at, n); });
      for (std::size_t side = 0; side < 2; ++side) {
        std::vector<float> alone(kFrames);
        for (std::size_t f = 0; f < kFrames; ++f) alone[f] = stereo[2 * f + side];
        Bands one(count, 1);
        inBlocks(kFrames, 1, alone.data(), [&](float* at, std::size_t n) { one.run(at, n); });
        double worst = 0.0;
        for (std::size_t f = 0; f + count - 1 < kFrames; ++f)
          worst = std::max(
              worst, std::fabs(static_cast<double>(out[2 * (f + count - 1) + side] - alone[f])));
        EXPECT_LT(worst, 1e-4) << "side " << side;
      }
    }
  }
  ParamEq::useWideRegisters(true);
}

}  // namespace
}  // namespace yarvo::audio
