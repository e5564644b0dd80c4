// The player's icon in an XEmbed notification area (trayer), on an X server
// with openbox: it shows when the settings switch it on and not when they
// switch it off; a minimise hides the player, a right click on the icon opens
// its menu and a left click brings the player and its playlist back.

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

// Last: Xlib's macros (None, Bool, Status) would clash with the headers above.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace yarvo {
namespace {

using namespace std::chrono_literals;
using namespace test;

constexpr int kLeft = 100, kTop = 100;  // the main window, 406 by 235

// A window of the player that shows inside `parent`; its place on the screen.
std::optional<XServer::Window> PlayerWindowInside(Display* display, ::Window parent) {
  ::Window root = 0, up = 0, *children = nullptr;
  unsigned int count = 0;
  if (!XQueryTree(display, parent, &root, &up, &children, &count)) return std::nullopt;
  std::optional<XServer::Window> found;
  for (unsigned int i = 0; i < count && !found; ++i) {
    XClassHint hint{};
    const bool ours = XGetClassHint(display, children[i], &hint) && hint.res_name &&
                      std::string(hint.res_name) == "yarvo-player";
    if (hint.res_name) XFree(hint.res_name);
    if (hint.res_class) XFree(hint.res_class);
    XWindowAttributes attributes{};
    if (ours && XGetWindowAttributes(display, children[i], &attributes) &&
        attributes.map_state == IsViewable) {
      XServer::Window window;
      window.id = children[i];
      window.width = attributes.width;
      window.height = attributes.height;
      window.mapped = true;
      ::Window child = 0;
      XTranslateCoordinates(display, children[i], root, 0, 0, &window.x, &window.y, &child);
      found = window;
    } else {
      found = PlayerWindowInside(display, children[i]);
    }
  }
  if (children) XFree(children);
  return found;
}

class Tray : public ::testing::Test {
 protected:
  void SetUp() override {
    if (const std::string missing = Panel::Missing(x); !missing.empty()) GTEST_SKIP() << missing;
    ASSERT_TRUE(x.StartWindowManager());  // before the panel comes
    ASSERT_TRUE(panel.Start(x)) << "no notification area on " << x.display();
  }

  // A player whose settings switch the icon on ("1") or off ("0").
  std::unique_ptr<Player> Start(const char* check7) {
    WriteBytes(folder / "settings.ini", SettingsWith({{2, std::to_string(kLeft * 15)},
                                                      {3, std::to_string(kTop * 15)},
                                                      {7, std::to_string(kLeft * 15)},
                                                      {8, std::to_string((kTop + 235) * 15)},
                                                      {16, "Playlist=True"},
                                                      {20, "Default"},
                                                      {53, "Full"},
                                                      {56, "main"},
                                                      {64, check7}}));
    auto player = std::make_unique<Player>(folder, home, std::vector<std::string>{}, x.display());
    EXPECT_TRUE(WaitUntil([&] { return Shows(MainWindow()) && Shows(ListWindow()); }));
    return player;
  }

  static bool Shows(const std::optional<XServer::Window>& window) {
    return window && window->mapped;
  }
  std::optional<XServer::Window> MainWindow() const { return x.PlayerMain(); }
  std::optional<XServer::Window> ListWindow() const { return x.PlayerList(); }
  // The player's icon as the tray shows it.
  std::optional<XServer::Window> Icon() const {
    const auto area = x.Find("panel");
    Display* display = XOpenDisplay(x.display().c_str());
    if (!area || !display) return std::nullopt;
    auto icon = PlayerWindowInside(display, area->id);
    XCloseDisplay(display);
    return icon;
  }

  XServer x;
  ProgramFolder folder;
  TempDir home;
  Hand hand{x.display()};
  Panel panel;
};

TEST_F(Tray, TheIconShowsWhenTheSettingsSwitchItOn) {
  auto off = Start("0");
  std::this_thread::sleep_for(2s);
  EXPECT_FALSE(Icon()) << "switched off";
  off->Close();
  ASSERT_EQ(off->Wait(), 0);

  auto on = Start("1");
  EXPECT_TRUE(WaitUntil([&] { return Icon().has_value(); }, 10s)) << "switched on";
  on->Close();
  ASSERT_EQ(on->Wait(), 0);
}

TEST_F(Tray, AMinimisedPlayerWaitsInTheTrayAndItsIconOpensItsMenuAndBringsItBack) {
  auto player = Start("1");
  ASSERT_TRUE(WaitUntil([&] { return Icon().has_value(); }, 10s));
  std::this_thread::sleep_for(1s);
  const auto icon = *Icon();

  hand.Click(kLeft + 341, kTop + 8);  // the minimise button
  EXPECT_TRUE(WaitUntil([&] { return !Shows(MainWindow()) && !Shows(ListWindow()); }, 5s))
      << "the player and its playlist are gone from the screen";

  hand.Click(icon.x + icon.width / 2, icon.y + icon.height / 2, "click 3");
  EXPECT_TRUE(WaitUntil([&] { return x.Popup().has_value(); }, 5s)) << "the icon's menu";
  hand.Xdo("key Escape");
  EXPECT_TRUE(WaitUntil([&] { return !x.Popup(); }, 5s));
  EXPECT_FALSE(Shows(MainWindow()));

  hand.Click(icon.x + icon.width / 2, icon.y + icon.height / 2);
  EXPECT_TRUE(WaitUntil([&] { return Shows(MainWindow()) && Shows(ListWindow()); }, 5s))
      << "the player and its playlist are back";
  const auto main = MainWindow();
  ASSERT_TRUE(main);
  EXPECT_EQ(main->x, kLeft);
  EXPECT_EQ(main->y, kTop);

  player->Close();
  ASSERT_EQ(player->Wait(), 0);
}

}  // namespace
}  // namespace yarvo
