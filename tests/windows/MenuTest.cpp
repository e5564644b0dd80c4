// The program's menus: the table of items, the check marks the options set,
// what the items do, and how one item is measured and drawn by hand.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/DataForm.h"
#include "core/form/Events.h"
#include "engines/FormPreset.h"
#include "playlist/JumpForm.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"
#include "windows/modUserMenus.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;

class Menus : public test::ProgramFixture {
 protected:
  void SetUp() override { Start(); }
  FormMeniuri& M() { return P().FormMeniuri(); }

  // The captions a popup of `menu` shows, as the drawing took them.
  Strings Shown(const Menu& menu) {
    Strings captions;
    for (const Menu* item : menu.Items()) {
      if (!item->Visible) continue;
      const clsUserMenus* entry = M().UserMenuOf(*item);
      captions.push_back(entry->umIsSeparator ? "-" : entry->umCaption);
    }
    return captions;
  }
  Strings Checked(std::initializer_list<const Menu*> items) {
    Strings on;
    for (const Menu* item : items)
      if (item->Checked) on.push_back(item->Name());
    return on;
  }
  Strings OrderChecks() {
    return Checked({&M().MeniuLaRand, &M().MeniuAleatoriu, &M().MeniuPreferinte, &M().ShuffleOfMenu,
                    &M().ShuffleOnMenu, &M().PlayTheBestMenu});
  }
};

TEST_F(Menus, EachMenuShowsItsItemsWithTheHiddenOnesLeftOut) {
  EXPECT_EQ(Shown(M().MainMenu1),
            (Strings{"Play file", "-", "File info", "-", "Close Yarvo Player"}))
      << "the CD item is hidden";
  EXPECT_EQ(Shown(M().MainMenu2),
            (Strings{"Settings", "Change skin", "Set language", "Keyboard shortcuts",
                     "File association", "Show / hide", "-", "Full / Mini mode"}));
  EXPECT_EQ(Shown(M().ShowMenu), (Strings{"Playlist", "Top 20", "ID3 info", "Equalizer"}))
      << "the media library item is hidden";
  EXPECT_EQ(Shown(M().PresetMenu), (Strings{"Load", "Save", "Delete"}));
  EXPECT_EQ(Shown(M().SysTrayMenu), (Strings{"Play", "Pause", "Stop", "Back", "Next", "-",
                                             "Open file", "Jump", "-", "Close"}));
  EXPECT_EQ(Shown(M().MeniuMelodie), (Strings{"Shuffle on", "Shuffle off", "Play the best"}));
  EXPECT_EQ(MenuIcon(M().MeniuPlayPl), 16);
  EXPECT_EQ(MenuIcon(M().StretchMenu), 0) << "no tag, no picture";
  // Every item of every menu is collected once, with its menu object.
  EXPECT_EQ(M().UserMenus().size(),
            static_cast<std::size_t>(std::count_if(
                M().Controls().begin(), M().Controls().end(),
                [](const Control* c) { return dynamic_cast<const Menu*>(c) != nullptr; })));
}

TEST_F(Menus, TheChecksFollowTheOrderAndVideoOptionsAtEachSetMenuStuff) {
  EXPECT_EQ(OrderChecks(), (Strings{"MeniuLaRand", "ShuffleOfMenu"})) << "in list order at start";
  EXPECT_EQ(Checked({&M().StretchMenu, &M().OriginalSizeMenu, &M().OriginalSize2Menu}),
            Strings{"StretchMenu"});
  P().Options().Option3.Value = true;
  P().Options().Option17.Value = true;
  EXPECT_EQ(OrderChecks(), (Strings{"MeniuLaRand", "ShuffleOfMenu"}))
      << "the checks move at SetMenuStuff only";
  M().SetMenuStuff();
  EXPECT_EQ(OrderChecks(), (Strings{"MeniuPreferinte", "PlayTheBestMenu"}));
  EXPECT_EQ(Checked({&M().StretchMenu, &M().OriginalSizeMenu, &M().OriginalSize2Menu}),
            Strings{"OriginalSize2Menu"});
  // An order item sets its option and moves the checks itself.
  RunEvent(M().ShuffleOnMenu.Click);
  EXPECT_TRUE(P().Options().Option2.Value.get());
  EXPECT_EQ(OrderChecks(), (Strings{"MeniuAleatoriu", "ShuffleOnMenu"}));
}

