// Presses as a user hears them: every way of starting a song is heard within
// 150 ms, pause and stop are silent within 100 ms, and the volume keys are
// heard at once, measured on the sink from the moment of the press; and the
// player holds a stream on the server only while it needs one.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "HearingFixture.h"
#include "engines/BassApi.h"
#include "engines/frmBass.h"

namespace yarvo {
namespace {

using test::HearingFixture;

constexpr double kA = 1000, kB = 1500;

// The sound server's view of the player's streams, one line each, with
// whether they are corked.
std::string StreamsOnTheServer() {
  std::string lines;
  if (FILE* pipe = popen("pactl list sink-inputs | grep Corked", "r")) {
    char line[256];
    while (std::fgets(line, sizeof line, pipe) != nullptr) lines += line;
    pclose(pipe);
  }
  return lines;
}

class PressHearingTest : public HearingFixture {
 protected:
  explicit PressHearingTest(int recorderLatencyMs = 20) : HearingFixture(recorderLatencyMs) {}

  void SetUp() override {
    HearingFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    AddSong("a", 30, kA);
    AddSong("b", 30, kB);
    // The first tick of the clock makes the engine form, as the app's does.
    Live(Ms(1500));
  }

  // Ms from the press at `at` until `hz` was heard; a large number when it
  // was not heard at all.
  double HeardAfter(Clock::time_point at, double hz) {
    const auto heard = Recording();
    const std::size_t press = FrameAt(at);
    const auto start = StartOfTone(heard, hz, press);
    const double r = start ? Millis(std::ptrdiff_t(*start) - std::ptrdiff_t(press)) : 1e9;
    fprintf(stderr, "heard after %.1f ms\n", r);
    return r;
  }

  // The loudest that anything was heard from `after` the press at `at` on,
  // for `span`.
  double LoudnessAfter(Clock::time_point at, Ms after, Ms span) {
    return Loudness(Recording(), FrameAt(at) + Frames(after), Frames(span));
  }

  double PlayedSeconds() {
    auto& library = P().bass();
    const auto channel = static_cast<DWORD>(std::stoul(P().frmBass().Chan.get()));
    return library.BASS_ChannelBytes2Seconds(
        channel, library.BASS_ChannelGetPosition(channel, BASS_POS_BYTE));
  }
};

TEST_F(PressHearingTest, EveryWayOfStartingASongIsHeardWithin150Ms) {
  auto at = Press([&] { DoubleClick(0); });
  Live(Ms(1200));
  EXPECT_LE(HeardAfter(at, kA), 150) << "a double click on a row";

  at = Press([&] { Key(kNextKey); });
  Live(Ms(1200));
  EXPECT_LE(HeardAfter(at, kB), 150) << "next";
  EXPECT_LT(Level(Recording(), kA, FrameAt(at) + Frames(Ms(100)), Frames(Ms(200))), kLevel / 10)
      << "the song before is gone";

  at = Press([&] { Key(kPreviousKey); });
  Live(Ms(1200));
  EXPECT_LE(HeardAfter(at, kA), 150) << "previous";

  at = Press([&] { Key(kStopKey); });
  Live(Ms(1000));
  EXPECT_LT(LoudnessAfter(at, Ms(100), Ms(800)), 0.01) << "stop";

  at = Press([&] { Key(kPlayKey); });
  Live(Ms(1200));
  EXPECT_LE(HeardAfter(at, kA), 150) << "play from stop";
}

// Idle, the player holds no stream. Stopped, its stream is corked at once
// and let go two seconds later; the next play opens one at once.
TEST_F(PressHearingTest, AStreamOnlyWhilePlayingAndPlayAfterItWasLetGoIsHeardWithin150Ms) {
  EXPECT_EQ(StreamsOnTheServer(), "") << "idle";
  DoubleClick(0);
  Live(Ms(1000));
  EXPECT_EQ(StreamsOnTheServer(), "\tCorked: no\n");
  Key(kStopKey);
  Live(Ms(500));
  EXPECT_EQ(StreamsOnTheServer(), "\tCorked: yes\n") << "stopped";
  Live(Ms(3000));
  EXPECT_EQ(StreamsOnTheServer(), "") << "let go";
  const auto at = Press([&] { Key(kPlayKey); });
  Live(Ms(1000));
  EXPECT_LE(HeardAfter(at, kA), 150);
}

// Paused, nothing is heard and the position stands; play goes on from
// where the sound stopped.
TEST_F(PressHearingTest, PauseIsSilentWithin100MsAndPlayGoesOnFromThere) {
  DoubleClick(0);
  Live(Ms(1500));
  const auto at = Press([&] { Key(kPauseKey); });
  Live(Ms(600));
  const double paused = PlayedSeconds();
  Live(Ms(600));
  EXPECT_LT(LoudnessAfter(at, Ms(100), Ms(1000)), 0.01);
  EXPECT_DOUBLE_EQ(PlayedSeconds(), paused) << "the position stands while paused";

  const auto resumed = Press([&] { Key(kPlayKey); });
  Live(Ms(1000));
  EXPECT_LE(HeardAfter(resumed, kA), 150);
  EXPECT_NEAR(PlayedSeconds(), paused + 1.0, 0.15) << "play went on from the pause";
}

TEST_F(PressHearingTest, TheVolumeKeysAreHeardAtOnce) {
  DoubleClick(0);
  Live(Ms(1500));
  const auto at = Press([&] {
    for (int i = 0; i < 5; ++i) Key(kVolumeDownKey);
  });
  Live(Ms(500));
  const auto heard = Recording();
  const double before = Level(heard, kA, FrameAt(at) - Frames(Ms(300)), Frames(Ms(200)));
  const double after = Level(heard, kA, FrameAt(at) + Frames(Ms(150)), Frames(Ms(200)));
  ASSERT_GT(before, kLevel / 2);
  EXPECT_NEAR(after / before, 0.5, 0.05) << "five steps down from 100 are half the level";
}

// With no one listening closely the null sink renders in long blocks, and a
// stream made anew waits for the sink's next block, long after the press:
// every song waited so when the stream was made anew for each. Kept from
// song to song, it lets the next song follow the last at once.
class RelaxedSinkTest : public PressHearingTest {
 protected:
  RelaxedSinkTest() : PressHearingTest(2000) {}
};

TEST_F(RelaxedSinkTest, NextAndPreviousLeaveNoSilenceBetweenTheSongs) {
  DoubleClick(0);
  Live(Ms(1500));
  Key(kNextKey);
  Live(Ms(3000));
  Key(kPreviousKey);
  // The recorder hands over what it heard in blocks as long as its latency.
  Live(Ms(5000));
  const auto heard = Recording();
  const auto endOfA = EndOfTone(heard, kA, 0);
  ASSERT_TRUE(endOfA);
  const auto startOfB = StartOfTone(heard, kB, *endOfA);
  ASSERT_TRUE(startOfB);
  EXPECT_LE(Millis(std::ptrdiff_t(*startOfB) - std::ptrdiff_t(*endOfA)), 150) << "next";
  const auto endOfB = EndOfTone(heard, kB, *startOfB);
  ASSERT_TRUE(endOfB);
  const auto againA = StartOfTone(heard, kA, *endOfB);
  ASSERT_TRUE(againA);
  EXPECT_LE(Millis(std::ptrdiff_t(*againA) - std::ptrdiff_t(*endOfB)), 150) << "previous";
}

}  // namespace
}  // namespace yarvo
