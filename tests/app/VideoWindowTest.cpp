// A video played in the real window, on an X server of the test's own: the
// colours of the test pattern must appear inside the video panel.

#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <thread>

#include "PlayerProcess.h"

extern char** environ;

namespace yarvo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// An Xvfb server on a display number of its own, for the life of the object.
class XServer {
 public:
  XServer() {
    display_ = ":" + std::to_string(80 + getpid() % 100);
    const std::string socket = "/tmp/.X11-unix/X" + display_.substr(1);
    std::vector<std::string> args{"Xvfb",        display_,    "-screen", "0",
                                  "1024x768x24", "-nolisten", "tcp"};
    std::vector<char*> argv;
    for (auto& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    if (posix_spawnp(&pid_, "Xvfb", nullptr, nullptr, argv.data(), environ) != 0) pid_ = -1;
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (pid_ > 0 && !fs::exists(socket) && std::chrono::steady_clock::now() < deadline)
      std::this_thread::sleep_for(20ms);
    ready_ = pid_ > 0 && fs::exists(socket);
  }
  ~XServer() {
    if (pid_ > 0) {
      kill(pid_, SIGTERM);
      waitpid(pid_, nullptr, 0);
    }
  }
  bool Ready() const { return ready_; }
  const std::string& Display() const { return display_; }

 private:
  pid_t pid_ = -1;
  std::string display_;
  bool ready_ = false;
};

struct Rgb {
  int r, g, b;
};

// The whole screen as rows of pixels, through ImageMagick's import.
std::vector<std::vector<Rgb>> Screenshot(const std::string& display) {
  const std::string command =
      "import -display " + display + " -window root -depth 8 ppm:- 2>/dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  std::vector<std::vector<Rgb>> rows;
  if (!pipe) return rows;
  int width = 0, height = 0, maxValue = 0;
  if (std::fscanf(pipe, "P6 %d %d %d", &width, &height, &maxValue) == 3 && maxValue == 255) {
    std::fgetc(pipe);
    rows.assign(static_cast<std::size_t>(height),
                std::vector<Rgb>(static_cast<std::size_t>(width)));
    for (auto& row : rows) {
      for (auto& pixel : row) {
        pixel.r = std::fgetc(pipe);
        pixel.g = std::fgetc(pipe);
        pixel.b = std::fgetc(pipe);
      }
    }
  }
  pclose(pipe);
  return rows;
}

bool Near(const Rgb& a, const Rgb& b) {
  return std::abs(a.r - b.r) < 40 && std::abs(a.g - b.g) < 40 && std::abs(a.b - b.b) < 40;
}

// How many pixels of `colour` lie inside the rectangle.
int Count(const std::vector<std::vector<Rgb>>& screen, Rgb colour, int left, int top, int width,
          int height) {
  int count = 0;
  for (int y = top; y < top + height && y < static_cast<int>(screen.size()); ++y) {
    for (int x = left;
         x < left + width && x < static_cast<int>(screen[static_cast<std::size_t>(y)].size());
         ++x) {
      if (Near(screen[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)], colour)) ++count;
    }
  }
  return count;
}

TEST(VideoWindow, ATestPatternShowsItsColoursInsideTheVideoPanel) {
  XServer x;
  if (!x.Ready()) GTEST_SKIP() << "no Xvfb on this machine";
  test::ProgramFolder folder;
  test::TempDir home;
  const std::string video = folder / "bars.avi";
  const std::string make =
      "ffmpeg -loglevel error -y -f lavfi -i smptebars=size=320x240:rate=25 -t 30 -c:v mpeg4 '" +
      video + "'";
  ASSERT_EQ(std::system(make.c_str()), 0);
  test::Player player(folder, home, {video}, x.Display());

  // Main at (2000, 1200) twips, the video panel at (120, 370) inside it and
  // 6100 - 1450 by 3530 - 700 twips, as the window lays out a first video.
  const int left = 2000 / 15 + 120 / 15, top = 1200 / 15 + 370 / 15, width = 4650 / 15,
            height = 2830 / 15;
  const Rgb yellow{191, 191, 0}, cyan{0, 191, 191}, magenta{191, 0, 191};
  bool seen = false;
  for (auto deadline = std::chrono::steady_clock::now() + test::kPatience;
       !seen && std::chrono::steady_clock::now() < deadline; std::this_thread::sleep_for(250ms)) {
    const auto screen = Screenshot(x.Display());
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
