// The player's icon in the notification area: Check7 puts it there and takes
// it away; a minimise with the icon there hides the window, which the icon's
// left button brings back and whose menu its right button pops up; without a
// notification area, or with the switch off, the window stays in the task bar.

#include <gtest/gtest.h>

#include "core/form/Events.h"
#include "director/Program.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"
#include "windows/modSysTray.h"

namespace yarvo {
namespace {

class SysTray : public test::ProgramFixture {
 protected:
  void StartWithTray(const char* check7) {
    Restart(test::SettingsWith({{56, "main"},
                                {53, "Full"},
                                {16, "Playlist=True"},
                                {20, "Default"},
                                {2, "1500"},
                                {3, "1500"},
                                {64, check7}}));
  }
  Main& M() { return P().Main(); }
  bool IconShown() const { return desktop.tray.icons.contains(kPlayerTrayIcon); }
  void Press(MouseButton button, ScreenPoint at = {1800, 1040}) {
    RunEvent([&] { desktop.tray.icons.at(kPlayerTrayIcon).pressed(button, at); });
  }
  void Minimize() {
    RunEvent([&] { M().MinimizeButton.Click(); });
  }
};

TEST_F(SysTray, TheSwitchPutsTheIconThereAndTakesItAway) {
  StartWithTray("0");
  EXPECT_FALSE(IconShown()) << "switched off at start";
  StartWithTray("1");
  ASSERT_TRUE(IconShown());
  EXPECT_EQ(desktop.tray.icons.at(kPlayerTrayIcon).tip, "Yarvo Player");
  RunEvent([&] { P().Options().Check7.Value = 0; });
  EXPECT_FALSE(IconShown());
  RunEvent([&] { P().Options().Check7.Value = 1; });
  EXPECT_TRUE(IconShown());
}

TEST_F(SysTray, AMinimisedPlayerWaitsInTheTrayAndItsIconBringsItBackOrPopsItsMenu) {
  StartWithTray("1");
  auto& playlist = P().Playlist();
  ASSERT_TRUE(playlist.Visible.get());
  Press(MouseButton::Left);
  EXPECT_TRUE(desktop.popups.empty());
  EXPECT_EQ(M().WindowState.get(), WindowState::Normal) << "a window that shows ignores the icon";

  Minimize();
  EXPECT_FALSE(M().Visible.get()) << "only the icon is left";
  EXPECT_FALSE(playlist.Visible.get());

  Press(MouseButton::Right);
  ASSERT_EQ(desktop.popups.size(), 1u);
  EXPECT_EQ(desktop.popups[0].menu, "SysTrayMenu");
  EXPECT_EQ(desktop.popups[0].form, &M());
  EXPECT_EQ(desktop.popups[0].x, 1800 * 15 - 1500) << "at the pointer";
  EXPECT_EQ(desktop.popups[0].y, 1040 * 15 - 1500);
  EXPECT_FALSE(P().FormMeniuri().SysTrayMenu.Visible.get()) << "hidden between uses";
  EXPECT_FALSE(M().Visible.get());

  Press(MouseButton::Left);
  EXPECT_TRUE(M().Visible.get());
  EXPECT_EQ(M().WindowState.get(), WindowState::Normal);
  clock.Advance(100);
  EXPECT_TRUE(playlist.Visible.get()) << "FixWindows brings the playlist back";
}

TEST_F(SysTray, WithoutANotificationAreaOrWithTheSwitchOffTheWindowStaysInTheTaskBar) {
  StartWithTray("1");
  desktop.tray.available = false;
  Minimize();
  EXPECT_TRUE(M().Visible.get());
  EXPECT_EQ(M().WindowState.get(), WindowState::Minimized);

  StartWithTray("0");
  Minimize();
  EXPECT_TRUE(M().Visible.get());
  EXPECT_EQ(M().WindowState.get(), WindowState::Minimized);
}

}  // namespace
}  // namespace yarvo
