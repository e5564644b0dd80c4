// The visualisation drawn from real audio: a tone or a level written to a
// file, played through the real audio library into a capture output, one
// tick of tmrSpectrum, and the 180 x 40 picture that Main shows. Each mode's
// picture is also written as a PNG beside this test's build files.

#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <numbers>
#include <set>
#include <string>
#include <vector>

#include "RealLibraryFixture.h"
#include "core/DataForm.h"
#include "engines/Visualisation.h"
#include "settings/Options.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {
namespace {

using audio::test::Signal;
using audio::test::sine;
using audio::test::stereo;
using audio::test::writeWav;

// The colour at (x, y) of a drawn picture, y counted from the top.
std::uint32_t ColourAt(const IndexedImage& image, int x, int y) {
  return image
      .palette[image.pixels[static_cast<std::size_t>((image.height - 1 - y) * image.width + x)]];
}

// Writes `image` as a PNG file (8-bit RGB, no interlace), each pixel a square
// of `scale`, so that a small picture can be looked at.
void WritePng(const std::filesystem::path& path, const IndexedImage& image, int scale) {
  const auto put32 = [](std::vector<std::uint8_t>& out, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
      out.push_back(static_cast<std::uint8_t>(value >> shift));
  };
  std::vector<std::uint8_t> file = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  // A chunk: length, type, data, and the CRC of type and data.
  const auto chunk = [&](const char* type, const std::vector<std::uint8_t>& data) {
    put32(file, static_cast<std::uint32_t>(data.size()));
    const std::size_t typeAt = file.size();
    file.insert(file.end(), type, type + 4);
    file.insert(file.end(), data.begin(), data.end());
    put32(file, static_cast<std::uint32_t>(
                    crc32(0L, file.data() + typeAt, static_cast<uInt>(file.size() - typeAt))));
  };
  std::vector<std::uint8_t> header;
  put32(header, static_cast<std::uint32_t>(image.width * scale));
  put32(header, static_cast<std::uint32_t>(image.height * scale));
  header.insert(header.end(), {8, 2, 0, 0, 0});  // 8 bits, RGB, deflate, filter 0, no interlace
  // Rows of filter type 0 followed by RGB bytes.
  std::vector<std::uint8_t> raw;
  for (int y = 0; y < image.height * scale; ++y) {
    raw.push_back(0);
    for (int x = 0; x < image.width * scale; ++x) {
      const std::uint32_t argb = ColourAt(image, x / scale, y / scale);
      raw.insert(raw.end(),
                 {static_cast<std::uint8_t>(argb >> 16), static_cast<std::uint8_t>(argb >> 8),
                  static_cast<std::uint8_t>(argb)});
    }
  }
  uLongf packedSize = compressBound(static_cast<uLong>(raw.size()));
  std::vector<std::uint8_t> packed(packedSize);
  ASSERT_EQ(compress(packed.data(), &packedSize, raw.data(), static_cast<uLong>(raw.size())), Z_OK);
  packed.resize(packedSize);
  chunk("IHDR", header);
  chunk("IDAT", packed);
  chunk("IEND", {});
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
  EXPECT_TRUE(out.good()) << "cannot write " << path;
}

// A tone centred on spectrum bin `bin` (2048 points at 44.1 kHz).
double BinHz(int bin) { return bin * 44100.0 / 2048.0; }

// A tone rising from 200 Hz by 2 kHz a second: no two frames show the same.
Signal Sweep(double seconds) {
  Signal s;
  s.samples.resize(static_cast<std::size_t>(seconds * 44100));
  for (std::size_t n = 0; n < s.samples.size(); ++n) {
    const double t = static_cast<double>(n) / 44100;
    s.samples[n] =
        static_cast<float>(0.3 * std::sin(2 * std::numbers::pi * (200 * t + 1000 * t * t)));
  }
  return s;
}

Signal Level(double value, double seconds, int channels = 1) {
  Signal s;
  s.channels = channels;
  s.samples.assign(static_cast<std::size_t>(seconds * 44100) * static_cast<std::size_t>(channels),
                   static_cast<float>(value));
  return s;
}

class VisualisationTest : public test::RealLibraryFixture {
 protected:
  void SetUp() override {
    StartReal();
    R().DataForm().MiniMode = "False";  // the main window shows the pictures
    R().Main().Show();
    UseSkin("0", "0", "48", "2", "1.5");
  }

  // Skin rows 7 to 9 (entry 0) and 11 and 12 (the steps of entries 1 to 127).
  void UseSkin(const char* red, const char* green, const char* blue, const char* greenStep,
               const char* blueStep) {
    auto& skin = R().DataForm().SkinValues;
    skin.Clear();
    for (const char* value :
         {"", "", "", "", "", "", "", red, green, blue, "", greenStep, blueStep}) {
      skin.AddItem(value);
    }
  }

