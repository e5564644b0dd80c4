// MCore on the real service: files made by ffmpeg, played by libmpv with no
// sound and no picture output.
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <clocale>
#include <cstdlib>
#include <set>
#include <string>
#include <thread>

#include "MediaFiles.h"
#include "engines/media/MCore.h"
#include "engines/media/MciError.h"
#include "engines/media/MciSendString.h"
#include "support/FakeMciService.h"

namespace yarvo {
namespace {

using namespace std::chrono_literals;
using test::CommandLog;

class MCorePlayback : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    MciServiceOptions options;
    options.audioOutput = "null";
    options.drawPictures = false;
    configureMciService(options);
  }

  void SetUp() override { ASSERT_TRUE(media().ready()) << "ffmpeg could not make the media"; }

  void TearDown() override { MciCloseAll(); }

  static const test::MediaFiles& media() { return test::MediaFiles::get(); }

  static std::string openVideo() {
    return MciOpen(0, "movie", media().video().string(), "MPEGVideo");
  }

  // Polls the mode until it reads `mode` or `limit` passes.
  static bool waitForMode(const std::string& mode, std::chrono::milliseconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (MciStatusMode("movie") != mode) {
      if (std::chrono::steady_clock::now() > deadline) return false;
      std::this_thread::sleep_for(20ms);
    }
    return true;
  }

  // The raw answer of the service to `command`, or "error <code>".
  static std::string ask(const std::string& command) {
    std::array<char, 128> reply{};
    const auto code = mciSendString(command, reply);
    return code == 0 ? std::string(reply.data()) : "error " + std::to_string(code);
  }

  static std::string_view text(MciError error) {
    return mciErrorText(static_cast<std::uint32_t>(error));
  }
};

TEST_F(MCorePlayback, VideoOpensAndIsMeasuredAndPlaced) {
  ASSERT_EQ(openVideo(), "Success");
  EXPECT_EQ(MciWhereDestination("movie", "cx"), 320);
  EXPECT_EQ(MciWhereDestination("movie", "cy"), 240);
  EXPECT_EQ(MciLengthFrames("movie"), 100);
  EXPECT_EQ(MciLengthMs("movie"), 4000);
  EXPECT_EQ(MciFramesPerSecond("movie"), 25);
  EXPECT_EQ(MciSpeed("movie"), 100);
  EXPECT_EQ(MciPosition("movie"), 0);
  EXPECT_EQ(MciStatusMode("movie"), "stopped");
  ASSERT_EQ(MciPutWindow(0, "movie", 1, 1, 640, 360), "Success");
  EXPECT_EQ(MciWhereDestination("movie", "cx"), 640);
  EXPECT_EQ(MciWhereDestination("movie", "cy"), 360);
}

TEST_F(MCorePlayback, PlaysToTheEndThenReadsStoppedAndPlayingAgainStartsOver) {
  ASSERT_EQ(openVideo(), "Success");
  CommandLog commands;
  ASSERT_EQ(MciPlay("movie", "", ""), "Success");
  EXPECT_EQ(commands.sent.back(), "play movie from 0 to 100");
  EXPECT_EQ(MciStatusMode("movie"), "playing");
  ASSERT_TRUE(waitForMode("stopped", 20s));
  EXPECT_EQ(MciPosition("movie"), 100);
  EXPECT_EQ(MciPercent("movie"), 100);
  ASSERT_EQ(ask("play movie"), "");  // no start given: the device must leave the end itself
  EXPECT_EQ(MciStatusMode("movie"), "playing");
  EXPECT_LT(MciPosition("movie"), 50);
}

TEST_F(MCorePlayback, PlayToAFrameStopsThereAndPlayGoesOnFromIt) {
  ASSERT_EQ(openVideo(), "Success");
  ASSERT_EQ(MciPlay("movie", "10", "30"), "Success");
  ASSERT_TRUE(waitForMode("stopped", 10s));
  EXPECT_EQ(MciPosition("movie"), 30);
  std::this_thread::sleep_for(200ms);  // time in which a playing media would move 5 frames
  EXPECT_EQ(MciPosition("movie"), 30);
  ASSERT_EQ(ask("play movie"), "");
  EXPECT_EQ(MciStatusMode("movie"), "playing");
  const auto position = MciPosition("movie");
  EXPECT_GE(position, 29);
  EXPECT_LT(position, 60);
}

