// MIDI through the real service with no sound: the same commands and answers
// as for any other media, at real-time pace; which files go to the sequencer;
// and how a missing or broken sound font fails.
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <fstream>
#include <string>
#include <thread>

#include "MidiWriter.h"
#include "engines/media/MCore.h"
#include "engines/media/MciError.h"
#include "engines/media/MciSendString.h"
#include "engines/media/SoundFont.h"
#include "support/TempDir.h"

namespace yarvo {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

std::string littleEndian(std::uint32_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>((value >> (8 * i)) & 0xFF);
  return text;
}

// One second of a 16-bit mono tone at 8000 Hz, as a WAV file.
std::string wavSecond() {
  constexpr std::uint32_t kRate = 8000;
  std::string samples;
  for (std::uint32_t i = 0; i < kRate; ++i) {
    const double value = 8000.0 * std::sin(2.0 * 3.14159265 * 440.0 * i / kRate);
    samples += littleEndian(static_cast<std::uint32_t>(static_cast<std::int16_t>(value)), 2);
  }
  const std::string format = "fmt " + littleEndian(16, 4) + littleEndian(1, 2) +
                             littleEndian(1, 2) + littleEndian(kRate, 4) +
                             littleEndian(2 * kRate, 4) + littleEndian(2, 2) + littleEndian(16, 2);
  const std::string data =
      "data" + littleEndian(static_cast<std::uint32_t>(samples.size()), 4) + samples;
  return "RIFF" + littleEndian(static_cast<std::uint32_t>(4 + format.size() + data.size()), 4) +
         "WAVE" + format + data;
}

class MidiCommands : public ::testing::Test {
 protected:
  void SetUp() override { configure(kSoundFontFolder); }

  void TearDown() override {
    MciCloseAll();
    configure(kSoundFontFolder);
  }

  static void configure(const std::filesystem::path& soundFonts) {
    MciServiceOptions options;
    options.audioOutput = kSilentAudioOutput;
    options.drawPictures = false;
    options.soundFontFolder = soundFonts;
    configureMciService(options);
  }

  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return (folder_ / name).string();
  }

  static std::string ask(const std::string& command) {
    std::array<char, 128> reply{};
    const auto code = mciSendString(command, reply);
    return code == 0 ? std::string(reply.data()) : "error " + std::to_string(code);
  }

  static std::string error(MciError code) {
    return "error " + std::to_string(static_cast<std::uint32_t>(code));
  }

  static std::string text(MciError code) {
    return std::string(mciErrorText(static_cast<std::uint32_t>(code)));
  }

  static bool waitForMode(const std::string& mode, std::chrono::milliseconds limit) {
    const auto deadline = Clock::now() + limit;
    while (MciStatusMode("movie") != mode) {
      if (Clock::now() > deadline) return false;
      std::this_thread::sleep_for(5ms);
    }
    return true;
  }

  test::TempDir folder_;
};

TEST_F(MidiCommands, AnswerAsAnyMediaWithoutAPictureDoes) {
  ASSERT_EQ(MciOpen(0, "movie", write("song.mid", test::songFile(1)), "MPEGVideo"), "Success");
  EXPECT_EQ(MciLengthFrames("movie"), test::kSongMilliseconds);
  EXPECT_EQ(MciLengthMs("movie"), test::kSongMilliseconds);
  EXPECT_EQ(MciFramesPerSecond("movie"), 1000);
  EXPECT_EQ(MciSpeed("movie"), 100);
  EXPECT_EQ(MciWhereDestination("movie", "cx"), -1);
  EXPECT_EQ(MciPutWindow(0, "movie", 0, 0, 320, 240), text(MciError::NoPicture));
  EXPECT_EQ(MciStatusMode("movie"), "stopped");
  EXPECT_EQ(MciPosition("movie"), 0);
  EXPECT_EQ(MciSetVolume("movie", "all", 50), "Success");
  EXPECT_EQ(MciSetVolume("movie", "right", 20), "Success");
  EXPECT_EQ(ask("seek movie to 3001"), error(MciError::OutOfRange));
  EXPECT_EQ(ask("play movie from 2000 to 1000"), error(MciError::OutOfRange));
  ASSERT_EQ(ask("seek movie to 2900"), "");
  EXPECT_EQ(MciPosition("movie"), 2900);
  EXPECT_EQ(MciStatusMode("movie"), "stopped");
}

