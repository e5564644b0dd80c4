// MIDI through the real service: files written here, played by FluidSynth
// with the system's General MIDI sound font into a private PulseAudio null
// sink, and the sink's monitor recorded and listened to.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "MidiWriter.h"
#include "support/SoundAnalysis.h"
#include "engines/media/MCore.h"
#include "engines/media/MciError.h"
#include "engines/media/MciSendString.h"
#include "engines/media/SoundFont.h"
#include "support/SoundServer.h"

namespace yarvo {
namespace {

using namespace std::chrono_literals;
using test::Recording;

using test::kSongNotes;
using test::songFile;

class MidiPlayback : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!sound_.Ready()) GTEST_SKIP() << "a private PulseAudio server could not be started here";
    ASSERT_TRUE(findGeneralMidiSoundFont()) << "install timgm6mb-soundfont (scripts/install-deps)";
    MciServiceOptions options;
    options.drawPictures = false;  // sound to the server
    configureMciService(options);
  }

  void TearDown() override { MciCloseAll(); }

  std::string write(const std::string& name, const std::string& bytes) {
    const auto path = sound_.Folder() / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
  }

  // Records the sink while `actions` run; starts them once parec records.
  template <typename Actions>
  Recording hear(Actions&& actions) {
    const auto raw = sound_.Folder() / "heard.raw";
    auto recorder = sound_.Record(raw);
    constexpr std::uintmax_t kTenthOfASecond = 8 * test::SoundServer::kRate / 10;  // float pairs
    for (int i = 0; i < 100 && fileSize(raw) < kTenthOfASecond; ++i)
      std::this_thread::sleep_for(20ms);
    actions();
    recorder->Finish();
    return Recording::fromStereo(test::ReadRecording(raw), test::SoundServer::kRate);
  }

  static std::uintmax_t fileSize(const std::filesystem::path& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
  }

  static bool waitForMode(const std::string& mode, std::chrono::milliseconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (MciStatusMode("movie") != mode) {
      if (std::chrono::steady_clock::now() > deadline) return false;
      std::this_thread::sleep_for(10ms);
    }
    return true;
  }

  static double pitchAt(const Recording& heard, std::size_t from) {
    return test::dominantFrequency(heard.left, from, heard.at(0.3), heard.rate);
  }

  test::SoundServer sound_;
};

constexpr double kQuiet = 1e-3;
constexpr double kLoud = 5e-3;

// Each form of the song is heard whole, note by note at its pitch and time;
// its length comes from the tempo map and its end is reported.
TEST_F(MidiPlayback, FormatsZeroAndOneAndTheRiffWrapperPlayTheirNotesAtTheirTimes) {
  const std::string formatZero = songFile(0);
  const std::string formatOne = songFile(1);
  for (const auto& [name, bytes] : {std::pair{"zero.mid", formatZero},
                                    {"one.midi", formatOne},
                                    {"wrapped.rmi", test::rmiFile(formatOne)}}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(MciOpen(0, "movie", write(name, bytes), "MPEGVideo"), "Success");
    EXPECT_NEAR(MciLengthMs("movie"), test::kSongMilliseconds, 50);
    EXPECT_EQ(MciLengthFrames("movie"), MciLengthMs("movie")) << "a frame is a millisecond";
    EXPECT_EQ(MciWhereDestination("movie", "cx"), -1) << "no picture";
    bool ended = false;
    const Recording heard = hear([&] {
      ASSERT_EQ(MciPlay("movie", "", ""), "Success");
      EXPECT_EQ(MciStatusMode("movie"), "playing");
      ended = waitForMode("stopped", 6s);
      std::this_thread::sleep_for(200ms);
    });
    EXPECT_TRUE(ended) << "the end is reported";
    EXPECT_EQ(MciPosition("movie"), MciLengthFrames("movie"));
    const auto start = test::soundFrom(heard.left, 0, heard.rate, kLoud);
    ASSERT_TRUE(start) << "nothing was heard";
    for (const test::SongNote& note : kSongNotes) {
      SCOPED_TRACE(note.key);
      const auto from = *start + heard.at(note.start + 0.2);
      EXPECT_NEAR(pitchAt(heard, from), test::keyFrequency(note.key),
                  test::keyFrequency(note.key) * 0.02);
    }
    // The last note stops at the end of the song and fades from there.
    const auto silence = test::silenceFrom(heard.left, *start + heard.at(2.5), heard.rate, kQuiet);
    ASSERT_TRUE(silence);
    EXPECT_GT(heard.seconds(*silence - *start), 2.95);
    EXPECT_LT(heard.seconds(*silence - *start), 3.5);
    MciClose("movie");
  }
}

