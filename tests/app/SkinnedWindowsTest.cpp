// The skinned windows on an X server of the test's own, driven by a real X
// client (xdotool): the skin's pictures reach the screen, a slider follows a
// drag of the mouse, and a popup menu is chosen from with the keys and with
// the pointer.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "Hand.h"
#include "PlayerProcess.h"
#include "ScreenPixels.h"
#include "XServer.h"

namespace yarvo {
namespace {

using namespace std::chrono_literals;
using namespace test;

// The main window stands at (100, 100), 406 by 235 pixels in its full layout.
constexpr int kLeft = 100, kTop = 100, kWidth = 406, kHeight = 235;

class SkinnedWindows : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!x.ready()) GTEST_SKIP() << "no Xvfb on this machine";
    if (!Hand::Available()) GTEST_SKIP() << "no xdotool";
  }

  // Starts the player on the main window with `skin`, volume at 50 and the
  // playlist shown beside it.
  void Start(const std::string& skin) {
    WriteBytes(folder / "settings.ini", SettingsWith({{2, std::to_string(kLeft * 15)},
                                                      {3, std::to_string(kTop * 15)},
                                                      {4, std::to_string(kWidth * 15)},
                                                      {5, std::to_string(kHeight * 15)},
                                                      {7, "7700"},
                                                      {8, "1500"},
                                                      {11, "50"},
                                                      {16, "Playlist=True"},
                                                      {20, skin},
                                                      {53, "Full"},
                                                      {56, "main"}}));
    const std::string log = home / "player.log";
    player = std::make_unique<Player>(folder, home, std::vector<std::string>{}, x.display(), log);
    ASSERT_TRUE(WaitUntil([&] { return MainShows() && PlaylistShows(); })) << "the player said:\n"
                                                                           << ReadBytes(log);
    std::this_thread::sleep_for(1500ms);  // the transport buttons fetch their pictures
  }

  bool MainShows() const {
    for (const auto& window : x.Windows())
      if (window.mapped && window.x == kLeft && window.y == kTop) return true;
    return false;
  }
  bool PlaylistShows() const {
    const auto playlist = x.Find("Yarvo Player - Playlist");
    return playlist && playlist->mapped;
  }

  // The settings line the player wrote when it closed.
  std::string Saved(int line) {
    player->Close();
    EXPECT_EQ(player->Wait(), 0);
    std::string text = ReadBytes(folder / "settings.ini");
    for (int i = 0; i < line; ++i) text.erase(0, text.find("\r\n") + 2);
    return text.substr(0, text.find("\r\n"));
  }

  XServer x;
  Hand hand{x.display()};
  ProgramFolder folder;
  TempDir home;
  std::unique_ptr<Player> player;
};

// Pixels of `picture` at (px, py) on the screen at (sx, sy), for every point of
// a grid inside the rectangle given in the picture's coordinates; `slack` for
// a decoder's rounding.
int Mismatches(const Pixels& screen, const Pixels& picture, int sx, int sy, int left, int top,
               int width, int height, int slack = 0) {
  int wrong = 0;
  for (int y = top; y < top + height; y += 3) {
    for (int x = left; x < left + width; x += 3) {
      const Rgb want = picture.At(x, y), got = screen.At(sx + x, sy + y);
      if (std::abs(want.r - got.r) > slack || std::abs(want.g - got.g) > slack ||
          std::abs(want.b - got.b) > slack)
        ++wrong;
    }
  }
  return wrong;
}

