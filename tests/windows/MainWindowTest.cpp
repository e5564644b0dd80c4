// The main window as a model: its edges follow its size within its limits in
// both layouts, its elements light up under the pointer and reset their
// neighbours, its buttons and title bar do what they say, and the play
// button's three cases.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/DataForm.h"
#include "core/form/Events.h"
#include "director/Program.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

// A picture that tells its name.
Picture Named(const std::string& name) { return Picture(std::make_shared<const Image>(), name); }

class MainWindow : public test::ProgramFixture {
 protected:
  void SetUp() override {
    Restart(
        test::SettingsWith({{56, "main"}, {53, "Full"}, {16, "Playlist=True"}, {20, "Default"}}));
    auto& store = P().DataForm();
    for (auto [slot, name] : {std::pair{&store.MeniuNormal, "plate"},
                              {&store.MeniuHover, "plate lit"},
                              {&store.MinimizeNormal, "minimize"},
                              {&store.MinimizeFocus, "minimize lit"},
                              {&store.CloseNormal, "close"},
                              {&store.CloseFocus, "close lit"},
                              {&store.ImgButton, "info plate"},
                              {&store.ImgButtonFocus, "info plate lit"}})
      *slot = Named(name);
    Property<Picture>* plain[] = {&store.ImgButton1, &store.ImgButton2, &store.ImgButton3,
                                  &store.ImgButton4, &store.ImgButton5, &store.ImgButton6};
    Property<Picture>* lit[] = {&store.ImgButton1Hover, &store.ImgButton2Hover,
                                &store.ImgButton3Hover, &store.ImgButton4Hover,
                                &store.ImgButton5Hover, &store.ImgButton6Hover};
    Property<Picture>* second[] = {&store.ImgButton1b, &store.ImgButton2b, &store.ImgButton3b,
                                   &store.ImgButton4b, &store.ImgButton5b, &store.ImgButton6b};
    for (int i = 0; i < 6; ++i) {
      const std::string n = std::to_string(i + 1);
      *plain[i] = Named(n);
      *lit[i] = Named(n + " lit");
      *second[i] = Named(n + "b");
    }
  }
  Main& M() { return P().Main(); }
  static std::string Shows(const PictureBox& box) { return box.Picture.get().Source(); }
  void Move(Control& control) {
    RunEvent([&] { control.MouseMove(MouseEvent{}); });
  }
};

TEST_F(MainWindow, TheEdgesFollowTheSizeWithinTheLimitsOfEachLayout) {
  auto& main = M();
  main.Move(0, 0, 9000, 5000);
  EXPECT_EQ(main.RightFrame.Left.get(), 7800);
  EXPECT_EQ(main.Logo.Left.get(), 7900);
  EXPECT_EQ(main.Logo.Top.get(), 4350);
  EXPECT_EQ(main.ImgRight.Left.get(), 8820);
  EXPECT_EQ(main.ImgLeft.Height.get(), 4700);
  EXPECT_EQ(main.ImgTopCenter.Width.get(), 6200);
  EXPECT_EQ(main.ImgBottomRight.Left.get(), 7500);
  EXPECT_EQ(main.ImgBottomCenter.Top.get(), 4820);
  EXPECT_EQ(main.MinimizeButton.Left.get(), 7850);
  EXPECT_EQ(main.CloseButton.Left.get(), 8250);
  EXPECT_EQ(main.Volum.Top.get(), 4680);
  EXPECT_EQ(main.SliderMoveMultimedia(0).Top.get(), 4680);
  EXPECT_EQ(main.ImagineVolum.Top.get(), 4730);
  EXPECT_EQ(main.ResizeArea.Left.get(), 8805);
  EXPECT_EQ(main.Region.get(), (WindowRegion{600, 333, 9})) << "rounded at every resize";

  main.Move(0, 0, 1000, 1000);
  EXPECT_EQ(main.Width.get(), 6100);
  EXPECT_EQ(main.Height.get(), 3530) << "the full layout";
  RunEvent([&] { main.ImgTopRight.DblClick(); });
  EXPECT_EQ(P().DataForm().MainMode.get(), "Small");
  EXPECT_EQ(main.Height.get(), 2000);
  EXPECT_FALSE(main.Logo.Visible.get());
  main.Move(0, 0, 1000, 1000);
  EXPECT_EQ(main.Height.get(), 2000) << "the small layout with no video";
  main.LbActualCx(0).Caption = "320";
  main.Move(0, 0, 1000, 1000);
  EXPECT_EQ(main.Height.get(), 3530) << "a video needs the full height";
  RunEvent([&] { main.ImgTopRight.DblClick(); });
  EXPECT_EQ(P().DataForm().MainMode.get(), "Small") << "no change of layout during a video";
}

