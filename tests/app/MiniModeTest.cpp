// The mini window in a person's session, on an X server with a window
// manager and heard on a private sound server: a fresh program folder starts
// in it, its buttons play, pause and stop; the menu switches to the main
// window and back; a video takes the main window, shows in its panel, goes
// full screen and back, and when it ends the mini window returns.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "Ear.h"
#include "Hand.h"
#include "PlayerProcess.h"
#include "ScreenPixels.h"
#include "XServer.h"
#include "support/SoundServer.h"

namespace yarvo {
namespace {

using namespace std::chrono_literals;
using namespace test;

constexpr double kTone = 440, kVideoTone = 660;
constexpr int kMiniHeight = 99;  // 1485 twips

class MiniModeSession : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!x.ready()) GTEST_SKIP() << "no Xvfb on this machine";
    if (!sound.Ready()) GTEST_SKIP() << "no private PulseAudio server here";
    if (!Hand::Available() || !XServer::HasWindowManager()) GTEST_SKIP() << "no xdotool or openbox";
    ASSERT_TRUE(x.StartWindowManager());
    const std::string tone = folder / "tone.mp3", video = folder / "pattern.mp4";
    const std::string makeTone =
        "ffmpeg -loglevel error -y -f lavfi -i sine=frequency=" + std::to_string(kTone) +
        ":duration=30 -ac 2 '" + tone + "'";
    const std::string makeVideo =
        "ffmpeg -loglevel error -y -f lavfi -i testsrc=size=640x360:rate=25 -f lavfi -i "
        "sine=frequency=" +
        std::to_string(kVideoTone) +
        " -t 12 -c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a aac -shortest '" + video + "'";
    ASSERT_EQ(std::system(makeTone.c_str()), 0);
    ASSERT_EQ(std::system(makeVideo.c_str()), 0);
    // A playlist, and no settings.ini: the folder of a first start.
    WriteBytes(folder / "Data/plst.data", tone + "\r\n" + video + "\r\n");
    ear = std::make_unique<Ear>(sound, home / "heard.raw");
  }

  // The player's mini window, or its main window, where it shows.
  std::optional<XServer::Window> Shown(bool mini) const {
    for (const auto& window : x.Windows())
      if (window.mapped && window.name.rfind("Yarvo Player", 0) == 0 &&
          window.name.find("Playlist") == std::string::npos && window.width >= 400 &&
          (window.height == kMiniHeight) == mini)
        return window;
    return std::nullopt;
  }
  bool OnlyShown(bool mini) const { return Shown(mini) && !Shown(!mini); }

  // "Full / Mini mode", the last item of the "Options" menu of either window.
  void SwitchByTheMenu(const XServer::Window& window) {
    hand.Click(window.x + 100, window.y + 8);
    ASSERT_TRUE(WaitUntil([&] { return x.Popup().has_value(); }, 10s)) << "no menu";
    // Keys typed before the menu holds the keyboard would reach the window
    // under it, where Down and Return are shortcuts of their own.
    std::this_thread::sleep_for(500ms);
    hand.Xdo("key --delay 60 Down Down Down Down Down Down Down Return");
  }

  // How many pixels of the pattern's yellow, cyan and magenta bars lie in
  // the rectangle, the fewest of the three.
  int PatternPixels(int left, int top, int width, int height) const {
    const Pixels screen = Screenshot(x.display());
    int fewest = width * height;
    for (const Rgb bar : {Rgb{255, 255, 0}, Rgb{0, 255, 255}, Rgb{255, 0, 255}})
      fewest = std::min(fewest, Count(screen, bar, left, top, width, height));
    return fewest;
  }

  XServer x;
  SoundServer sound;
  ProgramFolder folder;
  TempDir home;
  Hand hand{x.display()};
  std::unique_ptr<Ear> ear;
};