TEST_F(MCorePlayback, SeekLandsWithinOneFrameAndStops) {
  ASSERT_EQ(openVideo(), "Success");
  for (const int target : {60, 13, 99, 0}) {
    SCOPED_TRACE(target);
    ASSERT_EQ(ask("seek movie to " + std::to_string(target)), "");
    EXPECT_NEAR(MciPosition("movie"), target, 1);
    EXPECT_EQ(MciStatusMode("movie"), "stopped");
  }
  EXPECT_EQ(ask("seek movie to 101"),
            "error " + std::to_string(static_cast<int>(MciError::OutOfRange)));
}

// The sound of this clip is mono: a volume for one side must still take.
TEST_F(MCorePlayback, VolumePauseResumeSeekPlayAndStopWhilePlaying) {
  ASSERT_EQ(openVideo(), "Success");
  EXPECT_EQ(MciSetVolume("movie", "all", 0), "Success");
  EXPECT_EQ(MciSetVolume("movie", "LEFT", 50), "Success");
  EXPECT_EQ(MciSetVolume("movie", "Right", 20), "Success");
  ASSERT_EQ(MciPlay("movie", "", ""), "Success");
  ASSERT_EQ(MciPause("movie"), "Success");
  EXPECT_EQ(MciStatusMode("movie"), "paused");
  const auto held = MciPosition("movie");
  std::this_thread::sleep_for(200ms);  // time in which a playing media would move 5 frames
  EXPECT_EQ(MciPosition("movie"), held);
  ASSERT_EQ(MciResume("movie"), "Success");
  EXPECT_EQ(MciStatusMode("movie"), "playing");
  ASSERT_EQ(MciPause("movie"), "Success");
  ASSERT_EQ(MciSeekPlay("movie", 75), "Success");
  EXPECT_EQ(MciStatusMode("movie"), "playing");
  const auto position = MciPosition("movie");
  EXPECT_GE(position, 74);
  EXPECT_LE(position, 100);
  ASSERT_EQ(MciStop("movie"), "Success");
  EXPECT_EQ(MciStatusMode("movie"), "stopped");
}

TEST_F(MCorePlayback, AudioWithoutPictureCountsMilliseconds) {
  ASSERT_EQ(MciOpen(0, "movie", media().audio().string(), "MPEGVideo"), "Success");
  EXPECT_EQ(MciWhereDestination("movie", "cx"), -1);
  EXPECT_EQ(MciWhereDestination("movie", "cy"), -1);
  EXPECT_EQ(MciLengthFrames("movie"), 3000);
  EXPECT_EQ(MciLengthMs("movie"), 3000);
  EXPECT_EQ(MciFramesPerSecond("movie"), 1000);
  EXPECT_NE(MciPutWindow(0, "movie", 1, 1, 320, 240), "Success");
  ASSERT_EQ(MciPlay("movie", "1500", ""), "Success");
  EXPECT_EQ(MciStatusMode("movie"), "playing");
  ASSERT_TRUE(waitForMode("stopped", 10s));
  EXPECT_EQ(MciPosition("movie"), 3000);
  // A cover picture in a music file is no picture either.
  ASSERT_EQ(MciOpen(0, "cover", media().withCover().string(), "MPEGVideo"), "Success");
  EXPECT_EQ(MciWhereDestination("cover", "cx"), -1);
  EXPECT_EQ(MciFramesPerSecond("cover"), 1000);
  EXPECT_EQ(MciLengthFrames("cover"), 2000);
}

