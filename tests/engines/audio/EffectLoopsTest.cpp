// The effects' frame loops for AVX2 and for SSE: the equaliser's stereo
// cascade in each against each side run through the same bands on its own,
// and the reverb's two against each other.

#include "engines/audio/ParamEq.h"
#include "engines/audio/Reverb.h"
#include "engines/audio/WideRegisters.h"

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
TEST(EqualiserLoopsTest, BothSidesMatchTheirOwnCascadeInEveryFrameLoop) {
  constexpr std::size_t kFrames = 4000;
  std::mt19937 random(3);
  std::uniform_real_distribution<float> noise(-0.25f, 0.25f);
  std::vector<float> stereo(2 * kFrames);
  for (float& s : stereo) s = noise(random);

  for (const bool wide : {false, true}) {
    if (useWideRegisters(wide) != wide) continue;  // no AVX2 here
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
  useWideRegisters(true);
}

// A click, then noise, through a long bright room: the tail recirculates
// through every line many times, so a line read from the wrong lane or a
// sign out of place in the mixing shows at once.
TEST(ReverbLoopsTest, WideAndNarrowLoopsHearTheSameRoom) {
  if (!useWideRegisters(true)) GTEST_SKIP() << "no AVX2 and FMA here";
  constexpr std::size_t kFrames = 44100;
  std::mt19937 random(5);
  std::uniform_real_distribution<float> noise(-0.25f, 0.25f);
  std::vector<float> input(2 * kFrames, 0.0f);
  input[0] = input[1] = 0.9f;
  for (std::size_t i = 2 * 4410; i < 2 * 8820; ++i) input[i] = noise(random);

  std::array<std::vector<float>, 2> heard;
  for (const bool wide : {false, true}) {
    useWideRegisters(wide);
    Reverb room(44100, 2);
    const BASS_DX8_REVERB p{0.0f, 0.0f, 2500.0f, 0.9f};
    room.setParameters(&p);
    std::vector<float> out = input;
    inBlocks(kFrames, 2, out.data(), [&](float* at, std::size_t n) { room.process(at, n); });
    heard[wide ? 1 : 0] = std::move(out);
  }
  useWideRegisters(true);
  double worst = 0.0;
  double tail = 0.0;
  for (std::size_t i = 0; i < 2 * kFrames; ++i) {
    worst = std::max(worst, std::fabs(static_cast<double>(heard[0][i] - heard[1][i])));
    if (i >= 2 * 22050) tail = std::max(tail, std::fabs(static_cast<double>(heard[0][i])));
  }
  EXPECT_GT(tail, 0.01);  // the room still rings half a second after the noise
  EXPECT_LT(worst, 1e-4);
}

}  // namespace
}  // namespace yarvo::audio
