// A video played in the real window, on an X server of the test's own: the
// colours of the test pattern must appear inside the video panel.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

#include "PlayerProcess.h"
#include "ScreenPixels.h"
#include "XServer.h"

namespace yarvo {
namespace {

using namespace std::chrono_literals;

TEST(VideoWindow, ATestPatternShowsItsColoursInsideTheVideoPanel) {
  test::XServer x;
  if (!x.ready()) GTEST_SKIP() << "no Xvfb on this machine";
  test::ProgramFolder folder;
  test::TempDir home;
  const std::string video = folder / "bars.avi";
  const std::string make =
      "ffmpeg -loglevel error -y -f lavfi -i smptebars=size=320x240:rate=25 -t 30 -c:v mpeg4 '" +
      video + "'";
  ASSERT_EQ(std::system(make.c_str()), 0);
  test::Player player(folder, home, {video}, x.display());

  // Main at (2000, 1200) twips, the video panel at (120, 370) inside it and
  // 6100 - 1450 by 3530 - 700 twips, as the window lays out a first video.
  const int left = 2000 / 15 + 120 / 15, top = 1200 / 15 + 370 / 15, width = 4650 / 15,
            height = 2830 / 15;
  const test::Rgb yellow{191, 191, 0}, cyan{0, 191, 191}, magenta{191, 0, 191};
  bool seen = false;
  for (auto deadline = std::chrono::steady_clock::now() + test::kPatience;
       !seen && std::chrono::steady_clock::now() < deadline; std::this_thread::sleep_for(250ms)) {
    const auto screen = test::Screenshot(x.display());
    seen = test::Count(screen, yellow, left, top, width, height) > 500 &&
           test::Count(screen, cyan, left, top, width, height) > 500 &&
           test::Count(screen, magenta, left, top, width, height) > 500;
    if (seen) {
      EXPECT_EQ(test::Count(screen, yellow, 0, 0, left, 768), 0)
          << "the picture stays inside the panel";
    }
  }
  EXPECT_TRUE(seen) << "the pattern's colours never showed in the video panel";
  player.Close();
  EXPECT_EQ(player.Wait(), 0);
}

}  // namespace
}  // namespace yarvo