TEST_F(MCorePlayback, FilesThatCannotOpen) {
  const auto started = std::chrono::steady_clock::now();
  EXPECT_EQ(MciOpen(0, "movie", (media().folder() / "gone.avi").string(), "MPEGVideo"),
            text(MciError::FileNotFound));
  EXPECT_EQ(MciOpen(0, "movie", media().broken().string(), "MPEGVideo"),
            text(MciError::UnplayableFile));
  EXPECT_NE(MciOpen(0, "movie", "http://example.invalid/clip.avi", "MPEGVideo"), "Success");
  EXPECT_LT(std::chrono::steady_clock::now() - started, 5s);
  EXPECT_EQ(MciStatusMode("movie"), "ERROR");
}

TEST_F(MCorePlayback, AnAliasOpensOnceAndIsNamedInAnyCase) {
  EXPECT_EQ(MciStatusMode("movie"), "ERROR");
  EXPECT_EQ(MciClose("movie"), text(MciError::InvalidDeviceName));
  ASSERT_EQ(openVideo(), "Success");
  EXPECT_EQ(MciOpen(0, "Movie", media().audio().string(), "MPEGVideo"),
            text(MciError::DuplicateAlias));
  EXPECT_EQ(MciWhereDestination("movie", "cx"), 320);
  EXPECT_EQ(MciOpen(0, "tune", media().audio().string(), "MPEGVideo"), "Success");
  EXPECT_EQ(MciClose("MOVIE"), "Success");
  EXPECT_EQ(MciStatusMode("movie"), "ERROR");
  EXPECT_EQ(MciCloseAll(), "Success");
  EXPECT_EQ(MciStatusMode("tune"), "ERROR");
}

TEST_F(MCorePlayback, OpensUnderALocaleThatMpvRefuses) {
  const std::string saved = std::setlocale(LC_NUMERIC, nullptr);
  ASSERT_NE(std::setlocale(LC_NUMERIC, "C.UTF-8"), nullptr);
  EXPECT_EQ(openVideo(), "Success");
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
  std::setlocale(LC_NUMERIC, saved.c_str());
}

TEST_F(MCorePlayback, ParentWindowWithoutDisplayDrawsNothing) {
  MciServiceOptions options;
  options.audioOutput = "null";
  options.drawPictures = true;
  configureMciService(options);
  const char* display = std::getenv("DISPLAY");
  const std::string saved = display != nullptr ? display : "";
  ::unsetenv("DISPLAY");
  // Not a window of any display: drawing into it would fail.
  const std::string result = MciOpen(0x7fff1234, "movie", media().video().string(), "MPEGVideo");
  if (display != nullptr) ::setenv("DISPLAY", saved.c_str(), 1);
  SetUpTestSuite();
  ASSERT_EQ(result, "Success");
  EXPECT_EQ(MciWhereDestination("movie", "cx"), 320);
}

TEST_F(MCorePlayback, TheTrayNeedsNoMediaAndAReplyThatDoesNotFitIsAnError) {
  EXPECT_EQ(ask("Set CDAudio Door Closed"), "") << "the CD tray needs no open media";
  ASSERT_EQ(openVideo(), "Success");
  std::array<char, 7> small{};
  EXPECT_EQ(mciSendString("status movie mode", small),
            static_cast<std::uint32_t>(MciError::ReplyTooLong));
  EXPECT_EQ(small[0], '\0');
  std::array<char, 8> enough{};
  EXPECT_EQ(mciSendString("status movie mode", enough), 0U);
  EXPECT_STREQ(enough.data(), "stopped");
}

TEST(MciErrorText, EveryCodeHasItsOwnText) {
  std::set<std::string> seen;
  for (std::uint32_t code = 0; code < 400; ++code) {
    std::array<char, 128> text{};
    const bool known = mciGetErrorString(code, text);
    EXPECT_NE(text[0], '\0') << "unknown codes have a text too";
    if (known) {
      EXPECT_TRUE(seen.insert(text.data()).second) << text.data();
    }
  }
  EXPECT_GE(seen.size(), 15U);
  std::array<char, 10> cut{};
  mciGetErrorString(static_cast<std::uint32_t>(MciError::FileNotFound), cut);
  EXPECT_STREQ(cut.data(), "The file ");
}

}  // namespace
}  // namespace yarvo