TEST_F(Menus, CaptionsAreTakenWhenTheMenusAreInstalled) {
  M().MainOpenFile.Caption = "Open\tCtrl+O";
  M().MainCloseYarvo.Caption = std::string(100, 'x');
  EXPECT_EQ(M().UserMenuOf(M().MainOpenFile)->umCaption, "Play file") << "a copy";
  M().SetMenuStuff();
  EXPECT_EQ(M().UserMenuOf(M().MainOpenFile)->umCaption, "Open");
  EXPECT_EQ(M().UserMenuOf(M().MainOpenFile)->umShortcut, "Ctrl+O");
  EXPECT_EQ(M().UserMenuOf(M().MainCloseYarvo)->umCaption, std::string(80, 'x'));
}

TEST_F(Menus, ItemsDoWhatTheirCaptionsSay) {
  auto& store = P().DataForm();
  auto& playlist = P().Playlist();
  for (const char* path : {"/m/a.mp3", "/m/b.mp3"}) store.ListaCale.AddItem(path);
  for (const char* title : {"a", "b"}) playlist.PicList.AddItem(title);
  playlist.PicList.SetListIndex(1);
  RunEvent(M().MeniuProgrameaza.Click);
  EXPECT_EQ(test::Rows(store.ListaProgramate), Strings{"b"}) << "queued by its title";
  RunEvent(M().SearchInPlMenu.Click);
  EXPECT_TRUE(P().JumpForm().Visible.get());
  const bool shown = playlist.Visible;
  RunEvent(M().ShowPlaylistMenu.Click);
  EXPECT_NE(playlist.Visible.get(), shown);
  EXPECT_EQ(store.PlaylistON.get(), playlist.Visible ? "1" : "0");
  RunEvent(M().SavePreset.Click);
  ASSERT_NE(P().LoadedFormPreset(), nullptr);
  EXPECT_TRUE(P().LoadedFormPreset()->NumePreset.Visible.get()) << "the save mode";
  RunEvent(M().MenuClearPlaylist.Click);
  EXPECT_EQ(playlist.PicList.ListCount(), 0);
  EXPECT_EQ(store.ListaCale.ListCount(), 0);
}

TEST_F(Menus, TheMenuBarPopsItsMenusUpUnderItsCaptions) {
  auto& main = P().Main();
  RunEvent([&] { main.Label3.MouseUp(MouseEvent{}); });
  RunEvent([&] { main.Meniu1.MouseUp(MouseEvent{}); });
  desktop.choose.push_back("ShowPlaylistMenu");
  const bool shown = P().Playlist().Visible;
  RunEvent([&] { main.Label4.MouseUp(MouseEvent{}); });
  ASSERT_EQ(desktop.popups.size(), 3u);
  EXPECT_EQ(desktop.popups[0].menu, "MainMenu2");
  EXPECT_EQ(desktop.popups[0].x, 1100);
  EXPECT_EQ(desktop.popups[0].y, 300);
  EXPECT_EQ(desktop.popups[1].menu, "MainMenu1");
  EXPECT_EQ(desktop.popups[1].x, 250);
  EXPECT_EQ(desktop.popups[2].menu, "MainMenu3");
  EXPECT_EQ(desktop.popups[2].x, 2050);
  EXPECT_EQ(P().Playlist().Visible.get(), shown) << "not an item of that menu";
  desktop.choose.push_back("ShowPlaylistMenu");
  RunEvent([&] { main.Meniu2.MouseUp(MouseEvent{}); });
  EXPECT_NE(P().Playlist().Visible.get(), shown) << "chosen in the submenu of Options";
}

