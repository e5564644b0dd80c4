// The equalizer's sliders on the channel of the audio engine (the fake
// library records every effect's parameters), its on/off state, the tool tips
// that tell the values, and its presets; and the sliders heard through the
// real library.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RealLibraryFixture.h"
#include "core/DataForm.h"
#include "engines/FormPreset.h"
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
  ctlScrollbar& Eq(int b) { return P().Main().sldEQR(b); }
  // A move by the user: the bar's new value, and its Change.
  void Move(int b, double value) {
    Eq(b).value = value;
    Eq(b).Change();
  }
  std::string Tip(int b) { return Eq(b).ToolTipText; }
};

// Each band keeps its centre and width; only its gain moves, by whole
// decibels: gain = 10 - round(value / 5).
TEST_F(EqualizerTest, ASlidersValueIsHeardAsWholeDecibels) {
  Play();
  constexpr float kCentres[10] = {80, 150, 300, 500, 750, 1000, 3000, 8000, 12000, 15000};
  float before = 0.0f;  // each value's gain differs from the one before
  for (const auto& [value, gain] :
       {std::pair{0, 10.0f}, {3, 9.0f}, {2, 10.0f}, {53, -1.0f}, {50, 0.0f}, {100, -10.0f}}) {
    for (int band = 0; band < 10; ++band) {
      SCOPED_TRACE(testing::Message() << "value " << value << ", band " << band);
      Move(band, value);
      EXPECT_EQ(Band(band).fCenter, kCentres[band]);
      EXPECT_EQ(Band(band).fBandwidth, 18.0f);
      EXPECT_EQ(Gain(band), gain);
      EXPECT_EQ(Tip(band), std::to_string(50 - value));
      if (band < 9) {
        EXPECT_EQ(Gain(band + 1), before) << "the next band is not moved";
      }
    }
    before = gain;
  }
}

TEST_F(EqualizerTest, TheReverbFollowsACubeFromDryAtTheBottomToFullAtTheTop) {
  Play();
  EXPECT_EQ(Mix(), -96.0f) << "the reverb slider starts at the bottom";
  Move(10, 0);
  EXPECT_EQ(Mix(), 0.0f);
  EXPECT_EQ(Tip(10), "100");
  Move(10, 50);
  EXPECT_FLOAT_EQ(Mix(), -12.0f);
  EXPECT_EQ(Tip(10), "50");
}

TEST_F(EqualizerTest, OffFlattensTheBandsAndLowersTheReverbButKeepsTheSliders) {
  Play();
  Move(2, 0);
  Move(10, 0);
  P().Options().Option13.Value = true;
  for (int b = 0; b < 10; ++b) {
    SCOPED_TRACE(b);
    EXPECT_EQ(Gain(b), 0.0f);
    EXPECT_EQ(Tip(b), "0");
  }
  EXPECT_EQ(Mix(), -12.0f);
  EXPECT_EQ(Tip(10), "50");
  EXPECT_EQ(Eq(2).value, 0.0);

  Move(4, 100);
  EXPECT_EQ(Gain(4), 0.0f) << "while off a move is not heard";
  EXPECT_EQ(Tip(4), "0");

  P().Options().Option12.Value = true;
  EXPECT_EQ(Gain(2), 10.0f);
  EXPECT_EQ(Gain(4), -10.0f);
  EXPECT_EQ(Mix(), 0.0f);
  EXPECT_EQ(Tip(4), "-50");
}

TEST_F(EqualizerTest, TheButtonAndTheOptionsPageSwitchTheEqualizerAndItsPicture) {
  for (const char* name : {"button2.bmp", "button2b.bmp"})
    test::WriteBytes(folder / "Skins/Default" / name, "BM");
  Play();
  Move(0, 0);
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
  Move(7, 0);
  EXPECT_EQ(Tip(7), "50") << "the tool tip follows at once";
  EXPECT_TRUE(bass.bands.empty()) << "no channel, no effect";
  Play();
  EXPECT_EQ(Gain(7), 10.0f);
}

