// The skin loader: skin.ini read by position, the colour names, and the
// bitmaps poured into the windows, at start and when the user picks a skin.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/DataForm.h"
#include "core/form/Events.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {
namespace {

const std::vector<std::string> kBitmaps = {"main.jpg",
                                           "main-mini.jpg",
                                           "menu-normal.bmp",
                                           "menu-hover.bmp",
                                           "minimize-normal.bmp",
                                           "minimize-hover.bmp",
                                           "close-normal.bmp",
                                           "close-hover.bmp",
                                           "button.bmp",
                                           "button-focus.bmp",
                                           "top-left.bmp",
                                           "top.bmp",
                                           "top-right.bmp",
                                           "right.bmp",
                                           "bottom-right.bmp",
                                           "bottom.bmp",
                                           "bottom-left.bmp",
                                           "left.bmp",
                                           "logo.bmp",
                                           "vol-pic.bmp",
                                           "h-scrollbar-background.bmp",
                                           "h-scrollbar-right.bmp",
                                           "h-scrollbar-left.bmp",
                                           "h-scrollbar-thumb.bmp",
                                           "h-scrollbar-thumb-focus.bmp",
                                           "v-scrollbar-background.bmp",
                                           "v-scrollbar-down.bmp",
                                           "v-scrollbar-up.bmp",
                                           "v-scrollbar-thumb.bmp",
                                           "v-scrollbar-thumb-focus.bmp",
                                           "playlist-thumb.bmp",
                                           "playlist-thumb-focus.bmp",
                                           "yarvoplayer.bmp",
                                           "controls-background.bmp",
                                           "play-hover.bmp",
                                           "pause-hover.bmp",
                                           "stop-hover.bmp",
                                           "next-hover.bmp",
                                           "back-hover.bmp",
                                           "play-mousedown.bmp",
                                           "pause-mousedown.bmp",
                                           "stop-mousedown.bmp",
                                           "next-mousedown.bmp",
                                           "back-mousedown.bmp",
                                           "button1.bmp",
                                           "button2.bmp",
                                           "button3.bmp",
                                           "button4.bmp",
                                           "button5.bmp",
                                           "button6.bmp",
                                           "button1f.bmp",
                                           "button2f.bmp",
                                           "button3f.bmp",
                                           "button4f.bmp",
                                           "button5f.bmp",
                                           "button6f.bmp",
                                           "button1b.bmp",
                                           "button2b.bmp",
                                           "button3b.bmp",
                                           "button4b.bmp",
                                           "button5b.bmp",
                                           "button6b.bmp"};

std::string Lines(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  return bytes;
}

const std::vector<std::string> kPlainSkin = {
    "name=Test",  "menu=white",    "display=cyan", "facts=yellow", "buttons=black",
    "rows=black", "rowtext=white", "r=0",          "g=0",          "b=0",
    "x",          "gs=1.5",        "bs=0.5",       "bgr=10",       "bgg=20",
    "bgb=30",     "hide=false"};

class SkinLoader : public test::ProgramFixture {
 protected:
  void WriteSkin(const std::string& name, const std::vector<std::string>& ini,
                 const std::vector<std::string>& bitmaps = kBitmaps) {
    const auto dir = folder / ("Skins/" + name);
    if (!ini.empty()) test::WriteBytes(dir / "skin.ini", Lines(ini));
    for (const auto& bitmap : bitmaps) test::WriteBytes(dir / bitmap, "BM");
  }
  // Starts with a settings.ini that names the skin in force (line 20) and
  // the window shown (line 56).
  Program& StartWith(const std::string& skin, const std::string& window = "main") {
    std::vector<std::string> lines(72);
    lines[20] = skin;
    lines[56] = window;
    return Restart(Lines(lines));
  }
  // The file a picture came from.
  template <class Holder>
  std::string From(const Holder& picture) {
    return picture.get().Source();
  }
  std::string SkinPath(const std::string& skin, const std::string& file) {
    return folder / ("Skins/" + skin + "/" + file);
  }
};

TEST_F(SkinLoader, LinesAreReadByPlaceAndTheirValueIsWhatFollowsTheLastEquals) {
  auto ini = kPlainSkin;
  ini[1] = "menu=text=white";  // two "=": the text behind the second
  ini[2] = "yellow";           // no "=": the whole line
  ini[3] = "facts=Cyan";       // no colour name: the line before's colour stays
  ini[16] = "hide= true";      // a leading blank: not "true"
  WriteSkin("Default", ini);
  StartWith("Default");
  auto& main = P().Main();
  auto& playlist = P().Playlist();
  EXPECT_EQ(main.Label1.ForeColor.get(), 0xFFFFFFu);
  EXPECT_EQ(playlist.Label3.ForeColor.get(), 0xFFFFFFu);
  EXPECT_EQ(playlist.ItemsLabel.ForeColor.get(), 0xFFFFFFu);
  EXPECT_EQ(main.TSec.ForeColor.get(), 0x00FFFFu) << "yellow is 0x00BBGGRR 00 FF FF";
  EXPECT_EQ(main.labSize.ForeColor.get(), 0x00FFFFu) << "Cyan is no name";
  EXPECT_EQ(main.ResizeArea.ForeColor.get(), 0x00FFFFu);
  EXPECT_EQ(main.InfoLabel.ForeColor.get(), 0x000000u);
  EXPECT_EQ(playlist.PicList.BackColor.get(), 0x000000u);
  EXPECT_EQ(playlist.PicList.ForeColor.get(), 0xFFFFFFu);
  EXPECT_EQ(main.BackColor.get(), 0x1E140Au) << "red 10, green 20, blue 30";
  EXPECT_EQ(main.MainFrame(1).BackColor.get(), 0x1E140Au);
  EXPECT_EQ(playlist.FrameScroll.BackColor.get(), 0x1E140Au);
  EXPECT_TRUE(playlist.ScrollBar.Visible.get());
  EXPECT_EQ(P().DataForm().SkinValues.Items()[1], "white");

  ini[16] = "hide=true";
  ini[5] = "rows=gray";
  WriteSkin("Default", ini, {});
  StartWith("Default");
  EXPECT_FALSE(P().Playlist().ScrollBar.Visible.get());
  EXPECT_FALSE(P().Playlist().FrameScroll.Visible.get());
  EXPECT_EQ(P().Playlist().PicList.BackColor.get(), 0x8000000Fu) << "the button face";
}

TEST_F(SkinLoader, AFolderWithoutSkinIniIsBlackAndEveryFileFeedsItsTargets) {
  WriteSkin("Bare", {});
  StartWith("Bare");
  auto& main = P().Main();
  auto& store = P().DataForm();
  EXPECT_EQ(main.BackColor.get(), 0u);
  EXPECT_EQ(main.Label1.ForeColor.get(), 0u);
  EXPECT_EQ(From(main.Image1.Picture), SkinPath("Bare", "main.jpg"));
  EXPECT_EQ(From(main.Meniu2.Picture), SkinPath("Bare", "menu-normal.bmp"));
  EXPECT_EQ(From(store.MeniuHover), SkinPath("Bare", "menu-hover.bmp"));
  EXPECT_EQ(From(P().MediaLibrary().ImgBottomRight.Picture), SkinPath("Bare", "bottom-right.bmp"));
  EXPECT_EQ(From(main.sldEQR(10).ThumbButtonDown), SkinPath("Bare", "v-scrollbar-thumb-focus.bmp"));
  EXPECT_EQ(From(P().Playlist().ScrollBar.ThumbButtonNormal),
            SkinPath("Bare", "playlist-thumb.bmp"));
  EXPECT_EQ(From(main.SliderMoveMultimedia(0).DownButtonHover),
            SkinPath("Bare", "h-scrollbar-right.bmp"));
  EXPECT_EQ(From(store.ImgButton4), SkinPath("Bare", "button4.bmp"));
  EXPECT_EQ(From(store.ImgButton6b), SkinPath("Bare", "button6b.bmp"));
  EXPECT_EQ(From(main.Visualisation.Picture), SkinPath("Bare", "yarvoplayer.bmp"));
  EXPECT_EQ(From(P().Options().CloseButton.Picture), SkinPath("Bare", "close-normal.bmp"));
  EXPECT_EQ(main.MainFrame(1).Width.get(), main.Image1.Width.get())
      << "the panel takes the width of its picture";
}

// A pick in the options' list of skins shows at once on the main window, the
// playlist, the library and the options, and reaches the transport buttons
// within about a second; the mini window keeps what it loaded.
TEST_F(SkinLoader, APickedSkinReachesEveryWindowButTheMiniWindow) {
  WriteSkin("Default", kPlainSkin);
  auto light = kPlainSkin;
  light[2] = "display=black";
  // A skin may leave files out: those targets keep the picture they had.
  std::vector<std::string> partial;
  for (const auto& bitmap : kBitmaps)
    if (bitmap != "logo.bmp" && bitmap != "button3f.bmp") partial.push_back(bitmap);
  WriteSkin("Light", light, partial);
  StartWith("Default", "mini");
  clock.Advance(1500);  // the transport buttons fetch their pictures
  auto& main = P().Main();
  ASSERT_NE(P().LoadedMiniForm(), nullptr);
  EXPECT_EQ(From(main.Butoane1.Background), SkinPath("Default", "controls-background.bmp"));

  auto& chooser = P().Options().SkinSelector;
  ASSERT_EQ(test::Rows(chooser), (std::vector<std::string>{"Default", "Light"}));
  MouseEvent press;
  press.button = MouseButton::Left;
  press.y = chooser.RowHeight() * 15 * 1 + 15;  // the second row
  RunEvent([&] { chooser.MouseDown(press); });
  RunEvent([&] { chooser.MouseUp(press); });
  EXPECT_EQ(P().Options().SkinName.Text.get(), "Light");
  EXPECT_TRUE(chooser.Ticked(1));
  EXPECT_FALSE(chooser.Ticked(0));
  EXPECT_EQ(main.TSec.ForeColor.get(), 0u);
  EXPECT_EQ(From(main.Image1.Picture), SkinPath("Light", "main.jpg"));
  EXPECT_EQ(From(P().Playlist().ImgLeft.Picture), SkinPath("Light", "left.bmp"));
  EXPECT_EQ(From(P().MediaLibrary().CloseButton.Picture), SkinPath("Light", "close-normal.bmp"));
  EXPECT_EQ(From(P().Options().CloseButton.Picture), SkinPath("Light", "close-normal.bmp"));
  EXPECT_EQ(From(main.Logo.Picture), SkinPath("Default", "logo.bmp")) << "no file, no change";
  EXPECT_EQ(From(P().DataForm().ImgButton3Hover), SkinPath("Default", "button3f.bmp"));
  EXPECT_EQ(From(P().LoadedMiniForm()->ImgTopLeft.Picture), SkinPath("Default", "top-left.bmp"));
  EXPECT_EQ(From(main.Butoane1.Background), SkinPath("Default", "controls-background.bmp"));
  clock.Advance(1500);
  EXPECT_EQ(From(main.Butoane1.Background), SkinPath("Light", "controls-background.bmp"));
  EXPECT_EQ(From(P().LoadedMiniForm()->Butoane1.PlayFocus.Picture),
            SkinPath("Light", "play-hover.bmp"));
}

}  // namespace
}  // namespace yarvo
