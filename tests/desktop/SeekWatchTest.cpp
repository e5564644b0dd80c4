// Telling a seek from a song that plays on: a wrong call either floods the
// desktop with Seeked or leaves its clock of the song wrong.

#include "host/mpris/SeekWatch.h"

#include <gtest/gtest.h>

namespace yarvo {
namespace {

TEST(SeekWatch, ASongThatPlaysOnOrStandsStillHasNotJumped) {
  SeekWatch watch;
  EXPECT_FALSE(watch.Jumped(10, 100, true)) << "the first reading has nothing to go by";
  EXPECT_FALSE(watch.Jumped(11.2, 101, true)) << "the engine's clock runs a little apart";
  EXPECT_FALSE(watch.Jumped(11.4, 101.2, false)) << "paused just now";
  EXPECT_FALSE(watch.Jumped(11.4, 160, false)) << "a long pause";
  EXPECT_FALSE(watch.Jumped(11.4, 160.1, true)) << "resumed";
  EXPECT_FALSE(watch.Jumped(12.4, 161.1, true));
}

TEST(SeekWatch, AJumpEitherWayIsASeek) {
  SeekWatch watch;
  watch.Restart(30, 0, true);
  EXPECT_TRUE(watch.Jumped(90, 1, true));
  EXPECT_FALSE(watch.Jumped(91, 2, true)) << "and from there it plays on";
  EXPECT_TRUE(watch.Jumped(5, 3, true));
  EXPECT_TRUE(watch.Jumped(40, 3.5, false)) << "a paused song that moved";
}

TEST(SeekWatch, ARestartIsTheNewBaseline) {
  SeekWatch watch;
  watch.Restart(0, 0, true);
  watch.Restart(50, 1, true);  // a seek the desktop was told of already
  EXPECT_FALSE(watch.Jumped(51, 2, true));
}

}  // namespace
}  // namespace yarvo