// A preset record: the name, then ten values counting from `first` by `step`.
std::string Record(const std::string& name, int first, int step = 1) {
  std::string lines = name + "\r\n";
  for (int i = 0; i < 10; ++i) lines += std::to_string(first + step * i) + "\r\n";
  return lines;
}

// The presets: eqpreset.ini as records of 11 lines, the dialog's three modes,
// and a click that loads a record into the sliders and the channel at once.
class PresetTest : public EqualizerTest {
 protected:
  std::string File() { return folder / "eqpreset.ini"; }
  void WriteFile(const std::string& bytes) { test::WriteBytes(File(), bytes); }
  FormPreset& Dialog() { return P().FormPreset(); }
  int Slider(int b) { return static_cast<int>(Eq(b).value); }
  void ClickName(int row) { Dialog().ListaPreset.SetListIndex(row); }
};

// The dialog opens for loading, where Ok writes nothing; for saving, Ok
// appends a record; opened again, it reads the file again, in load mode.
TEST_F(PresetTest, SaveAppendsARecordOfTheNameAndTheTenBandsWhereLoadWritesNothing) {
  auto& dialog = Dialog();
  EXPECT_EQ(dialog.Caption.get(), "Load Equalizer Preset");
  EXPECT_FALSE(dialog.NumePreset.Visible.get());
  EXPECT_FALSE(dialog.DelButton.Visible.get());
  EXPECT_FALSE(dialog.ValoriPreset.Visible.get());
  EXPECT_EQ(dialog.ListaPreset.ListCount(), 0) << "no file yet";
  LoadPreset();
  Dialog().Command1.Click();
  EXPECT_FALSE(std::filesystem::exists(File()));
  EXPECT_EQ(P().LoadedFormPreset(), nullptr);

  WriteFile(Record("Flat", 50, 0));
  for (int b = 0; b <= 10; ++b) P().Main().sldEQR(b).value = 5 * b;
  SavePreset();
  EXPECT_TRUE(Dialog().Visible.get());
  EXPECT_TRUE(Dialog().NumePreset.Visible.get());
  Dialog().NumePreset.Text = "Rock";
  Dialog().Command1.Click();
  EXPECT_EQ(test::ReadBytes(File()), Record("Flat", 50, 0) + Record("Rock", 0, 5))
      << "the reverb is no part of a preset";
  EXPECT_EQ(P().LoadedFormPreset(), nullptr) << "Ok closes the dialog";
  LoadPreset();
  EXPECT_EQ(test::Rows(Dialog().ListaPreset), (std::vector<std::string>{"Flat", "Rock"}));
  EXPECT_FALSE(Dialog().NumePreset.Visible.get());
}

TEST_F(PresetTest, AClickLoadsTheTenSlidersAndTheChannelHearsThemAtOnce) {
  WriteFile(Record("Low", 0, 0) + Record("Ramp", 10, 5));
  Play();
  LoadPreset();
  EXPECT_EQ(test::Rows(Dialog().ListaPreset), (std::vector<std::string>{"Low", "Ramp"}));
  ClickName(1);
  for (int b = 0; b < 10; ++b) {
    SCOPED_TRACE(b);
    EXPECT_EQ(Slider(b), 10 + 5 * b);
    EXPECT_EQ(Gain(b), static_cast<float>(10 - (2 + b)));
  }
  EXPECT_EQ(Slider(10), 100) << "the reverb stays";
  EXPECT_TRUE(Dialog().DelButton.Enabled.get());
  EXPECT_NE(P().LoadedFormPreset(), nullptr) << "the dialog stays open";
  Dialog().Command2.Click();
  EXPECT_EQ(P().LoadedFormPreset(), nullptr);
  EXPECT_EQ(Slider(0), 10) << "Cancel does not undo a loaded preset";
}