TEST_F(SkinnedWindows, EachSkinsPicturesReachTheScreenWhereTheLayoutPutsThem) {
  for (const char* skin : {"Default", "Aluminium"}) {
    SCOPED_TRACE(skin);
    Start(skin);
    const Pixels screen = Screenshot(x.display());
    auto picture = [&](const char* file) {
      return ReadPicture(folder / ("Skins/" + std::string(skin) + "/" + file));
    };
    const Pixels corner = picture("top-left.bmp"), logo = picture("logo.bmp"),
                 plate = picture("controls-background.bmp"), panel = picture("main.jpg");
    ASSERT_EQ(logo.width, 73);
    // Left of the first menu plate, below the rounded corner.
    EXPECT_EQ(Mismatches(screen, corner, kLeft, kTop, 4, 4, 10, 14), 0) << "the frame";
    // The logo, but for the resize grip's corner.
    EXPECT_EQ(Mismatches(screen, logo, kLeft + 333, kTop + 192, 0, 0, 60, 39), 0) << "the logo";
    // The transport plate in the right column, no button lit.
    EXPECT_EQ(Mismatches(screen, plate, kLeft + 330, kTop + 32, 0, 0, 65, 62), 0)
        << "the transport buttons";
    // The main panel below the facts and left of the equalizer.
    EXPECT_EQ(Mismatches(screen, panel, kLeft + 8, kTop + 24, 2, 183, 100, 8, 4), 0)
        << "the main panel";
    player->Close();
    ASSERT_EQ(player->Wait(), 0);
  }
}

// The volume bar: thumb of 13 pixels between buttons of 7 in 93, so 66 pixels
// of travel for 100 steps; at 50 its middle stands 46 pixels into the bar.
TEST_F(SkinnedWindows, TheVolumeBarFollowsTheMouseToItsEnds) {
  Start("Default");
  const int barX = kLeft + 232, barY = kTop + kHeight - 21 + 8;
  const int thumb = barX + 46;
  hand.Drag(thumb, barY, thumb - 100, barY);
  EXPECT_EQ(Saved(11), "0") << "dragged to the left end";

  Start("Default");
  hand.Drag(thumb, barY, thumb + 150, barY);
  EXPECT_EQ(Saved(11), "100") << "dragged to the right end";
}

// "Options" of the menu bar pops up its menu under the caption; "Show / hide"
// opens a submenu whose "Playlist" hides and shows the playlist window.
TEST_F(SkinnedWindows, AMenuItemChosenWithTheKeysOrThePointerRunsItsAction) {
  Start("Aluminium");
  const int optionsX = kLeft + 100, optionsY = kTop + 8;
  hand.Click(optionsX, optionsY);
  ASSERT_TRUE(WaitUntil([&] { return x.Popup().has_value(); })) << "no popup";
  const auto menu = *x.Popup();
  EXPECT_EQ(menu.x, kLeft + 73);
  EXPECT_EQ(menu.y, kTop + 20);
  std::this_thread::sleep_for(500ms);  // until the menu holds the keyboard
  hand.Xdo("key --delay 60 Down Down Down Down Down Down Right Return");
  EXPECT_TRUE(WaitUntil([&] { return !PlaylistShows(); })) << "chosen with the keys";
  EXPECT_FALSE(x.Popup().has_value()) << "the menus closed";

  hand.Click(optionsX, optionsY);
  ASSERT_TRUE(WaitUntil([&] { return x.Popup().has_value(); }));
  const auto again = *x.Popup();
  // Seven items of one height and a separator of 5 pixels, inside a border.
  const int row = (again.height - 2 - 5) / 7;
  hand.Xdo("mousemove " + std::to_string(again.x + 40) + " " +
           std::to_string(again.y + 1 + 5 * row + row / 2));
  ASSERT_TRUE(WaitUntil([&] {
    const auto popup = x.Popup();
    return popup && popup->id != again.id && popup->x > again.x;
  })) << "the submenu opens when the pointer rests on its item";
  const auto submenu = *x.Popup();
  hand.Click(submenu.x + 30, submenu.y + 1 + row / 2);
  EXPECT_TRUE(WaitUntil([&] { return PlaylistShows(); })) << "chosen with the pointer";
  player->Close();
  EXPECT_EQ(player->Wait(), 0);
}

}  // namespace
}  // namespace yarvo
