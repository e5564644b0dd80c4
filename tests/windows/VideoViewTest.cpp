// The main window around a video: the three size modes, full screen and
// back, and the quiet seconds that hide the bars in full screen.

#include <gtest/gtest.h>

#include <algorithm>

#include "core/DataForm.h"
#include "core/form/Events.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "settings/Options.h"
#include "support/FakeMciService.h"
#include "support/ProgramFixture.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

class VideoView : public test::ProgramFixture {
 protected:
  void SetUp() override { Restart(test::SettingsWith({{56, "main"}, {53, "Full"}})); }
  Main& M() { return P().Main(); }
  // A loaded video of `width` by `height` pixels, as the director leaves it.
  void Load(int width, int height) {
    M().LbActualCy(0).Caption = std::to_string(height);
    M().LbActualCx(0).Caption = std::to_string(width);
    M().FrameVideo(0).Visible = true;
  }
  test::FakeMciService service;
};

TEST_F(VideoView, EachSizeModeFitsTheWindowAndThePictureItsOwnWay) {
  auto& main = M();
  auto& frame = main.FrameVideo(0);
  auto& options = P().Options();
  auto& menus = P().FormMeniuri();
  Load(320, 240);
  options.Option16.Value = true;
  EXPECT_EQ(frame.Width.get(), 4800);
  EXPECT_EQ(frame.Height.get(), 3600);
  EXPECT_EQ(main.Width.get(), 6250);
  EXPECT_EQ(main.Height.get(), 4300);
  EXPECT_FALSE(main.ResizeArea.Visible.get()) << "the window has the video's size";
  EXPECT_TRUE(menus.OriginalSizeMenu.Checked.get());
  EXPECT_FALSE(menus.StretchMenu.Checked.get());
  EXPECT_NE(std::find(service.sent.begin(), service.sent.end(), "put movie window at 1 1 320 240"),
            service.sent.end())
      << "the picture is put at 1, 1 in whole pixels";

  RunEvent([&] { menus.OriginalSize2Menu.Click(); });
  EXPECT_TRUE(options.Option17.Value.get());
  EXPECT_EQ(frame.Width.get(), 9600);
  EXPECT_EQ(frame.Height.get(), 7200);
  EXPECT_EQ(main.Width.get(), 11050);

  // Stretched, the picture follows the window the user sizes.
  RunEvent([&] { menus.StretchMenu.Click(); });
  EXPECT_TRUE(main.ResizeArea.Visible.get());
  main.Move(0, 0, 9000, 6000);
  EXPECT_EQ(frame.Width.get(), 7550);
  EXPECT_EQ(frame.Height.get(), 5300);
  EXPECT_EQ(frame.Top.get(), 370);

  // Too narrow a video for the window's least width: the window stays at it,
  // the picture keeps its own size.
  Load(100, 80);
  options.Option16.Value = true;
  EXPECT_EQ(frame.Width.get(), 1500);
  EXPECT_EQ(main.Width.get(), 6100);
  EXPECT_EQ(main.Height.get(), 3530);
}

TEST_F(VideoView, FullScreenCoversTheScreenAboveAllAndBackRestoresTheWindow) {
  auto& main = M();
  auto& store = P().DataForm();
  ClsMain director;
  RunEvent([&] { main.DblClick(); });
  EXPECT_EQ(store.FullScreenStat.get(), "False") << "no video, no full screen";

  Load(320, 240);
  main.Move(3000, 1500, 8000, 5000);
  const int seekLeft = main.SliderMoveMultimedia(0).Left;
  RunEvent([&] { main.FrameVideo(0).DblClick(); });  // on the picture
  ASSERT_EQ(store.FullScreenStat.get(), "True");
  EXPECT_EQ(main.Left.get(), -100);
  EXPECT_EQ(main.Top.get(), 0);
  EXPECT_EQ(main.Width.get(), 1920 * 15 + 200);
  EXPECT_EQ(main.Height.get(), 1080 * 15 + 100);
  EXPECT_TRUE(main.AlwaysOnTop.get());
  EXPECT_EQ(main.Region.get().radius, 1);
  EXPECT_EQ(main.FrameVideo(0).Top.get(), 600);
  EXPECT_EQ(main.FrameVideo(0).Width.get(), main.Width.get());
  EXPECT_FALSE(main.MinimizeButton.Visible.get());
  EXPECT_FALSE(main.RightFrame.Visible.get());
  EXPECT_EQ(main.SliderMoveMultimedia(0).Left.get(), seekLeft + 10);
  RunEvent(main.MinimizeButton.Click);
  EXPECT_EQ(main.WindowState.get(), WindowState::Normal) << "full screen does not minimize";

  RunEvent(main.CloseButton.Click);  // leaves full screen, does not close
  EXPECT_EQ(store.FullScreenStat.get(), "False");
  EXPECT_EQ(main.Left.get(), 3000);
  EXPECT_EQ(main.Top.get(), 1500);
  EXPECT_EQ(main.Width.get(), 8000);
  EXPECT_EQ(main.Height.get(), 5000);
  EXPECT_FALSE(main.AlwaysOnTop.get());
  EXPECT_EQ(main.Region.get().radius, 9);
  EXPECT_EQ(main.FrameVideo(0).Left.get(), 120);
  EXPECT_EQ(main.SliderMoveMultimedia(0).Left.get(), seekLeft);
  EXPECT_TRUE(main.MinimizeButton.Visible.get());
  EXPECT_FALSE(main.FullScreenTimer.Enabled.get());
}

TEST_F(VideoView, SixQuietSecondsInFullScreenHideTheBarsAndThePointerBringsThemBack) {
  auto& main = M();
  auto& seek = main.SliderMoveMultimedia(0);
  Load(320, 240);
  ClsMain().SwitchToFullScreen();
  clock.Advance(5000);
  EXPECT_TRUE(seek.Visible.get());
  RunEvent([&] { main.LabelVideo.MouseMove(MouseEvent{}); });  // counts as activity
  clock.Advance(5000);
  EXPECT_TRUE(seek.Visible.get());
  clock.Advance(1000);
  EXPECT_FALSE(seek.Visible.get());
  EXPECT_FALSE(main.Volum.Visible.get());
  EXPECT_EQ(main.FrameVideo(0).Top.get(), 0) << "the picture takes the whole screen";
  EXPECT_FALSE(main.FullScreenTimer.Enabled.get());

  RunEvent([&] { main.FrameVideo(0).MouseMove(MouseEvent{}); });
  EXPECT_FALSE(seek.Visible.get()) << "a move brings the bars at the next tick";
  clock.Advance(1000);
  EXPECT_TRUE(seek.Visible.get());
  EXPECT_EQ(main.FrameVideo(0).Top.get(), 600);
  clock.Advance(5000);
  ASSERT_FALSE(seek.Visible.get());
  MouseEvent click;
  click.button = MouseButton::Left;
  RunEvent([&] { main.FrameVideo(0).MouseUp(click); });
  EXPECT_TRUE(seek.Visible.get()) << "a click brings them at once";
  EXPECT_TRUE(main.Volum.Visible.get());
}

}  // namespace
}  // namespace yarvo