// A name is looked up as the first row that equals it, wherever that is.
TEST_F(PresetTest, ANameLikeAValueFindsThatValueRow) {
  // "12" is also row 3 of the first record: its rows 4 to 13 are read.
  WriteFile(Record("A", 10) + Record("12", 60));
  LoadPreset();
  ClickName(1);
  EXPECT_EQ(Slider(0), 13);
  EXPECT_EQ(Slider(6), 19);
  EXPECT_EQ(Slider(7), 12) << "row 11, the next name, read as a value";
  EXPECT_EQ(Slider(8), 60);
}

TEST_F(PresetTest, OnlyTheFirstThirtyRecordsAreListed) {
  std::string bytes;
  for (int r = 0; r < 31; ++r) bytes += Record("P" + std::to_string(r), r);
  WriteFile(bytes);
  LoadPreset();
  EXPECT_EQ(Dialog().ListaPreset.ListCount(), 30);
  EXPECT_EQ(Dialog().ListaPreset.List(29), "P29");
  EXPECT_EQ(Dialog().ValoriPreset.ListCount(), 31 * 11) << "the 31st stays in the file";
}

TEST_F(PresetTest, DeleteRemovesTheSelectedNameAndItsElevenRows) {
  WriteFile(Record("A", 1) + Record("B", 2) + Record("C", 3));
  DeletePreset();
  auto& dialog = Dialog();
  EXPECT_TRUE(dialog.DelButton.Visible.get());
  EXPECT_FALSE(dialog.DelButton.Enabled.get());
  dialog.DelButton.Click();
  EXPECT_EQ(test::ReadBytes(File()), Record("A", 1) + Record("B", 2) + Record("C", 3))
      << "with no name selected nothing goes";
  ClickName(1);
  dialog.DelButton.Click();
  EXPECT_EQ(test::ReadBytes(File()), Record("A", 1) + Record("C", 3));
  EXPECT_EQ(test::Rows(dialog.ListaPreset), (std::vector<std::string>{"A", "C"}));
  EXPECT_EQ(dialog.ValoriPreset.ListCount(), 22);
  EXPECT_NE(P().LoadedFormPreset(), nullptr) << "the dialog stays open";
  for (int left = 2; left > 0; --left) {
    ClickName(0);
    dialog.DelButton.Click();
  }
  EXPECT_TRUE(std::filesystem::exists(File())) << "the last name leaves an empty file";
  EXPECT_EQ(test::ReadBytes(File()), "");
  EXPECT_EQ(dialog.ListaPreset.ListCount(), 0);
}

TEST_F(PresetTest, ARecordCutShortShiftsTheNamesBehindIt) {
  std::string shortRecord = "Cut\r\n1\r\n2\r\n";
  WriteFile(shortRecord + Record("Next", 5));
  LoadPreset();
  EXPECT_EQ(test::Rows(Dialog().ListaPreset), (std::vector<std::string>{"Cut", "12"}))
      << "row 11 is a value of the next record";
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
  R().Main().Volum.value = 100;
  const auto path = media_ / "tone.wav";
  audio::test::writeWav(path, audio::test::sine(1000, 0.1, 3.0), true);
  PlayFile(path);
  const double flat = Tone(0.5);
  ASSERT_GT(flat, 0.05);
  R().Main().sldEQR(5).value = 0;  // as a drag leaves it, telling as it goes
  R().Main().sldEQR(5).Change();
  EXPECT_NEAR(audio::test::toDb(Tone(0.5) / flat), 10.0, 0.5);
  // Off leaves the reverb at -12 dB: the room it adds to the tone moves it by
  // up to a decibel, which is still far from the band's ten.
  R().Options().Option13.Value = true;
  EXPECT_NEAR(audio::test::toDb(Tone(0.5) / flat), 0.0, 1.0) << "off is flat again";
}

}  // namespace
}  // namespace yarvo
