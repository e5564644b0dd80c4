// A video played in the real window, on an X server of the test's own: the
// colours of the test pattern must appear inside the video panel.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

#include "PlayerProcess.h"
#include "XServer.h"

namespace yarvo {
namespace {

using namespace std::chrono_literals;

struct Rgb {
  int r, g, b;
};

// The whole screen as 8-bit RGB triples, row by row, through ImageMagick's
// import.
struct Screen {
  int width = 0, height = 0;
  std::string rgb;
};

Screen Screenshot(const std::string& display) {
  const std::string command =
      "import -display " + display + " -window root -depth 8 ppm:- 2>/dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  Screen screen;
  if (!pipe) return screen;
  int maxValue = 0;
  if (std::fscanf(pipe, "P6 %d %d %d", &screen.width, &screen.height, &maxValue) == 3 &&
      maxValue == 255 && screen.width > 0) {
    std::fgetc(pipe);
    screen.rgb.resize(static_cast<std::size_t>(screen.width * screen.height * 3));
    // A short read keeps only the rows that came in whole.
    screen.rgb.resize(std::fread(screen.rgb.data(), 1, screen.rgb.size(), pipe));
    screen.height = static_cast<int>(screen.rgb.size()) / (screen.width * 3);
  }
  pclose(pipe);
  return screen;
}

// How many pixels near `colour` lie inside the rectangle.
int Count(const Screen& screen, Rgb colour, int left, int top, int width, int height) {
  int count = 0;
  for (int y = top; y < std::min(top + height, screen.height); ++y) {
    for (int x = left; x < std::min(left + width, screen.width); ++x) {
      const auto* p = reinterpret_cast<const unsigned char*>(
          screen.rgb.data() + (static_cast<std::size_t>(y * screen.width + x) * 3));
      if (std::abs(p[0] - colour.r) < 40 && std::abs(p[1] - colour.g) < 40 &&
          std::abs(p[2] - colour.b) < 40)
        ++count;
    }
  }
  return count;
}

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
  const Rgb yellow{191, 191, 0}, cyan{0, 191, 191}, magenta{191, 0, 191};
  bool seen = false;
  for (auto deadline = std::chrono::steady_clock::now() + test::kPatience;
       !seen && std::chrono::steady_clock::now() < deadline; std::this_thread::sleep_for(250ms)) {
    const auto screen = Screenshot(x.display());
    seen = Count(screen, yellow, left, top, width, height) > 500 &&
           Count(screen, cyan, left, top, width, height) > 500 &&
           Count(screen, magenta, left, top, width, height) > 500;
    if (seen) {
      EXPECT_EQ(Count(screen, yellow, 0, 0, left, 768), 0) << "the picture stays inside the panel";
    }
  }
  EXPECT_TRUE(seen) << "the pattern's colours never showed in the video panel";
  player.Close();
  EXPECT_EQ(player.Wait(), 0);
}

}  // namespace
}  // namespace yarvo
