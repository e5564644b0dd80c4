// The windows stick while a person drags them, on an X server with openbox
// and a panel (trayer, which keeps the top 24 pixels of the screen for
// itself): the player dragged by its title bar carries the playlist docked
// below it, a window let go 10 pixels from the screen's left edge lands on
// it, and one let go 8 pixels below the panel lands against the panel.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Hand.h"
#include "Panel.h"
#include "PlayerProcess.h"
#include "XServer.h"
#include "support/SoundServer.h"

namespace yarvo {
namespace {

using namespace std::chrono_literals;
using namespace test;

constexpr int kLeft = 100, kTop = 100;  // the main window, 406 by 235
constexpr int kPanel = Panel::kHeight;

class Docking : public ::testing::Test {
 protected:
  void SetUp() override {
    if (const std::string missing = Panel::Missing(x); !missing.empty()) GTEST_SKIP() << missing;
    ASSERT_TRUE(x.StartWindowManager());  // before the panel comes
    ASSERT_TRUE(panel.Start(x)) << "no panel on " << x.display();
    // The playlist docked below the main window; no tray icon.
    WriteBytes(folder / "settings.ini", SettingsWith({{2, std::to_string(kLeft * 15)},
                                                      {3, std::to_string(kTop * 15)},
                                                      {7, std::to_string(kLeft * 15)},
                                                      {8, std::to_string((kTop + 235) * 15)},
                                                      {9, "4500"},
                                                      {10, "4530"},
                                                      {16, "Playlist=True"},
                                                      {20, "Default"},
                                                      {53, "Full"},
                                                      {56, "main"},
                                                      {64, "0"}}));
  }

  // The main window once it shows, and the playlist window.
  std::optional<XServer::Window> MainWindow() const {
    const auto main = x.PlayerMain();
    return main && main->mapped ? main : std::nullopt;
  }
  std::optional<XServer::Window> ListWindow() const { return x.PlayerList(); }
  // Waits until the main window's top left corner is at (left, top) and the
  // playlist's at (listLeft, listTop).
  bool Placed(int left, int top, int listLeft, int listTop) const {
    return WaitUntil(
        [&] {
          const auto main = MainWindow();
          const auto list = ListWindow();
          return main && list && main->x == left && main->y == top && list->x == listLeft &&
                 list->y == listTop;
        },
        5s);
  }
  std::string Where() const {
    const auto main = MainWindow();
    const auto list = ListWindow();
    return "main " + (main ? std::to_string(main->x) + "," + std::to_string(main->y) : "none") +
           ", playlist " +
           (list ? std::to_string(list->x) + "," + std::to_string(list->y) : "none");
  }
  // A drag by the title bar, from the window's corner at (left, top).
  void DragTitle(int left, int top, int dx, int dy) const {
    hand.Drag(left + 325, top + 8, left + 325 + dx, top + 8 + dy);
  }

  XServer x;
  ProgramFolder folder;
  TempDir home;
  Hand hand{x.display()};
  Panel panel;
};

TEST_F(Docking, ThePlayerCarriesItsPlaylistAndItsEdgesStickToTheWorkArea) {
  Player player(folder, home, {}, x.display());
  ASSERT_TRUE(WaitUntil([&] { return MainWindow() && ListWindow() && ListWindow()->mapped; }));
  std::this_thread::sleep_for(1s);
  hand.Click(kLeft + 325, kTop + 8);  // the player active: the playlist follows it
  std::this_thread::sleep_for(300ms);

  DragTitle(kLeft, kTop, 200, 150);
  EXPECT_TRUE(Placed(300, 250, 300, 485)) << Where();

  DragTitle(300, 250, -290, 0);
  EXPECT_TRUE(Placed(0, 250, 0, 485)) << "10 from the left edge lands on it; " << Where();

  DragTitle(0, 250, 0, -(250 - kPanel - 8));
  EXPECT_TRUE(Placed(0, kPanel, 0, kPanel + 235)) << "8 below the panel lands on it; " << Where();

  player.Close();
  ASSERT_EQ(player.Wait(), 0);
}

}  // namespace
}  // namespace yarvo
