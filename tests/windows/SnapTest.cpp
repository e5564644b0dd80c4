// Docking: a dragged window sticks to the work area from the inside and to
// the other windows on all sides, edge to edge, within 14 pixels; a sized
// window's dragged edges stick the same way; the playlist and the library
// follow the active player window at the offsets of its activation.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/DataForm.h"
#include "core/form/Events.h"
#include "director/Program.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "support/ProgramFixture.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"
#include "windows/Snap.h"

namespace yarvo {
namespace {

constexpr ScreenRect kWorkArea{0, 0, 1920, 1050};
constexpr ScreenRect kOther{800, 300, 1146, 602};  // another window, 346 by 302

// A window of 406 by 235 pixels with its top left corner at (x, y).
ScreenRect At(int x, int y) { return {x, y, x + 406, y + 235}; }

std::string Text(const ScreenRect& r) {
  return std::to_string(r.left) + "," + std::to_string(r.top) + " - " + std::to_string(r.right) +
         "," + std::to_string(r.bottom);
}

struct MoveCase {
  const char* what;
  ScreenRect asked;
  ScreenRect lands;
};

TEST(SnapMove, EdgesCatchWithin14PixelsTheWorkAreaFromInsideOthersOnAllSides) {
  const std::vector<ScreenRect> targets{kWorkArea, kOther};
  const MoveCase cases[] = {
      {"14 from the left edge sticks", At(14, 400), At(0, 400)},
      {"15 from the left edge does not", At(15, 400), At(15, 400)},
      {"14 past the left edge comes back", At(-14, 400), At(0, 400)},
      {"the bottom edge sticks to the panel", At(300, 1050 - 235 + 9), At(300, 1050 - 235)},
      {"right and top at once: the corner", At(1920 - 406 - 3, 7), At(1920 - 406, 0)},
      {"the work area's right edge holds no left edge from outside", At(1925, 400), At(1925, 400)},
      {"left edge to the other's right edge", At(1146 + 10, 320), At(1146, 320)},
      {"right edge to the other's left edge", At(800 - 406 - 12, 320), At(800 - 406, 320)},
      {"top edge to the other's bottom edge", At(820, 602 + 14), At(820, 602)},
      {"bottom edge to the other's top edge", At(820, 300 - 235 - 5), At(820, 300 - 235)},
      {"side by side with spans 14 apart: they meet at the corner", At(1146 + 10, 602 + 14),
       At(1146, 602)},
      {"side by side with spans 15 apart", At(1146 + 10, 602 + 15), At(1146 + 10, 602 + 15)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ScreenRect rect = c.asked;
    SnapMove(rect, targets);
    EXPECT_EQ(Text(rect), Text(c.lands));
  }
}

struct SizeCase {
  const char* what;
  int edge;
  ScreenRect asked;
  ScreenRect lands;
};

TEST(SnapSize, TheDraggedEdgesStickAndTheOppositeOnesStay) {
  const std::vector<ScreenRect> targets{kWorkArea, kOther};
  const SizeCase cases[] = {
      {"bottom right to the other's left edge", 8, {300, 350, 800 - 9, 500}, {300, 350, 800, 500}},
      {"bottom right to the other's top edge",
       8,
       {820, 100, 1000, 300 - 13},
       {820, 100, 1000, 300}},
      {"bottom right past the work area comes back to it",
       8,
       {1600, 900, 1920 + 12, 1050 + 4},
       {1600, 900, 1920, 1050}},
      {"15 away nothing sticks", 8, {300, 350, 800 - 15, 500}, {300, 350, 800 - 15, 500}},
      {"top left to the work area's corner", 4, {10, 13, 500, 400}, {0, 0, 500, 400}},
      {"the work area's left edge holds no right edge",
       8,
       {-300, 400, 8, 600},
       {-300, 400, 8, 600}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ScreenRect rect = c.asked;
    SnapSize(rect, c.edge, targets);
    EXPECT_EQ(Text(rect), Text(c.lands));
  }
}

// Main at (100, 100), 406 by 235 pixels; the playlist, 300 by 302, docked
// below it; the library, 515 by 335, docked to its right.
class Docking : public test::ProgramFixture {
 protected:
  void SetUp() override {
    Restart(test::SettingsWith({{56, "main"},
                                {53, "Full"},
                                {16, "Playlist=True"},
                                {20, "Default"},
                                {2, "1500"},
                                {3, "1500"},
                                {7, "1500"},
                                {8, "5025"},
                                {9, "4500"},
                                {10, "4530"},
                                {66, "7590"},
                                {67, "1500"},
                                {68, "7725"},
                                {69, "5025"},
                                {70, "1"}}));
    desktop.workArea = kWorkArea;
  }
  Main& M() { return P().Main(); }
  // A drag of `form` by the pointer, `steps` as the host hands them: each
  // the window's rectangle at the start moved by the pointer so far.
  void Drag(Form& form, std::initializer_list<std::pair<int, int>> steps) {
    RunEvent([&] { form.EnterSizeMove(); });
    const ScreenRect start{form.Left / 15, form.Top / 15, (form.Left + form.Width) / 15,
                           (form.Top + form.Height) / 15};
    for (auto [dx, dy] : steps) {
      ScreenRect rect{start.left + dx, start.top + dy, start.right + dx, start.bottom + dy};
      RunEvent([&] { form.Moving(rect); });
      form.Left = rect.left * 15;
      form.Top = rect.top * 15;
    }
  }
  static std::pair<int, int> Place(const Form& form) { return {form.Left / 15, form.Top / 15}; }
};

TEST_F(Docking, AStuckWindowFollowsThePointerAgainOnce15PixelsAway) {
  P().Playlist().Hide();
  P().MediaLibrary().Hide();
  RunEvent([&] { M().Deactivate(); });
  Drag(M(), {{-86, 0}, {-95, 0}, {-110, 0}, {-86, 0}, {-85, 0}});
  EXPECT_EQ(Place(M()), std::pair(15, 100)) << "14, 5, -10 and 14 from the edge stick; 15 frees";
  Drag(M(), {{-4, 0}});
  EXPECT_EQ(Place(M()), std::pair(0, 100)) << "a new drag: 11 from the edge sticks";
}

TEST_F(Docking, TheOtherWindowsAreTargetsWhileTheyShow) {
  auto& library = P().MediaLibrary();
  RunEvent([&] { M().Deactivate(); });
  ASSERT_TRUE(library.Visible.get());
  Drag(M(), {{10, -20}});
  EXPECT_EQ(Place(M()), std::pair(100, 80)) << "the right edge holds to the library's left";
  library.Hide();
  Drag(M(), {{10, 0}});
  EXPECT_EQ(Place(M()), std::pair(110, 80)) << "a hidden window holds nothing";
}

TEST_F(Docking, ThePlaylistAndTheLibraryKeepTheOffsetsOfTheMomentOfActivation) {
  auto& playlist = P().Playlist();
  auto& library = P().MediaLibrary();
  RunEvent([&] { M().Activate(); });
  playlist.Left = playlist.Left + 30 * 15;  // moved since, by a program of its own
  Drag(M(), {{200, 150}, {250, 180}});
  EXPECT_EQ(Place(M()), std::pair(350, 280));
  EXPECT_EQ(Place(playlist), std::pair(350, 515)) << "docked below, as at the activation";
  EXPECT_EQ(Place(library), std::pair(756, 280));

  Drag(playlist, {{200, 0}});
  EXPECT_EQ(Place(library), std::pair(756, 280)) << "the playlist dragged carries nothing";

  RunEvent([&] { M().Deactivate(); });
  Drag(M(), {{-200, -200}});
  EXPECT_EQ(Place(M()), std::pair(150, 80));
  EXPECT_EQ(Place(playlist), std::pair(550, 515)) << "inactive, the player drags alone";
}

// The mini window docks from its load and lets go at its unload: a drag
// after it has gone must not look at it (the sanitizer would see that).
TEST_F(Docking, TheMiniWindowDocksWhileItIsLoaded) {
  P().Playlist().Hide();
  P().MediaLibrary().Hide();
  RunEvent(P().FormMeniuri().FullMiniMenu.Click);
  MiniForm* mini = P().LoadedMiniForm();
  ASSERT_NE(mini, nullptr);
  ASSERT_TRUE(mini->Moving) << "hooked at its load";
  Drag(*mini, {{-90, 0}});
  EXPECT_EQ(Place(*mini).first, 0) << "10 pixels from the work area's edge";
  RunEvent(P().FormMeniuri().FullMiniMenu.Click);
  ASSERT_EQ(P().LoadedMiniForm(), nullptr);
  RunEvent([&] { M().Deactivate(); });
  Drag(M(), {{0, -90}});
  EXPECT_EQ(Place(M()).second, 0) << "Main, where the mini window was, docks alone";
}

TEST_F(Docking, AWindowIsHookedOnceAndUnhookedGetsItsOwnHandlersBack) {
  UnSnapForm(M());
  ASSERT_FALSE(M().Moving) << "Main has no handler of its own";
  UnSnapForm(M());  // not hooked: ignored
  SnapForm(M());
  SnapForm(M());
  UnSnapForm(M());
  EXPECT_FALSE(M().Moving) << "hooked once only";
}

}  // namespace
}  // namespace yarvo
