// The clock as a user hears it: the position the engine reports is what the
// sink has played, a seek is heard at its new place at once, and a song ends
// three seconds before its end with the next one at the following tick.

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "HearingFixture.h"
#include "engines/BassApi.h"
#include "engines/frmBass.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

using test::HearingFixture;

class ClockHearingTest : public HearingFixture {
 protected:
  void SetUp() override {
    HearingFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    // The first tick of the clock makes the engine form, as the app's does.
    Live(Ms(1500));
  }

  // The position of the engine's channel, as its clock reads it.
  double ReportedSeconds() {
    auto& library = P().bass();
    const auto channel = static_cast<DWORD>(std::stoul(P().frmBass().Chan.get()));
    return library.BASS_ChannelBytes2Seconds(
        channel, library.BASS_ChannelGetPosition(channel, BASS_POS_BYTE));
  }
};

TEST_F(ClockHearingTest, ThePositionReportedIsWhatTheSinkHasPlayed) {
  constexpr double kTone = 1000;
  AddSong("a", 10, kTone);
  const auto at = Press([&] { DoubleClick(0); });
  std::vector<std::pair<Clock::time_point, double>> reported;
  for (int i = 0; i < 12; ++i) {
    Live(Ms(250));
    reported.emplace_back(Clock::now(), ReportedSeconds());
  }
  Live(Ms(300));
  const auto heard = Recording();
  const auto songStart = StartOfTone(heard, kTone, FrameAt(at));
  ASSERT_TRUE(songStart);
  for (const auto& [when, seconds] : reported) {
    const double played = Millis(std::ptrdiff_t(FrameAt(when)) - std::ptrdiff_t(*songStart)) / 1000;
    EXPECT_NEAR(seconds, played, 0.05);
  }
}

// The stepped song rises by 250 Hz a second; the seek bar's steps are
// 100000 bytes, 1.13 s of this mono file.
TEST_F(ClockHearingTest, ASeekIsHeardAtItsNewPlaceWithin150Ms) {
  AddSong("steps", 10, 500, 250);
  DoubleClick(0);
  Live(Ms(1200));
  auto& main = P().Main();
  const auto at = Press([&] {
    main.ScrollbarFocus();
    main.SliderMoveMultimedia(0).value = 5;
    main.ScrollbarLostFocus();
  });
  Live(Ms(800));
  const auto heard = Recording();
  const std::size_t press = FrameAt(at);
  const auto landed = StartOfTone(heard, 500 + 5 * 250, press);
  ASSERT_TRUE(landed) << "the sixth second was not heard";
  EXPECT_LE(Millis(std::ptrdiff_t(*landed) - std::ptrdiff_t(press)), 150);
  EXPECT_LT(Level(heard, 750, press + Frames(Ms(150)), Frames(Ms(100))), kLevel / 10)
      << "the second the seek left is gone";
  EXPECT_NEAR(ReportedSeconds(), 5 * 100000 / 2.0 / kRate + 0.8, 0.15);
}

// Ticks come a second apart from the double click. The one that finds less
// than three seconds left (rounded) frees the channel, the next one starts
// the next row.
TEST_F(ClockHearingTest, ASongEndsThreeSecondsBeforeItsEndAndTheNextFollowsAtTheNextTick) {
  AddSong("a", 6, 1000);
  AddSong("b", 6, 1500);
  const auto at = Press([&] { DoubleClick(0); });
  Live(Ms(4600));
  const auto heard = Recording();
  const std::size_t press = FrameAt(at);
  const auto start = StartOfTone(heard, 1000, press);
  const auto end = EndOfTone(heard, 1000, press);
  ASSERT_TRUE(start && end);
  EXPECT_NEAR(Millis(std::ptrdiff_t(*end) - std::ptrdiff_t(*start)), 3000, 500)
      << "the song is heard up to 3 s before its end";
  const auto next = StartOfTone(heard, 1500, press);
  ASSERT_TRUE(next);
  const double afterFourthTick = Millis(std::ptrdiff_t(*next) - std::ptrdiff_t(press)) - 4000;
  EXPECT_GE(afterFourthTick, -20);
  EXPECT_LE(afterFourthTick, 150);
}

}  // namespace
}  // namespace yarvo