// Measuring and drawing one item, in pixels: text 13 high, 7 a letter.
class MenuDrawing : public ::testing::Test {
 protected:
  static PixelSize Extent(const std::string& text) {
    return {7 * static_cast<int>(text.size()), 13};
  }
  static clsUserMenus Item(const std::string& caption, const std::string& shortcut = {}) {
    clsUserMenus item;
    item.umCaption = caption;
    item.umShortcut = shortcut;
    item.umIsSeparator = caption.empty();
    return item;
  }
  static std::vector<MenuPaint> Draw(const clsUserMenus& item, MenuItemState state, int icon) {
    return DrawMenuItem(item, state, {0, 44, 150, 66}, icon);
  }
  static int Count(const std::vector<MenuPaint>& paints, MenuPaint::Kind kind) {
    return static_cast<int>(std::count_if(paints.begin(), paints.end(),
                                          [&](const MenuPaint& p) { return p.kind == kind; }));
  }
};

TEST_F(MenuDrawing, ItemsMeasureByTheirTextsAndSeparatorsAreFivePixelsHigh) {
  const PixelSize plain = MeasureMenuItem(Item("Play"), Extent);
  EXPECT_EQ(plain.width, 28 + 40);
  EXPECT_EQ(plain.height, 13 + 9);
  EXPECT_EQ(MeasureMenuItem(Item("Play", "Ctrl+P"), Extent).width, 28 + 40 + 42 + 30);
  EXPECT_EQ(MeasureMenuItem(Item(""), Extent).height, 5);
}

TEST_F(MenuDrawing, EachStateHasItsFillsTextsAndIcons) {
  // A separator: panel, strip, and two lines of one pixel.
  const auto separator = Draw(Item(""), {}, 0);
  ASSERT_EQ(separator.size(), 4u);
  EXPECT_EQ(separator[2].rect.top, 46);
  EXPECT_EQ(separator[3].colour, 0xFDFDFDu);

  // A shortcut stands at the right with four blanks of margin; the caption
  // 30 pixels in.
  const auto plain = Draw(Item("Play", "Ctrl+P"), {}, 16);
  const auto texts = std::count_if(plain.begin(), plain.end(), [](const MenuPaint& p) {
    return p.kind == MenuPaint::Kind::Text;
  });
  ASSERT_EQ(texts, 2);
  auto text = std::find_if(plain.begin(), plain.end(),
                           [](const MenuPaint& p) { return p.kind == MenuPaint::Kind::Text; });
  EXPECT_EQ(text->text, "Ctrl+P    ");
  EXPECT_TRUE(text->alignRight);
  EXPECT_EQ((text + 1)->rect.left, 30);
  EXPECT_EQ(plain.back().at.width, 4);
  EXPECT_EQ(plain.back().at.height, 47);

  // Selected: the frame colour around the selection, the icon lifted over
  // its shadow.
  const auto selected = Draw(Item("Play"), {true, false, false}, 16);
  EXPECT_EQ(selected[0].colour, 0xC56A31u);
  EXPECT_EQ(selected[1].colour, 0xEED2C1u);
  EXPECT_EQ(Count(selected, MenuPaint::Kind::IconShadow), 1);
  EXPECT_EQ(selected.back().at.width, 3);

  // Checked with a picture: the box in the strip, the picture in it.
  const auto checked = Draw(Item("Shuffle on"), {false, false, true}, 27);
  EXPECT_EQ(checked[1].rect.right, 23);
  EXPECT_EQ(checked[1].colour, 0xC56A31u);
  EXPECT_EQ(Count(checked, MenuPaint::Kind::Icon), 1);

  // Disabled: embossed texts, only the icon's shadow.
  const auto disabled = Draw(Item("Jump"), {true, true, false}, 5);
  EXPECT_EQ(Count(disabled, MenuPaint::Kind::Text), 2);
  EXPECT_EQ(Count(disabled, MenuPaint::Kind::Icon), 0);
  EXPECT_EQ(Count(disabled, MenuPaint::Kind::IconShadow), 1);
  EXPECT_EQ(Count(Draw(Item("Jump"), {}, 0), MenuPaint::Kind::Icon), 0) << "no picture";
}

}  // namespace
}  // namespace yarvo
