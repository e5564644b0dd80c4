// The equaliser bands, the reverb and the output limiter, measured on what
// the capture output received.

#include "BassFixture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace yarvo::audio::test {
namespace {

// The engine's bands: these centres, 18 semitones wide.
constexpr std::array<float, 10> kBandCentres{80,   150,  300,  500,   750,
                                             1000, 3000, 8000, 12000, 15000};
constexpr float kBandwidth = 18.0f;

class EffectsTest : public BassFixture {
 protected:
  // Plays `signal` (as a float WAV) through the effects `setup` puts on the
  // stream, and returns the output over the signal's length.
  template <typename Setup>
  std::vector<float> playThrough(const Signal& signal, Setup setup) {
    const HSTREAM stream = openWav(signal, true);
    EXPECT_NE(stream, 0u);
    setup(stream);
    EXPECT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
    std::vector<float> out = render(static_cast<double>(signal.samples.size()) / signal.rate);
    BASS_StreamFree(stream);
    return out;
  }

  static void addBand(HSTREAM stream, float centre, float gain) {
    const BASS_DX8_PARAMEQ p{centre, kBandwidth, gain};
    EXPECT_TRUE(BASS_FXSetParameters(BASS_ChannelSetFX(stream, BASS_FX_DX8_PARAMEQ, 0), &p));
  }

