// The mini window as a model: it stands in for Main and gives way to it,
// at the same place, by the menu, by its title band and for a video; its
// bars drive Main's, and its mirror overwrites them.

#include <gtest/gtest.h>

#include "core/DataForm.h"
#include "core/form/Events.h"
#include "director/Program.h"
#include "support/FakeMciService.h"
#include "support/ProgramFixture.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {
namespace {

class MiniMode : public test::ProgramFixture {
 protected:
  void SetUp() override {
    Restart(test::SettingsWith({{2, "3000"}, {3, "2000"}, {56, "mini"}, {53, "Small"}}));
  }
  Main& M() { return P().Main(); }
  MiniForm* Mini() { return P().LoadedMiniForm(); }
  std::string Mode() { return P().DataForm().MiniMode; }
  void FullMini() { RunEvent(P().FormMeniuri().FullMiniMenu.Click); }
  test::FakeMciService service;
};

TEST_F(MiniMode, AFreshProgramFolderStartsInTheMiniWindow) {
  Restart();
  ASSERT_NE(Mini(), nullptr);
  EXPECT_TRUE(Mini()->Visible.get());
  EXPECT_FALSE(M().Visible.get());
  EXPECT_EQ(Mode(), "True");
}

TEST_F(MiniMode, TheMenuSwitchesBothWaysAndEachWindowTakesTheOthersPlace) {
  ASSERT_NE(Mini(), nullptr);
  EXPECT_EQ(Mini()->Left.get(), 3000);
  EXPECT_EQ(Mini()->Top.get(), 2000);
  Mini()->Move(4500, 1500, Mini()->Width, Mini()->Height);
  FullMini();
  EXPECT_EQ(Mini(), nullptr) << "the mini window lives only in mini mode";
  EXPECT_TRUE(M().Visible.get());
  EXPECT_EQ(M().Left.get(), 4500);
  EXPECT_EQ(M().Top.get(), 1500);
  EXPECT_EQ(Mode(), "False");
  EXPECT_EQ(M().Height.get(), 2000) << "Main keeps its layout";

  M().Move(600, 900, M().Width, M().Height);
  FullMini();
  ASSERT_NE(Mini(), nullptr);
  EXPECT_FALSE(M().Visible.get());
  EXPECT_EQ(Mini()->Left.get(), 600);
  EXPECT_EQ(Mini()->Top.get(), 900);
  EXPECT_EQ(Mode(), "True");
}

TEST_F(MiniMode, AVideoTakesTheMainWindowAndItsEndBringsTheMiniWindowBack) {
  auto& menu = P().FormMeniuri().FullMiniMenu;
  Mini()->Move(4500, 1500, Mini()->Width, Mini()->Height);
  M().LbActualCx(0).Caption = "320";
  EXPECT_EQ(Mini(), nullptr);
  EXPECT_TRUE(M().Visible.get());
  EXPECT_EQ(M().Left.get(), 4500);
  EXPECT_EQ(Mode(), "False");
  EXPECT_FALSE(menu.Enabled.get()) << "no mini mode during the video";
  M().LbActualCx(0).Caption = "";
  EXPECT_EQ(M().LbActualCx(0).Caption.get(), "-1");
  ASSERT_NE(Mini(), nullptr);
  EXPECT_TRUE(Mini()->Visible.get());
  EXPECT_FALSE(M().Visible.get());
  EXPECT_EQ(Mini()->Left.get(), 4500);
  EXPECT_EQ(Mode(), "True");
  EXPECT_TRUE(menu.Enabled.get());

  // A video started in Main ends in Main.
  FullMini();
  M().LbActualCx(0).Caption = "320";
  M().LbActualCx(0).Caption = "-1";
  EXPECT_EQ(Mini(), nullptr);
  EXPECT_TRUE(M().Visible.get());

  // A minimized mini window is left alone by a new video.
  FullMini();
  Mini()->WindowState = WindowState::Minimized;
  M().LbActualCx(0).Caption = "320";
  EXPECT_NE(Mini(), nullptr);
  EXPECT_EQ(Mode(), "True");
}

TEST_F(MiniMode, WithAVideoLoadedTheMiniWindowGivesWayAsSoonAsItIsActive) {
  FullMini();
  M().LbActualCx(0).Caption = "320";
  FullMini();
  ASSERT_NE(Mini(), nullptr);
  Mini()->Move(4500, 1500, Mini()->Width, Mini()->Height);
  RunEvent(Mini()->Activate);
  EXPECT_EQ(Mini(), nullptr);
  EXPECT_TRUE(M().Visible.get());
  EXPECT_EQ(M().Left.get(), 4500);
  EXPECT_EQ(Mode(), "False");
}

TEST_F(MiniMode, TheTitleBandAndTheEqualizerMenuLeaveForTheFullLayout) {
  RunEvent(Mini()->LabelVideo.DblClick);
  EXPECT_EQ(Mini(), nullptr);
  EXPECT_EQ(P().DataForm().MainMode.get(), "Full");
  EXPECT_EQ(M().Height.get(), 3530);
  EXPECT_TRUE(M().Logo.Visible.get());

  FullMini();
  RunEvent(P().FormMeniuri().EqualizerMenu.Click);
  EXPECT_EQ(Mini(), nullptr);
  EXPECT_EQ(Mode(), "False");
  EXPECT_EQ(P().DataForm().MainMode.get(), "Full") << "the equalizer shows in the full layout";
  EXPECT_EQ(M().Height.get(), 3530);
}

TEST_F(MiniMode, TheMiniBarsDriveMainsAndTheMirrorSnapsThemBack) {
  auto& mini = *Mini();
  auto& main = M();
  mini.Volum.value = 30;
  RunEvent(mini.Volum.Change);  // as a click on the bar tells it
  EXPECT_EQ(static_cast<double>(main.Volum.value), 30);
  ASSERT_FALSE(service.sent.empty());
  EXPECT_EQ(service.sent.back(), "setaudio movie Volume to 300") << "the engine follows";

  main.TSec.Caption = "01:02";
  main.Titlu.Caption = "a title";
  main.SliderMoveMultimedia(0).max = 40;
  main.SliderMoveMultimedia(0).value = 10;
  mini.SliderMoveMultimedia(0).value = 25;  // a drag in progress
  clock.Advance(500);
  EXPECT_EQ(mini.TSec.Caption.get(), "01:02");
  EXPECT_EQ(mini.Titlu.Caption.get(), main.Titlu.Caption.get()) << "the title as it runs";
  EXPECT_EQ(mini.SliderMoveMultimedia(0).max.get(), 40);
  EXPECT_EQ(static_cast<double>(mini.SliderMoveMultimedia(0).value), 10);

  // A press on the mini seek bar holds Main's for a media file.
  mini.SliderMoveMultimedia(0).value = 20;
  mini.SliderMoveMultimedia(0).SetFocus();
  EXPECT_EQ(main.StartMoveSlider.Caption.get(), "True");
  EXPECT_EQ(static_cast<double>(main.SliderMoveMultimedia(0).value), 20);
}

TEST_F(MiniMode, CloseFromTheMiniWindowLeavesMainAtItsPlace) {
  Mini()->Move(4500, 1500, Mini()->Width, Mini()->Height);
  EXPECT_THROW(Mini()->MiniForm_CloseButton_Click(), ProcessEnd);
  EXPECT_EQ(M().Left.get(), 4500);
  EXPECT_EQ(M().Top.get(), 1500);
  const auto settings = test::ReadBytes(folder / "settings.ini");
  EXPECT_NE(settings.find("\r\nmini\r\n"), std::string::npos) << "the mini window is saved";
  EXPECT_NE(settings.find("\r\n4500\r\n1500\r\n"), std::string::npos);
}

}  // namespace
}  // namespace yarvo