  // Plays `signal` in the mode chosen by `option`, and draws `frames` frames
  // by the engine's own timer after half a second of audio.
  const SpectrumState& Draw(OptionButton& option, const Signal& signal, int frames = 1) {
    option.Value = true;
    const auto path = media_ / ("signal" + std::to_string(++files_) + ".wav");
    writeWav(path, signal, true);
    PlayFile(path);
    Render(0.5);
    clock.Advance(25 * frames);
    return modSpectrum();
  }

  int Pixel(int x, int row) const {
    return modSpectrum().specBuf[static_cast<std::size_t>(row * kSpecWidth + x)];
  }

  // Rows from the bottom that column x fills without a gap.
  int ColumnHeight(int x) const {
    int rows = 0;
    while (rows < kSpecHeight && Pixel(x, rows) != 0) ++rows;
    return rows;
  }

  std::set<int> Values() const {
    const auto& buf = modSpectrum().specBuf;
    return {buf.begin(), buf.end()};
  }

  void SavePicture(const std::string& name) {
    const auto image = R().Main().Visualisation.Drawing.get();
    ASSERT_NE(image, nullptr) << "the tick drew nothing into Main.Visualisation";
    ASSERT_EQ(image->width, kSpecWidth);
    ASSERT_EQ(image->height, kSpecHeight);
    WritePng(std::filesystem::path(EQVIS_PICTURE_DIR) / (name + ".png"), *image, 4);
  }

  Options& Opt() { return R().Options(); }

