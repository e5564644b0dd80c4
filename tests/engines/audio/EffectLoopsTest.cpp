// The effects' frame loops. The equaliser's stereo cascade for AVX2 and for
// SSE against each side run through the same bands on its own, and at rest a
// pure delay; the reverb's two loops against each other; and the equaliser,
// the reverb and the limiter giving the same samples whatever the size of the
// blocks the output asks for.

#include "engines/audio/Limiter.h"
#include "engines/audio/ParamEq.h"
#include "engines/audio/Reverb.h"
#include "engines/audio/WideRegisters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace yarvo::audio {
namespace {

std::vector<float> noise(std::size_t samples, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> level(-0.25f, 0.25f);
  std::vector<float> out(samples);
  for (float& s : out) s = level(random);
  return out;
}

struct Bands {
  std::vector<std::unique_ptr<ParamEq>> owned;
  std::vector<ParamEq*> raw;

  Bands(const std::vector<BASS_DX8_PARAMEQ>& params, int channels) {
    for (const BASS_DX8_PARAMEQ& p : params) {
      owned.push_back(std::make_unique<ParamEq>(44100, channels));
      owned.back()->setParameters(&p);
      raw.push_back(owned.back().get());
    }
  }
  void run(float* samples, std::size_t frames) {
    ParamEq::processCascade(raw.data(), raw.size(), samples, frames);
  }
};

// The player's ten bands, flat.
constexpr std::array<float, 10> kCentres{80, 150, 300, 500, 750, 1000, 3000, 8000, 12000, 15000};
std::vector<BASS_DX8_PARAMEQ> flatBands() {
  std::vector<BASS_DX8_PARAMEQ> params;
  for (const float centre : kCentres) params.push_back({centre, 18, 0});
  return params;
}

// Runs `effect(samples, frames, first frame)` over a copy of `signal` in
// blocks of the sizes given, in turn, and returns the copy.
template <typename Effect>
std::vector<float> inBlocks(std::vector<float> signal, std::size_t channels,
                            const std::vector<std::size_t>& sizes, Effect effect) {
  const std::size_t frames = signal.size() / channels;
  for (std::size_t at = 0, i = 0; at < frames; ++i) {
    const std::size_t n = std::min(sizes[i % sizes.size()], frames - at);
    effect(signal.data() + at * channels, n, at);
    at += n;
  }
  return signal;
}

// Blocks of uneven length, so the state must carry across calls.
const std::vector<std::size_t> kUneven{37, 512, 1, 300};

// The stereo loops send each frame through band s at step s, so the output is
// the same as each side's, count - 1 frames later.
TEST(EqualiserLoopsTest, BothSidesMatchTheirOwnCascadeInEveryFrameLoop) {
  constexpr std::size_t kFrames = 4000;
  const std::vector<float> stereo = noise(2 * kFrames, 3);
  for (const bool wide : {false, true}) {
    if (useWideRegisters(wide) != wide) continue;  // no AVX2 here
    for (const std::size_t count : std::array<std::size_t, 10>{1, 2, 3, 4, 5, 7, 10, 16, 31, 32}) {
      SCOPED_TRACE(testing::Message() << (wide ? "AVX2, " : "SSE, ") << count << " bands");
      constexpr std::array<float, 6> kGains{6, -4, 0, 9, -12, 3};
      std::vector<BASS_DX8_PARAMEQ> params;
      for (std::size_t b = 0; b < count; ++b)
        params.push_back({80.0f * std::pow(200.0f, static_cast<float>(b) / 32.0f),
                          b % 2 == 0 ? 12.0f : 18.0f, kGains[b % kGains.size()]});
      Bands both(params, 2);
      const auto out = inBlocks(stereo, 2, kUneven,
                                [&](float* at, std::size_t n, std::size_t) { both.run(at, n); });
      for (std::size_t side = 0; side < 2; ++side) {
        std::vector<float> alone(kFrames);
        for (std::size_t f = 0; f < kFrames; ++f) alone[f] = stereo[2 * f + side];
        Bands one(params, 1);
        alone = inBlocks(alone, 1, kUneven,
                         [&](float* at, std::size_t n, std::size_t) { one.run(at, n); });
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

TEST(EqualiserLoopsTest, AFlatStereoEqualiserDelaysByOneFramePerBandAfterTheFirst) {
  const std::vector<float> input = noise(2 * 4000, 1);
  for (const std::vector<std::size_t>& sizes :
       {std::vector<std::size_t>{512}, {1}, {3, 9, 100}, {8, 10}}) {
    SCOPED_TRACE(sizes.front());
    Bands eq(flatBands(), 2);
    const auto out =
        inBlocks(input, 2, sizes, [&](float* x, std::size_t n, std::size_t) { eq.run(x, n); });
    for (std::size_t i = 0; i < 18; ++i) ASSERT_EQ(out[i], 0.0f) << i;
    for (std::size_t i = 18; i < out.size(); ++i) ASSERT_EQ(out[i], input[i - 18]) << i;
  }
}

TEST(EqualiserLoopsTest, TheEqualiserSoundsTheSameWhateverTheBlockSize) {
  // Flat, then band 6 at +3 dB from frame 1024, then flat again from 2048:
  // the bands leave and re-enter their resting state on the way.
  const std::vector<float> input = noise(2 * 6144, 2);
  auto run = [&](const std::vector<std::size_t>& sizes, float boost = 3) {
    Bands eq(flatBands(), 2);
    return inBlocks(input, 2, sizes, [&](float* x, std::size_t n, std::size_t at) {
      const BASS_DX8_PARAMEQ band6{kCentres[6], 18, at == 1024 ? boost : 0.0f};
      if (at == 1024 || at == 2048) eq.raw[6]->setParameters(&band6);
      eq.run(x, n);
    });
  };
  const auto whole = run({512});
  EXPECT_NE(whole, run({512}, 0)) << "the boost is heard";
  EXPECT_EQ(run({256, 128, 128}), whole);
  EXPECT_EQ(run({64}), whole);
}

// A click, then noise, through a long bright room: the tail recirculates
// through every line many times, so a line read from the wrong lane or a
// sign out of place in the mixing shows at once.
TEST(ReverbLoopsTest, WideAndNarrowLoopsHearTheSameRoom) {
  if (!useWideRegisters(true)) GTEST_SKIP() << "no AVX2 and FMA here";
  constexpr std::size_t kFrames = 44100;
  std::vector<float> input(2 * kFrames, 0.0f);
  input[0] = input[1] = 0.9f;
  const std::vector<float> burst = noise(2 * 4410, 5);
  std::copy(burst.begin(), burst.end(), input.begin() + 2 * 4410);

  std::array<std::vector<float>, 2> heard;
  for (const bool wide : {false, true}) {
    useWideRegisters(wide);
    Reverb room(44100, 2);
    const BASS_DX8_REVERB p{0.0f, 0.0f, 2500.0f, 0.9f};
    room.setParameters(&p);
    heard[wide ? 1 : 0] = inBlocks(
        input, 2, kUneven, [&](float* at, std::size_t n, std::size_t) { room.process(at, n); });
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

TEST(ReverbLoopsTest, TheReverbSoundsTheSameWhateverTheBlockSize) {
  const std::vector<float> input = noise(2 * 44100, 3);
  auto run = [&](const std::vector<std::size_t>& sizes) {
    Reverb reverb(44100, 2);
    const BASS_DX8_REVERB room{0, -3, 800, 0.2f};
    reverb.setParameters(&room);
    return inBlocks(input, 2, sizes, [&](float* x, std::size_t n, std::size_t at) {
      if (at == 22016) {
        const BASS_DX8_REVERB drier{-2, -20, 300, 0.7f};
        reverb.setParameters(&drier);
      }
      reverb.process(x, n);
    });
  };
  const auto whole = run({512});
  EXPECT_NE(whole, input) << "the tail is heard";
  EXPECT_EQ(run({1}), whole);
  EXPECT_EQ(run({96, 97, 63}), whole);
  EXPECT_EQ(run({256}), whole);
}

TEST(LimiterTest, FindsAPeakInAnyPlaceOfABlock) {
  for (std::size_t at = 0; at < 8; ++at) {
    SCOPED_TRACE(at);
    Limiter limiter(44100);
    std::vector<float> block(8, 0.5f);  // 4 frames
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
TEST(LimiterTest, RecoversWithItsTimeConstant) {
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
