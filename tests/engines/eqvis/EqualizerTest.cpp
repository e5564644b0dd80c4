// The equalizer's sliders on the channel of the audio engine (the fake
// library records every effect's parameters), its on/off state and the tool
// tips that tell the values.

#include <gtest/gtest.h>

#include <string>

#include "RealLibraryFixture.h"
#include "core/DataForm.h"
#include "engines/frmBass.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

class EqualizerTest : public test::ProgramFixture {
 protected:
  void SetUp() override {
    Start();
    bass.AddFile("/m/a.mp3", 30);
  }

  void Play() {
    auto& engine = P().frmBass();
    engine.FileToPlay.Text = "/m/a.mp3";
    engine.PLAYtheBass();
    ASSERT_EQ(bass.PlayingFile(), "/m/a.mp3");
  }

  const BASS_DX8_PARAMEQ& Band(int band) {
    return bass.bands.at(P().frmBass().fx[static_cast<std::size_t>(band)]);
  }
  float Gain(int band) { return Band(band).fGain; }
  float Mix() { return bass.reverbs.at(P().frmBass().fx[10]).fReverbMix; }
  Slider& Eq(int b) { return P().Main().sldEQR(b); }
  std::string Tip(int b) { return Eq(b).ToolTipText; }
};

struct BandCase {
  int value;
  float gain;
};

class BandGain : public EqualizerTest, public ::testing::WithParamInterface<BandCase> {};

// Each band keeps its centre and width; only its gain moves.
TEST_P(BandGain, ASlidersValueIsHeardAsWholeDecibels) {
  Play();
  constexpr float kCentres[10] = {80, 150, 300, 500, 750, 1000, 3000, 8000, 12000, 15000};
  for (int band = 0; band < 10; ++band) {
    SCOPED_TRACE(band);
    Eq(band).Value = GetParam().value + 1;  // a move, whatever the start
    Eq(band).Value = GetParam().value;
    EXPECT_EQ(Band(band).fCenter, kCentres[band]);
    EXPECT_EQ(Band(band).fBandwidth, 18.0f);
    EXPECT_EQ(Gain(band), GetParam().gain);
    EXPECT_EQ(Tip(band), std::to_string(50 - GetParam().value));
    if (band < 9) {
      EXPECT_EQ(Gain(band + 1), 0.0f) << "the next band stays flat";
    }
  }
}

// v = value / 5 rounded; gain = 10 - v.
INSTANTIATE_TEST_SUITE_P(Values, BandGain,
                         ::testing::Values(BandCase{0, 10}, BandCase{100, -10}, BandCase{50, 0},
                                           BandCase{2, 10}, BandCase{3, 9}, BandCase{47, 1},
                                           BandCase{53, -1}, BandCase{98, -10}));

TEST_F(EqualizerTest, TheReverbFollowsACubeFromDryAtTheBottomToFullAtTheTop) {
  Play();
  EXPECT_EQ(Mix(), -96.0f) << "the reverb slider starts at the bottom";
  Eq(10).Value = 0;
  EXPECT_EQ(Mix(), 0.0f);
  EXPECT_EQ(Tip(10), "100");
  Eq(10).Value = 50;
  EXPECT_FLOAT_EQ(Mix(), -12.0f);
  EXPECT_EQ(Tip(10), "50");
}

TEST_F(EqualizerTest, OffFlattensTheBandsAndLowersTheReverbButKeepsTheSliders) {
  Play();
  Eq(2).Value = 0;
  Eq(10).Value = 0;
  P().Options().Option13.Value = true;
  for (int b = 0; b < 10; ++b) {
    SCOPED_TRACE(b);
    EXPECT_EQ(Gain(b), 0.0f);
    EXPECT_EQ(Tip(b), "0");
  }
  EXPECT_EQ(Mix(), -12.0f);
  EXPECT_EQ(Tip(10), "50");
  EXPECT_EQ(Eq(2).Value.get(), 0);

  Eq(4).Value = 100;
  EXPECT_EQ(Gain(4), 0.0f) << "while off a move is not heard";
  EXPECT_EQ(Tip(4), "0");

  P().Options().Option12.Value = true;
  EXPECT_EQ(Gain(2), 10.0f);
  EXPECT_EQ(Gain(4), -10.0f);
  EXPECT_EQ(Mix(), 0.0f);
  EXPECT_EQ(Tip(4), "-50");
}

TEST_F(EqualizerTest, TheButtonAndTheOptionsPageSwitchTheEqualizerAndItsPicture) {
  Play();
  Eq(0).Value = 0;
  auto& main = P().Main();
  auto picture = [&] { return main.ImgButton2.Picture.get().Source(); };
  main.ImgButton2.Click();
  EXPECT_TRUE(P().Options().Option13.Value.get());
  EXPECT_FALSE(P().Options().Option12.Value.get());
  EXPECT_EQ(Gain(0), 0.0f);
  EXPECT_EQ(picture(), folder / "Skins/Default/button2b.bmp");
  main.ImgButton2.Click();
  EXPECT_TRUE(P().Options().Option12.Value.get());
  EXPECT_EQ(Gain(0), 10.0f);
  EXPECT_EQ(picture(), folder / "Skins/Default/button2.bmp");
  P().Options().Option13.Value = true;
  EXPECT_EQ(picture(), folder / "Skins/Default/button2b.bmp") << "set on the options page";
}

TEST_F(EqualizerTest, AMoveBetweenSongsIsHeardFromTheNextStream) {
  Eq(7).Value = 0;
  EXPECT_EQ(Tip(7), "50") << "the tool tip follows at once";
  EXPECT_TRUE(bass.bands.empty()) << "no channel, no effect";
  Play();
  EXPECT_EQ(Gain(7), 10.0f);
}

class HeardEqualizerTest : public test::RealLibraryFixture {
 protected:
  // Strength of 1 kHz in the next `seconds` of output, the first 0.1 s of
  // them left out while the filters settle.
  double Tone(double seconds) {
    capture_->take();
    Render(seconds);
    const std::vector<float> heard = capture_->take();
    const std::size_t skip = 4410;
    return audio::test::toneAmplitude(heard, 0, 1000, 44100, skip, heard.size() / 2 - skip);
  }
};

TEST_F(HeardEqualizerTest, TheOneKilohertzBandAtTheTopIsHeardTenDecibelsLouderAtOnce) {
  StartReal();
  R().Main().Volum.Value = 100;
  const auto path = media_ / "tone.wav";
  audio::test::writeWav(path, audio::test::sine(1000, 0.1, 3.0), true);
  PlayFile(path);
  const double flat = Tone(0.5);
  ASSERT_GT(flat, 0.05);
  R().Main().sldEQR(5).Value = 0;
  EXPECT_NEAR(audio::test::toDb(Tone(0.5) / flat), 10.0, 0.5);
  R().Options().Option13.Value = true;
  EXPECT_NEAR(audio::test::toDb(Tone(0.5) / flat), 0.0, 0.5) << "off is flat again";
}

}  // namespace
}  // namespace yarvo