TEST_F(MiniModeSession, TheMiniWindowPlaysSwitchesAndGivesWayToAVideoUntilItEnds) {
  Player player(folder, home, {}, x.display(), {}, sound.PulseServer());
  ASSERT_TRUE(WaitUntil([&] { return OnlyShown(true); })) << "a first start shows the mini window";
  std::this_thread::sleep_for(1s);  // the buttons' pictures come half a second after the window
  auto mini = *Shown(true);

  // A first start has the volume at 0: the mini window's bar is dragged to
  // its right end, and drives Main's.
  const int barY = mini.y + 80;
  hand.Drag(mini.x + 37, barY, mini.x + 150, barY);
  // The transport buttons at the mini window's right: next, pause, play,
  // stop.
  const int buttonsX = mini.x + 333, buttonsY = mini.y + 23;
  hand.Click(buttonsX + 56, buttonsY + 32);
  EXPECT_TRUE(ear->Hears(kTone)) << "next plays the first row; heard " << ear->Heard();
  hand.Click(buttonsX + 32, buttonsY + 8);
  EXPECT_TRUE(ear->HearsSilence()) << "paused";
  hand.Click(buttonsX + 32, buttonsY + 28);
  EXPECT_TRUE(ear->Hears(kTone)) << "play resumes";
  hand.Click(buttonsX + 32, buttonsY + 56);
  EXPECT_TRUE(ear->HearsSilence()) << "stopped";

  SwitchByTheMenu(mini);
  const auto at = [&](bool miniShown, const XServer::Window& place) {
    const auto window = Shown(miniShown);
    return window && !Shown(!miniShown) && window->x == place.x && window->y == place.y;
  };
  EXPECT_TRUE(WaitUntil([&] { return at(false, mini); }, 10s)) << "Main, where the mini was";
  auto main = *Shown(false);
  SwitchByTheMenu(main);
  EXPECT_TRUE(WaitUntil([&] { return at(true, main); }, 10s))
      << "the mini window, in its place " << main.x << "," << main.y << "; shown: "
      << (Shown(true) ? std::to_string(Shown(true)->x) + "," + std::to_string(Shown(true)->y) : "-")
      << " main " << (Shown(false) ? "shown" : "hidden");
  mini = *Shown(true);

  // The video, the second row, needs the main window.
  hand.Click(buttonsX + 56, buttonsY + 32);
  ASSERT_TRUE(WaitUntil([&] { return at(false, mini); }, 20s)) << "the video opens Main";
  main = *Shown(false);
  // The video panel: (120, 370) twips inside the window, 1450 by 700 twips
  // narrower and lower than it.
  const int panelX = main.x + 8, panelY = main.y + 24, panelW = main.width - 96,
            panelH = main.height - 46;
  EXPECT_TRUE(WaitUntil([&] { return PatternPixels(panelX, panelY, panelW, panelH) > 1000; }, 20s))
      << "the pattern's bars in the video panel";
  EXPECT_TRUE(ear->Hears(kVideoTone)) << "the video's sound; heard " << ear->Heard();

  const Pixels screen = Screenshot(x.display());
  hand.DoubleClick(panelX + panelW / 2, panelY + panelH / 2);
  EXPECT_TRUE(WaitUntil(
      [&] {
        const auto w = Shown(false);
        return w && w->x <= 0 && w->y <= 0 && w->x + w->width >= screen.width &&
               w->y + w->height >= screen.height;
      },
      10s))
      << "full screen covers the screen";
  EXPECT_TRUE(
      WaitUntil([&] { return PatternPixels(0, 0, screen.width, screen.height) > 20000; }, 10s))
      << "the picture fills the screen";
  hand.DoubleClick(screen.width / 2, screen.height / 2);
  EXPECT_TRUE(WaitUntil(
      [&] {
        const auto w = Shown(false);
        return w && w->x == main.x && w->y == main.y && w->width == main.width &&
               w->height == main.height;
      },
      10s))
      << "back at the same place and size";

  // The end of the video plays the next row, the tone, in the mini window.
  EXPECT_TRUE(WaitUntil([&] { return OnlyShown(true); }, 20s)) << "the mini window returns";
  EXPECT_TRUE(ear->Hears(kTone)) << "heard " << ear->Heard();
  player.Close();
  EXPECT_EQ(player.Wait(), 0);
}

}  // namespace
}  // namespace yarvo