  // The reverb at its defaults but for those given.
  static void addReverb(HSTREAM stream, float mixDb, float timeMs = 1000.0f,
                        float hfRatio = 0.001f) {
    const BASS_DX8_REVERB p{0.0f, mixDb, timeMs, hfRatio};
    EXPECT_TRUE(BASS_FXSetParameters(BASS_ChannelSetFX(stream, BASS_FX_DX8_REVERB, 0), &p));
  }
};

// Cut or boost, low or high in the range: the centre moves by the gain, and
// two octaves away the tone is left alone.
TEST_F(EffectsTest, APeakingBandChangesTheToneByItsGainNearItsCentreOnly) {
  struct Case {
    float centre, gain;
    double toneHz, expectedDb, toleranceDb;
  };
  constexpr double kAmplitude = 0.1;
  for (const Case& c : {Case{1000, 10, 1000, 10, 0.5}, Case{1000, 10, 250, 0, 1.0},
                        Case{1000, 10, 4000, 0, 1.0}, Case{1000, -10, 1000, -10, 0.5},
                        Case{80, 10, 80, 10, 0.5}, Case{12000, 10, 12000, 10, 0.5}}) {
    SCOPED_TRACE(testing::Message()
                 << c.gain << " dB at " << c.centre << ", " << c.toneHz << " Hz");
    const auto out = playThrough(sine(c.toneHz, kAmplitude, 2.0),
                                 [&](HSTREAM s) { addBand(s, c.centre, c.gain); });
    const double level = toneAmplitude(out, 0, c.toneHz, 44100, 44100 / 2, 44100);
    EXPECT_NEAR(toDb(level / kAmplitude), c.expectedDb, c.toleranceDb);
  }
}

TEST_F(EffectsTest, ParametersReadBackClampedToTheirRanges) {
  const HSTREAM stream = openWav(sine(1000.0, 0.1, 1.0));
  const HFX band = BASS_ChannelSetFX(stream, BASS_FX_DX8_PARAMEQ, 0);
  const HFX reverb = BASS_ChannelSetFX(stream, BASS_FX_DX8_REVERB, 0);
  ASSERT_NE(band, 0u);
  ASSERT_NE(reverb, 0u);
  BASS_DX8_REVERB r{};
  ASSERT_TRUE(BASS_FXGetParameters(reverb, &r));
  EXPECT_FLOAT_EQ(r.fInGain, 0.0f);
  EXPECT_FLOAT_EQ(r.fReverbMix, 0.0f);
  EXPECT_FLOAT_EQ(r.fReverbTime, 1000.0f);
  EXPECT_FLOAT_EQ(r.fHighFreqRTRatio, 0.001f);
  r.fReverbMix = -200.0f;
  r.fReverbTime = 9000.0f;
  ASSERT_TRUE(BASS_FXSetParameters(reverb, &r));
  ASSERT_TRUE(BASS_FXGetParameters(reverb, &r));
  EXPECT_FLOAT_EQ(r.fReverbMix, -96.0f);
  EXPECT_FLOAT_EQ(r.fReverbTime, 3000.0f);
  const BASS_DX8_PARAMEQ wild{30.0f, 18.0f, 40.0f};
  ASSERT_TRUE(BASS_FXSetParameters(band, &wild));
  BASS_DX8_PARAMEQ p{};
  ASSERT_TRUE(BASS_FXGetParameters(band, &p));
  EXPECT_FLOAT_EQ(p.fCenter, 80.0f);
  EXPECT_FLOAT_EQ(p.fGain, 15.0f);
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const BASS_DX8_PARAMEQ broken{nan, 18.0f, 0.0f};
  EXPECT_FALSE(BASS_FXSetParameters(band, &broken));
}

// After a click, a reverb at 0 dB leaves a tail that decays; at -96 dB none.
TEST_F(EffectsTest, ReverbMixDecidesWhetherAClickLeavesATail) {
  constexpr double kClickAt = 0.25;
  const std::size_t clickFrame = static_cast<std::size_t>(kClickAt * 44100);
  const std::size_t early = clickFrame + 44100 / 20;  // 50 ms after
  const auto wet = playThrough(click(kClickAt, 0.5, 2.0), [](HSTREAM s) { addReverb(s, 0.0f); });
  const auto dry = playThrough(click(kClickAt, 0.5, 2.0), [](HSTREAM s) { addReverb(s, -96.0f); });

  // With the default high-frequency ratio the click's highs die at once and
  // the tail is the low part of it: some 60 dB under the click, and real.
  EXPECT_GT(rms(wet, early, 44100 / 5), 1e-4);
  // Decaying, as a room does: the second 200 ms are quieter than the first.
  EXPECT_LT(rms(wet, early + 44100 / 5, 44100 / 5), rms(wet, early, 44100 / 5));
  EXPECT_EQ(peak(dry, early, 44100), 0.0);
  // The click itself passes dry in both.
  EXPECT_NEAR(peak(dry, clickFrame, 1), 0.5, 1e-6);
  EXPECT_GE(peak(wet, clickFrame, 1), 0.49);
}

// At -96 dB the reverb passes the signal exactly as it is, and raised later
// it starts from silence: nothing of a click played while it was at none
// rings out after it is raised.
TEST_F(EffectsTest, AReverbAtNoneHoldsNothingOfWhatPassed) {
  const auto signal = click(0.1, 0.5, 2.0);
  const HSTREAM stream = openWav(signal, true);
  const HFX reverb = BASS_ChannelSetFX(stream, BASS_FX_DX8_REVERB, 0);
  BASS_DX8_REVERB p{0.0f, -96.0f, 3000.0f, 0.5f};
  ASSERT_TRUE(BASS_FXSetParameters(reverb, &p));
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  const auto before = render(0.3);
  EXPECT_NEAR(peak(before, 4410, 1), 0.5, 1e-7) << "the click passes exactly";
  EXPECT_EQ(peak(before, 4411, before.size() / 2 - 4411), 0.0);

  p.fReverbMix = 0.0f;
  ASSERT_TRUE(BASS_FXSetParameters(reverb, &p));
  EXPECT_EQ(peak(render(0.5), 0, 44100 / 2), 0.0) << "no tail of the click";
  BASS_StreamFree(stream);
}

// A room, not a comb: after a click the tail fills every 5 ms window from
// 20 ms to 300 ms, with no silent gaps between separate echoes. And a longer
// reverb time leaves more of it a second after the click.
TEST_F(EffectsTest, ReverbTailIsDenseAndAsLongAsItsTime) {
  constexpr std::size_t kClick = 4410;
  constexpr std::size_t kWindow = 44100 / 200;
  const auto out =
      playThrough(click(0.1, 0.5, 2.0), [](HSTREAM s) { addReverb(s, 0.0f, 2500.0f, 0.5f); });
  double quietest = 1.0;
  double loudest = 0.0;
  for (std::size_t at = kClick + 4 * kWindow; at < kClick + 60 * kWindow; at += kWindow) {
    quietest = std::min(quietest, rms(out, at, kWindow));
    loudest = std::max(loudest, rms(out, at, kWindow));
  }
  EXPECT_GT(loudest, 0.0);
  EXPECT_GT(quietest, loudest * 0.03) << "quietest window " << quietest << ", loudest " << loudest;

  const auto shortRoom =
      playThrough(click(0.1, 0.5, 2.0), [](HSTREAM s) { addReverb(s, 0.0f, 300.0f, 0.5f); });
  const auto oneSecondOn = static_cast<std::size_t>(1.1 * 44100);
  const double longTail = rms(out, oneSecondOn, 44100 / 5);
  // 300 ms: 200 dB down by then; 2.5 s: only 24 dB further down.
  EXPECT_GT(longTail, 1e-5);
  EXPECT_LT(rms(shortRoom, oneSecondOn, 44100 / 5), longTail * 1e-3);
}

// All ten bands and the reverb: at 0 dB and -96 dB they leave every tone as
// it was; at +10 dB and 0 dB on a loud tone the output never clips, and the
// limiter does not distort the tone audibly.
TEST_F(EffectsTest, ElevenEffectsAreTransparentAtRestAndDoNotClipAtFullBoost) {
  const auto through = [&](double hz, double amplitude, float gain, float mixDb) {
    return playThrough(sine(hz, amplitude, 2.0), [&](HSTREAM s) {
      for (float centre : kBandCentres) addBand(s, centre, gain);
      addReverb(s, mixDb);
    });
  };
  for (const double hz : {100.0, 1000.0, 5000.0, 14000.0}) {
    SCOPED_TRACE(hz);
    const auto out = through(hz, 0.25, 0.0f, -96.0f);
    EXPECT_NEAR(toDb(toneAmplitude(out, 0, hz, 44100, 44100 / 2, 44100) / 0.25), 0.0, 0.1);
  }
  const auto out = through(1000.0, 0.5, 10.0f, 0.0f);
  EXPECT_LE(peak(out, 0, out.size() / 2), 1.0);
  const double fundamental = toneAmplitude(out, 0, 1000.0, 44100, 44100 / 2, 44100);
  EXPECT_GT(fundamental, 0.5);
  EXPECT_LT(toneAmplitude(out, 0, 3000.0, 44100, 44100 / 2, 44100), fundamental * 0.01);
  EXPECT_LT(toneAmplitude(out, 0, 2000.0, 44100, 44100 / 2, 44100), fundamental * 0.01);
}

}  // namespace
}  // namespace yarvo::audio::test