// A pause in the first note, then the slider's seek into the middle of the
// second: the first note stops with the pause and never comes back; the
// second sounds at once, from the first moment heard after the seek; the
// rest follows at its time. The left side is turned off all along.
TEST_F(MidiPlayback, SeekLandsOnTheNoteOfItsPositionWithNothingFromBeforeIt) {
  ASSERT_EQ(MciOpen(0, "movie", write("song.mid", songFile(1)), "MPEGVideo"), "Success");
  ASSERT_EQ(MciSetVolume("movie", "left", 0), "Success");
  const Recording heard = hear([&] {
    ASSERT_EQ(MciSeekPlay("movie", 0), "Success");
    std::this_thread::sleep_for(600ms);
    ASSERT_EQ(MciPause("movie"), "Success");
    std::this_thread::sleep_for(300ms);
    ASSERT_EQ(MciSeekPlay("movie", 1500), "Success");
    EXPECT_NEAR(MciPosition("movie"), 1500, 30);
    EXPECT_EQ(MciStatusMode("movie"), "playing");
    EXPECT_TRUE(waitForMode("stopped", 4s));
    std::this_thread::sleep_for(200ms);
  });
  EXPECT_LT(test::level(heard.left, 0, heard.left.size()), 1e-4) << "the left side is off";
  const auto& right = heard.right;
  const auto start = test::soundFrom(right, 0, heard.rate, kLoud);
  ASSERT_TRUE(start);
  const double first = test::keyFrequency(kSongNotes[0].key);
  EXPECT_NEAR(test::dominantFrequency(right, *start + heard.at(0.1), heard.at(0.3), heard.rate),
              first, first * 0.02);
  const auto paused = test::silenceFrom(right, *start, heard.rate, kQuiet);
  const auto landed = paused ? test::soundFrom(right, *paused, heard.rate, kLoud) : std::nullopt;
  const auto end = test::soundUntil(right, heard.rate, kLoud);
  ASSERT_TRUE(landed && end);
  const double second = test::keyFrequency(kSongNotes[1].key);
  const double third = test::keyFrequency(kSongNotes[2].key);
  const auto first25ms = [&](double frequency) {
    return test::toneLevel(right, *landed, heard.at(0.025), heard.rate, frequency);
  };
  EXPECT_GT(first25ms(second), 3 * first25ms(first)) << "the first note came back after the seek";
  const std::size_t window = heard.at(0.3);
  const auto from = *landed + heard.at(0.1);
  EXPECT_NEAR(test::dominantFrequency(right, from, window, heard.rate), second, second * 0.02);
  EXPECT_LT(test::toneLevel(right, from, window, heard.rate, first),
            0.1 * test::toneLevel(right, from, window, heard.rate, second))
      << "the first note hangs on";
  EXPECT_NEAR(test::dominantFrequency(right, *landed + heard.at(0.7), window, heard.rate), third,
              third * 0.02);
  EXPECT_NEAR(heard.seconds(*end - *landed), 1.5, 0.1) << "from the seek the song has 1.5 s";
}

// A pause inside the second note: the sound stops where the position stands,
// stays away while paused, and the same note goes on after the resume.
TEST_F(MidiPlayback, PauseSilencesAtOnceAndResumeGoesOnWithTheSameNote) {
  ASSERT_EQ(MciOpen(0, "movie", write("song.mid", songFile(0)), "MPEGVideo"), "Success");
  std::int32_t pausedAt = 0;
  const Recording heard = hear([&] {
    const auto played = std::chrono::steady_clock::now();
    ASSERT_EQ(MciPlay("movie", "", ""), "Success");
    std::this_thread::sleep_for(1300ms);
    ASSERT_EQ(MciPause("movie"), "Success");
    const std::chrono::duration<double, std::milli> wall =
        std::chrono::steady_clock::now() - played;
    pausedAt = MciPosition("movie");
    EXPECT_LE(pausedAt, wall.count() + 100) << "the position ran ahead of the clock";
    std::this_thread::sleep_for(700ms);
    EXPECT_EQ(MciPosition("movie"), pausedAt);
    EXPECT_EQ(MciStatusMode("movie"), "paused");
    ASSERT_EQ(MciResume("movie"), "Success");
    EXPECT_TRUE(waitForMode("stopped", 4s));
    std::this_thread::sleep_for(200ms);
  });
  ASSERT_GT(pausedAt, 1000);
  ASSERT_LT(pausedAt, 2000);
  const auto start = test::soundFrom(heard.left, 0, heard.rate, kLoud);
  ASSERT_TRUE(start);
  const auto silent = test::silenceFrom(heard.left, *start, heard.rate, kQuiet);
  ASSERT_TRUE(silent);
  EXPECT_NEAR(heard.seconds(*silent - *start) * 1000.0, pausedAt, 100)
      << "the sound went on after the pause";
  const auto resumed = test::soundFrom(heard.left, *silent, heard.rate, kLoud);
  ASSERT_TRUE(resumed);
  EXPECT_GT(heard.seconds(*resumed - *silent), 0.6) << "sound while paused";
  const double second = test::keyFrequency(kSongNotes[1].key);
  EXPECT_NEAR(pitchAt(heard, *resumed + heard.at(0.02)), second, second * 0.02);
  const auto end = test::soundUntil(heard.left, heard.rate, kLoud);
  ASSERT_TRUE(end);
  EXPECT_NEAR(heard.seconds(*silent - *start + *end - *resumed), 3.0, 0.15)
      << "the whole song was heard once";
}

}  // namespace
}  // namespace yarvo