// The position follows the clock; play stops at its `to` and goes on from
// there; pause holds; the real end reads stopped at the length, and play
// from there starts over.
TEST_F(MidiCommands, PlayKeepsRealTimeAndStopsWhereItIsTold) {
  ASSERT_EQ(MciOpen(0, "movie", write("song.rmi", test::rmiFile(test::songFile(0))), "MPEGVideo"),
            "Success");
  const auto started = Clock::now();
  ASSERT_EQ(MciPlay("movie", "500", "1500"), "Success");
  EXPECT_EQ(MciStatusMode("movie"), "playing");
  ASSERT_TRUE(waitForMode("stopped", 3s));
  EXPECT_NEAR(std::chrono::duration<double>(Clock::now() - started).count(), 1.0, 0.15);
  EXPECT_EQ(MciPosition("movie"), 1500);
  std::this_thread::sleep_for(100ms);
  EXPECT_EQ(MciPosition("movie"), 1500) << "stopped at the end of the play";

  ASSERT_EQ(ask("play movie"), "");
  std::this_thread::sleep_for(300ms);
  ASSERT_EQ(MciPause("movie"), "Success");
  const auto held = MciPosition("movie");
  EXPECT_NEAR(held, 1800, 100);
  std::this_thread::sleep_for(200ms);
  EXPECT_EQ(MciPosition("movie"), held);
  EXPECT_EQ(MciStatusMode("movie"), "paused");

  ASSERT_EQ(MciResume("movie"), "Success");
  ASSERT_TRUE(waitForMode("stopped", 3s));
  EXPECT_EQ(MciPosition("movie"), test::kSongMilliseconds);
  EXPECT_EQ(MciPercent("movie"), 100);
  ASSERT_EQ(ask("play movie"), "");
  EXPECT_EQ(MciStatusMode("movie"), "playing");
  EXPECT_LT(MciPosition("movie"), 500) << "play at the end starts over";
}

// The content decides: a WAV file named ".mid" goes to mpv and plays; text
// or a broken header under a MIDI name does not open; a missing or broken
// sound font fails the open with its own error.
TEST_F(MidiCommands, FilesAreToldByTheirContent) {
  EXPECT_EQ(MciOpen(0, "movie", write("tone.mid", wavSecond()), "MPEGVideo"), "Success");
  EXPECT_EQ(MciLengthMs("movie"), 1000);
  MciClose("movie");
  for (const auto& [name, bytes] : {std::pair{"words.mid", std::string("not a song at all")},
                                    {"broken.midi", std::string("MThd\0\0\0\6\0\0\0\1\0\0", 14)},
                                    {"empty.rmi", std::string("RIFF\4\0\0\0RMID", 12)}}) {
    EXPECT_EQ(MciOpen(0, "movie", write(name, bytes), "MPEGVideo"), text(MciError::UnplayableFile))
        << name;
  }
  const std::string song = write("song.mid", test::songFile(0));
  configure(folder_ / "no fonts here");
  EXPECT_EQ(MciOpen(0, "movie", song, "MPEGVideo"), text(MciError::NoSoundFont));
  std::filesystem::create_directory(folder_ / "fonts");
  write("fonts/TimGM6mb.sf2", "RIFF but no sound font");
  configure(folder_ / "fonts");
  EXPECT_EQ(MciOpen(0, "movie", song, "MPEGVideo"), text(MciError::EngineFailed));
  EXPECT_EQ(MciStatusMode("movie"), "ERROR");
}

TEST(SoundFont, TheFullerFontFirstThenTheSmallOneThenTheSystemsChoice) {
  test::TempDir folder;
  EXPECT_FALSE(findGeneralMidiSoundFont(folder.path()));
  std::filesystem::create_directory(folder / "FluidR3_GM.sf2");  // a folder is no font
  std::ofstream(folder / "default-GM.sf2") << "x";
  EXPECT_EQ(findGeneralMidiSoundFont(folder.path()), folder / "default-GM.sf2");
  std::ofstream(folder / "TimGM6mb.sf2") << "x";
  EXPECT_EQ(findGeneralMidiSoundFont(folder.path()), folder / "TimGM6mb.sf2");
  std::filesystem::remove(folder / "FluidR3_GM.sf2");
  std::ofstream(folder / "FluidR3_GM.sf2") << "x";
  EXPECT_EQ(findGeneralMidiSoundFont(folder.path()), folder / "FluidR3_GM.sf2");
}

}  // namespace
}  // namespace yarvo