 private:
  int files_ = 0;
};

TEST_F(VisualisationTest, WaveModeStandsItsTallestColumnOnTheTonesBinInEitherWindow) {
  const auto& s = Draw(Opt().Option9, sine(BinHz(46), 0.1, 2.0));
  ASSERT_EQ(s.specMode, 0);
  int tallest = 0;
  for (int x = 0; x < 90; ++x) {
    if (ColumnHeight(2 * x) > ColumnHeight(2 * tallest)) tallest = x;
  }
  EXPECT_EQ(tallest + 1, 46) << "column x shows bin x + 1";
  const int height = ColumnHeight(2 * tallest);
  EXPECT_GT(height, 20);
  EXPECT_LT(height, 40) << "a tenth of full scale stays below the cap";
  for (int row = 0; row < height; ++row) EXPECT_EQ(Pixel(2 * tallest, row), row + 1);
  EXPECT_LT(ColumnHeight(2 * tallest - 1), height) << "the smoothing column stands lower";
  EXPECT_EQ(ColumnHeight(20), 0) << "far from the tone nothing stands";
  SavePicture("spectrum-mode0-wave");

  // In mini mode the picture goes to the mini window only.
  auto& main = R().Main().Visualisation;
  main.Cls();
  R().DataForm().MiniMode = "True";
  clock.Advance(25);
  EXPECT_EQ(main.Drawing.get(), nullptr);
  const auto mini = R().MiniForm().Visualisation.Drawing.get();
  ASSERT_NE(mini, nullptr);
  EXPECT_EQ(mini->width, kSpecWidth);
  // With the display off the tick stops its timer and clears the picture.
  R().DataForm().MiniMode = "False";
  clock.Advance(25);
  ASSERT_NE(main.Drawing.get(), nullptr);
  Opt().Option5.Value = true;
  clock.Advance(25);
  EXPECT_EQ(main.Drawing.get(), nullptr);
  EXPECT_FALSE(clock.Armed(R().frmBass().tmrSpectrum));
}

TEST_F(VisualisationTest, AnalyzerModeShowsA1kHzToneInBar15Of28) {
  // Bar 15 ends at bin round(2^(150/27)) = 47 and starts behind bar 14's end,
  // bin round(2^(140/27)) = 36; 1 kHz is bin 46.4.
  const auto& s = Draw(Opt().Option8, sine(1000.0, 0.1, 2.0));
  ASSERT_EQ(s.specMode, 1);
  int tallest = 0;
  for (int bar = 0; bar < 28; ++bar) {
    if (ColumnHeight(6 * bar) > ColumnHeight(6 * tallest)) tallest = bar;
    SCOPED_TRACE(bar);
    for (int dx = 1; dx < 4; ++dx) EXPECT_EQ(ColumnHeight(6 * bar + dx), ColumnHeight(6 * bar));
    EXPECT_EQ(ColumnHeight(6 * bar + 4), 0) << "bars are 4 pixels wide, 6 apart";
    EXPECT_EQ(ColumnHeight(6 * bar + 5), 0);
  }
  EXPECT_EQ(tallest, 15);
  EXPECT_GT(ColumnHeight(6 * 15), 10);
  SavePicture("spectrum-mode1-analyzer");
}

// A new stream starts at column 0, wherever the last one left off; at the
// right edge the next column is column 0 again.
TEST_F(VisualisationTest, WaveImageModeWritesOneColumnPerFrameAheadOfItsMarker) {
  modSpectrum().specPos = 179;
  const auto& s = Draw(Opt().Option10, sine(BinHz(20), 0.1, 2.0), 3);
  ASSERT_EQ(s.specMode, 2);
  EXPECT_EQ(s.specPos, 3);
  for (int row = 0; row < kSpecHeight; ++row) {
    SCOPED_TRACE(row);
    EXPECT_EQ(Pixel(3, row), 255) << "the marker stands on the next column";
    EXPECT_EQ(Pixel(4, row), 0) << "nothing written beyond it";
    for (int x = 0; x < 3; ++x) EXPECT_GE(Pixel(x, row), 128);
  }
  for (int x = 0; x < 3; ++x) {
    int brightest = 0;
    for (int row = 0; row < kSpecHeight; ++row) {
      if (Pixel(x, row) > Pixel(x, brightest)) brightest = row;
    }
    EXPECT_EQ(brightest, 19) << "row x shows bin x + 1";
    EXPECT_LT(Pixel(x, brightest), 255) << "a tenth of full scale stays below the cap";
  }
  SavePicture("spectrum-mode2-wave-image");

  modSpectrum().specPos = 179;
  clock.Advance(25);
  EXPECT_EQ(modSpectrum().specPos, 0);
  EXPECT_EQ(Pixel(0, 0), 255);
  EXPECT_GE(Pixel(179, 19), 200);
}

TEST_F(VisualisationTest, OscilloscopeDrawsOneLineForMonoAndTwoForStereoEachOnItsLevel) {
  const auto& mono = Draw(Opt().Option11, sine(441.0, 0.8, 2.0));
  ASSERT_EQ(mono.specMode, 3);
  EXPECT_EQ(Values(), (std::set<int>{0, 1}));
  for (int x = 0; x < kSpecWidth; ++x) {
    int lit = 0;
    for (int row = 0; row < kSpecHeight; ++row) lit += Pixel(x, row) != 0;
    EXPECT_GE(lit, 1) << "column " << x;
  }
  SavePicture("spectrum-mode3-mono");

  const auto& two = Draw(Opt().Option11, stereo(sine(441.0, 0.8, 2.0), sine(0.0, 0.0, 2.0)));
  EXPECT_EQ(Values(), (std::set<int>{0, 1, 127}));
  ASSERT_EQ(two.specMode, 3);
  for (int x = 0; x < kSpecWidth; ++x) {
    EXPECT_EQ(Pixel(x, 20), 127) << "the silent right channel, drawn last, is row 20 at " << x;
  }
  SavePicture("spectrum-mode3-stereo");

  // A constant level is a flat line on its row, full scale on the edges.
  for (const auto& [level, line] : {std::pair{0.0, 20}, {1.0, 0}, {-1.0, 39}, {0.5, 10}}) {
    Draw(Opt().Option11, Level(level, 2.0));
    for (int x = 0; x < kSpecWidth; ++x) {
      for (int row = 0; row < kSpecHeight; ++row) {
        ASSERT_EQ(Pixel(x, row), row == line ? 1 : 0)
            << "level " << level << ", x " << x << ", row " << row;
      }
    }
  }
}

TEST_F(VisualisationTest, NextModeWrapsFromTheOscilloscopeToWaveAndTurnsItsOptionOn) {
  Opt().Option11.Value = true;
  modSpectrum().specBuf.fill(7);
  R().Main().ImgButton1.Click();
  EXPECT_EQ(modSpectrum().specMode, 0);
  EXPECT_TRUE(Opt().Option9.Value.get());
  EXPECT_EQ(Values(), std::set<int>{0}) << "the picture is cleared";
  R().Main().Visualisation.DblClick();
  EXPECT_EQ(modSpectrum().specMode, 1);
  EXPECT_TRUE(Opt().Option8.Value.get());
  R().frmBass().StopBass();
  EXPECT_EQ(modSpectrum().specMode, 1) << "the mode outlives the engine form";
}

// Rows missing, beyond a byte or no number leave their entries as they were:
// black, in a fresh palette. Whole skin rows build every entry.
TEST_F(VisualisationTest, TheSkinsRowsBuildThePaletteOfTheUpsideDownPicture) {
  R().DataForm().SkinValues.Clear();
  Draw(Opt().Option9, Level(0.0, 1.0));
  const auto& palette = modSpectrum().palette;
  EXPECT_EQ(palette[0].blue, 0);
  EXPECT_EQ(palette[1].red, 253) << "entries that need no skin row are still built";
  EXPECT_EQ(palette[1].green, 0);
  UseSkin("0", "0", "0", "3", "x");
  Draw(Opt().Option9, Level(0.0, 1.0));
  EXPECT_EQ(palette[85].green, 255);
  EXPECT_EQ(palette[86].green, 0) << "258 is no byte";
  EXPECT_EQ(palette[86].red, 255 - 172);
  EXPECT_EQ(palette[50].blue, 0) << "a row that is no number";

  UseSkin("10", "20", "30", "1.5", "0.25");
  Draw(Opt().Option11, Level(1.0, 2.0));
  EXPECT_EQ(palette[100].red, 55);
  EXPECT_EQ(palette[100].green, 150);
  EXPECT_EQ(palette[100].blue, 25);
  EXPECT_EQ(palette[2].blue, 0) << "0.5 rounds to the even byte";
  EXPECT_EQ(palette[6].blue, 2) << "1.5 rounds to the even byte";
  const auto image = R().Main().Visualisation.Drawing.get();
  ASSERT_NE(image, nullptr);
  // Row 0 of the buffer is the bottom line of the picture.
  EXPECT_EQ(ColourAt(*image, 0, 0), 0x0A141Eu) << "the top line is empty: entry 0";
  EXPECT_EQ(ColourAt(*image, 0, 39), 0xFD0200u)
      << "the line of +1 at the bottom: entry 1 is 253, 1.5 -> 2, 0.25 -> 0";
}

// A frame that would show what the last one showed is not handed to the
// window, so silence repaints nothing; the sound's return draws again.
TEST_F(VisualisationTest, SilenceDrawsNoNewFrames) {
  auto silenceThenTone = Level(0.0, 2.0);
  const auto tone = sine(1000, 0.3, 2.0);
  silenceThenTone.samples.insert(silenceThenTone.samples.end(), tone.samples.begin(),
                                 tone.samples.end());
  Draw(Opt().Option8, silenceThenTone);
  auto& surface = R().Main().Visualisation;
  const auto first = surface.Drawing.get();
  ASSERT_NE(first, nullptr);
  for (int frame = 0; frame < 8; ++frame) {
    Render(0.025);
    clock.Advance(25);
  }
  EXPECT_EQ(surface.Drawing.get(), first);
  Render(1.5);
  clock.Advance(25);
  EXPECT_NE(surface.Drawing.get(), first) << "the tone is drawn";
}

// Minimised by the window system, the window shows no frames and none are
// drawn; restored, the frames come back by themselves. A paused song draws
// none either, and its frames come back with the sound.
TEST_F(VisualisationTest, NoFramesAreDrawnWhileNoOneCanSeeThemOrTheSongStandsStill) {
  Draw(Opt().Option8, Sweep(5.0));
  auto& engine = R().frmBass();
  engine.BassON = "True";  // as the director marks the engine that plays
  auto& surface = R().Main().Visualisation;
  ASSERT_TRUE(clock.Armed(engine.tmrSpectrum));
  R().Main().WindowState = WindowState::Minimized;
  clock.Advance(25);
  EXPECT_FALSE(clock.Armed(engine.tmrSpectrum));
  const auto last = surface.Drawing.get();
  Render(0.5);
  clock.Advance(500);
  EXPECT_EQ(surface.Drawing.get(), last) << "no frame while minimised";
  R().Main().WindowState = WindowState::Normal;
  clock.Advance(100);
  EXPECT_TRUE(clock.Armed(engine.tmrSpectrum)) << "FixWindows starts the frames again";
  clock.Advance(25);
  EXPECT_NE(surface.Drawing.get(), last);

  engine.Pauza();
  clock.Advance(25);
  EXPECT_FALSE(clock.Armed(engine.tmrSpectrum)) << "paused";
  clock.Advance(500);
  EXPECT_FALSE(clock.Armed(engine.tmrSpectrum)) << "FixWindows leaves a paused song's frames be";
  const auto paused = surface.Drawing.get();
  engine.ResumeBass();
  EXPECT_TRUE(clock.Armed(engine.tmrSpectrum)) << "the sound brings the frames back";
  Render(0.1);
  clock.Advance(25);
  EXPECT_NE(surface.Drawing.get(), paused);
}

}  // namespace
}  // namespace yarvo