TEST_F(MainWindow, AnElementUnderThePointerLightsAndItsNeighboursRest) {
  auto& main = M();
  Move(main.Label3);
  EXPECT_EQ(Shows(main.Meniu2), "plate lit");
  EXPECT_EQ(Shows(main.Meniu1), "plate");
  Move(main.Meniu3);
  EXPECT_EQ(Shows(main.Meniu3), "plate lit");
  EXPECT_EQ(Shows(main.Meniu2), "plate");
  Move(main.MinimizeButton);
  EXPECT_EQ(Shows(main.MinimizeButton), "minimize lit");
  Move(main.CloseButton);
  EXPECT_EQ(Shows(main.CloseButton), "close lit");
  EXPECT_EQ(Shows(main.MinimizeButton), "minimize");
  Move(main.PlaylistLabel);
  EXPECT_EQ(Shows(main.Image4), "info plate lit");
  EXPECT_EQ(Shows(main.Image3), "info plate");
  Move(main.RightFrame);
  EXPECT_EQ(Shows(main.Image4), "info plate");

  // The small buttons rest by their state: the playlist shows, the library
  // and the equalizer's off state do not.
  P().Options().Option13.Value = true;
  Move(main.ImgButton4);
  EXPECT_EQ(Shows(main.ImgButton4), "4 lit");
  EXPECT_EQ(Shows(main.ImgButton5), "5b");
  Move(main.ImgButton3);
  EXPECT_EQ(Shows(main.ImgButton3), "3 lit");
  EXPECT_EQ(Shows(main.ImgButton2), "2b");
  Move(main.Image1);
  EXPECT_EQ(Shows(main.ImgButton3), "3");
  EXPECT_EQ(Shows(main.ImgButton4), "4");
  main.MousePointer = 8;
  RunEvent([&] { main.MouseMove(MouseEvent{}); });
  EXPECT_EQ(main.MousePointer.get(), 0) << "the bare window: the arrow again";
  EXPECT_EQ(Shows(main.CloseButton), "close");
}

TEST_F(MainWindow, ButtonsAndTheTitleBarDoWhatTheySay) {
  auto& main = M();
  auto& playlist = P().Playlist();
  for (const char* name : {"button4.bmp", "button4b.bmp"})
    test::WriteBytes(folder / "Skins/Default" / name, "BM");
  ASSERT_TRUE(playlist.Visible.get());
  RunEvent(main.ImgButton4.Click);
  EXPECT_FALSE(playlist.Visible.get());
  EXPECT_EQ(P().DataForm().PlaylistON.get(), "0");
  EXPECT_EQ(Shows(main.ImgButton4), folder / "Skins/Default/button4b.bmp");
  RunEvent(main.PlaylistLabel.Click);
  EXPECT_TRUE(playlist.Visible.get());
  RunEvent(main.ImgButton3.Click);
  ASSERT_EQ(desktop.popups.size(), 1u);
  EXPECT_EQ(desktop.popups[0].menu, "PresetMenu");
  RunEvent(main.InfoLabel.Click);
  EXPECT_TRUE(P().MediaLibrary().Visible.get());
  EXPECT_TRUE(P().MediaLibrary().FrameTop10.Visible.get()) << "on the ranking page";
  RunEvent(main.Image3.Click);
  EXPECT_FALSE(P().MediaLibrary().Visible.get()) << "the plate hides it again";

  // A right click on the bare window pops the video menu up, but only
  // while a video shows.
  MouseEvent right;
  right.button = MouseButton::Right;
  RunEvent([&] { main.MouseUp(right); });
  EXPECT_EQ(desktop.popups.size(), 1u);
  main.FrameVideo(0).Visible = true;
  RunEvent([&] { main.MouseUp(right); });
  ASSERT_EQ(desktop.popups.size(), 2u);
  EXPECT_EQ(desktop.popups[1].menu, "VideoMenu");

  RunEvent(main.MinimizeButton.Click);
  EXPECT_EQ(main.WindowState.get(), WindowState::Minimized);
  EXPECT_EQ(P().DataForm().PlaylistON.get(), "1") << "the playlist showed";
  EXPECT_FALSE(playlist.Visible.get());
  EXPECT_EQ(main.Caption.get(), "Yarvo Player        ");
  EXPECT_FALSE(main.FixImages.Enabled.get());
  main.WindowState = WindowState::Normal;
  clock.Advance(100);
  EXPECT_TRUE(playlist.Visible.get()) << "FixWindows brings the playlist back";
  EXPECT_EQ(main.Caption.get(), "Yarvo Player");
}

// Play while playing pauses, with no pressed look; with a state word it plays;
// with none it asks for a file.
TEST_F(MainWindow, ThePlayButtonsThreeCases) {
  auto& buttons = M().Butoane1;
  MouseEvent onPlay;
  onPlay.button = MouseButton::Left;
  onPlay.x = 400;
  onPlay.y = 400;
  M().StarePlayer.Caption = "";
  RunEvent([&] { buttons.MouseDown(onPlay); });
  EXPECT_EQ(desktop.fileRequests.size(), 1u) << "nothing loaded: the file dialog";
  EXPECT_EQ(buttons.PlayPressed.Top.get(), 240) << "pressed";
  RunEvent([&] { buttons.MouseUp(onPlay); });
  EXPECT_EQ(buttons.PlayPressed.Top.get(), 1000) << "let go";

  const std::string song = "/m/song.mp3";
  bass.AddFile(song, 60);
  P().DataForm().ListaCale.AddItem(song);
  P().Playlist().PicList.AddItem("song");
  P().DataForm().ListaCale.Selected(0);
  M().StarePlayer.Caption = "Stopped";
  RunEvent([&] { buttons.MouseDown(onPlay); });
  EXPECT_EQ(bass.PlayingFile(), song);
  RunEvent([&] { buttons.MouseUp(onPlay); });

  M().StarePlayer.Caption = "Playing";
  RunEvent([&] { buttons.MouseDown(onPlay); });
  EXPECT_EQ(M().StarePlayer.Caption.get(), "Paused");
  EXPECT_EQ(buttons.PlayPressed.Top.get(), 1000) << "no pressed look for a pause";
  EXPECT_EQ(desktop.fileRequests.size(), 1u);
}

}  // namespace
}  // namespace yarvo
