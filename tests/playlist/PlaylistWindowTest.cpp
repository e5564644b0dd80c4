// The playlist window as a model: a row dragged to a new place with its path,
// the 30-row page of its scroll bar, the menu of a right click, and its size
// limits and layout.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/DataForm.h"
#include "core/form/Events.h"
#include "playlist/Playlist.h"
#include "support/ProgramFixture.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;

class PlaylistWindow : public test::ProgramFixture {
 protected:
  void SetUp() override { Start(); }
  void Fill(const Strings& titles) {
    for (const auto& title : titles) {
      P().Playlist().PicList.AddItem(title);
      P().DataForm().ListaCale.AddItem("/m/" + title + ".mp3");
    }
  }
  // A pointer event at row `row` of the list, counted from the first shown.
  static MouseEvent AtRow(int row, MouseButton button = MouseButton::Left) {
    MouseEvent e;
    e.button = button;
    e.x = 300;
    e.y = (row * 13 + 6) * 15.0;
    return e;
  }
  void Drag(int from, int to) {
    auto& list = P().Playlist().PicList;
    RunEvent([&] { list.MouseMove(AtRow(from)); });
    RunEvent([&] { list.MouseMove(AtRow(to)); });
    RunEvent([&] { list.MouseUp(AtRow(to)); });
  }
};

TEST_F(PlaylistWindow, ARowDraggedToAnotherPlaceTakesItsPathAlong) {
  Fill({"a", "b", "c", "d", "e", "f"});
  auto& list = P().Playlist().PicList;
  Drag(2, 5);
  EXPECT_EQ(test::Rows(list), (Strings{"a", "b", "d", "e", "f", "c"}));
  EXPECT_EQ(test::Rows(P().DataForm().ListaCale).back(), "/m/c.mp3");
  EXPECT_EQ(list.ListIndex(), 5) << "the row dropped on is chosen";
  Drag(5, 2);
  EXPECT_EQ(test::Rows(list), (Strings{"a", "b", "c", "d", "e", "f"}));
  Drag(5, 2);
  EXPECT_EQ(test::Rows(list), (Strings{"a", "b", "f", "c", "d", "e"}));
  Drag(1, 15);
  EXPECT_EQ(test::Rows(list), (Strings{"a", "f", "c", "d", "e", "b"}))
      << "below the last row is the last row";
  EXPECT_EQ(test::Rows(P().DataForm().ListaCale),
            (Strings{"/m/a.mp3", "/m/f.mp3", "/m/c.mp3", "/m/d.mp3", "/m/e.mp3", "/m/b.mp3"}));
}

TEST_F(PlaylistWindow, TheScrollBarTakesThirtyRowsAsThePage) {
  auto& window = P().Playlist();
  auto& list = window.PicList;
  auto& bar = window.ScrollBar;
  Fill({"a", "b", "c"});
  bar.value = 2;
  RunEvent(bar.Change);
  EXPECT_EQ(list.TopIndex.get(), 0) << "fewer than 30 rows: shown whole";
  EXPECT_EQ(bar.max, -27.0);
  Strings many;
  for (int i = 0; i < 100; ++i) many.push_back("s" + std::to_string(i));
  Fill(many);
  bar.max = 73;
  bar.value = 40;
  RunEvent(bar.Change);
  EXPECT_EQ(list.TopIndex.get(), 40);
  bar.value = 73;
  RunEvent(bar.Change);
  EXPECT_EQ(list.TopIndex.get(), 103 - list.VisibleRows()) << "the end shows the last page";
  list.TopIndex = 12;
  clock.Advance(1000);
  EXPECT_EQ(bar.value, 12.0) << "the thumb follows within a second";
  EXPECT_EQ(window.ItemsLabel.Caption.get(), "Total items: 103");
}

TEST_F(PlaylistWindow, ARightClickChoosesTheRowUnderItAndPopsTheMenuUp) {
  Fill({"a", "b", "c"});
  auto& list = P().Playlist().PicList;
  RunEvent([&] { list.MouseUp(AtRow(1, MouseButton::Right)); });
  EXPECT_EQ(list.ListIndex(), 1);
  RunEvent([&] { list.MouseUp(AtRow(9, MouseButton::Right)); });
  EXPECT_EQ(list.ListIndex(), 1) << "below the last row nothing is chosen";
  ASSERT_EQ(desktop.popups.size(), 2u);
  EXPECT_EQ(desktop.popups[1].menu, "MeniuPlaylist");
}

TEST_F(PlaylistWindow, TheWindowKeepsItsLimitsAndLaysItselfOut) {
  auto& window = P().Playlist();
  window.Move(0, 0, 1000, 1000);
  EXPECT_EQ(window.Width.get(), 4000);
  EXPECT_EQ(window.Height.get(), 4530);
  EXPECT_TRUE(window.Enabled.get());
  window.Move(0, 0, 6000, 9000);
  EXPECT_EQ(window.PicList.Width.get(), 5820);
  EXPECT_EQ(window.PicList.Height.get(), 8150);
  EXPECT_EQ(window.ScrollBar.Left.get(), 5680);
  EXPECT_EQ(window.ScrollBar.Height.get(), 8280);
  EXPECT_EQ(window.ItemsLabel.Top.get(), 8650);
  EXPECT_EQ(window.CloseButton.Left.get(), 5180);
  EXPECT_EQ(window.ImgBottomRight.Left.get(), 4500);
  EXPECT_EQ(window.Region.get(), (WindowRegion{400, 600, 9}));
}

}  // namespace
}  // namespace yarvo
