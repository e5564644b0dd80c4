// The window around a video: its size, full screen, and the two layouts.

#include <cmath>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "core/form/Twips.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/media/MCore.h"
#include "platform/Desktop.h"
#include "windows/Main.h"
#include "windows/mdlSmooth.h"

namespace yarvo {

namespace {

bool VideoLoaded() {
  const std::string& cx = program().Main().LbActualCx(0).Caption;
  return cx != "-1" && !cx.empty();
}

// The "Full" and "Small" columns of the main window's layout.
void ApplyLayout(bool full) {
  auto& main = program().Main();
  ResumeNext([&] {
    main.Width = 6100;
    main.Height = full ? 3530 : 2000;
  });
  for (Control* part :
       {static_cast<Control*>(&main.Image3), static_cast<Control*>(&main.Image4),
        static_cast<Control*>(&main.InfoLabel), static_cast<Control*>(&main.PlaylistLabel),
        static_cast<Control*>(&main.Logo)}) {
    part->Visible = full;
  }
  main.RightFrame.Height = full ? 2295 : 1260;
  ResumeNext([&] { main.MainFrame(1).Height = full ? 2900 : 1300; });
  main.Logo.Top = main.Height - 650;
}

}  // namespace

void ClsMain::ResizeTheVideo() {
  auto& main = program().Main();
  auto& frame = main.FrameVideo(0);
  const auto w = static_cast<std::int32_t>(std::lround(frame.Width / double(kTwipsPerPixel)));
  const auto h = static_cast<std::int32_t>(std::lround(frame.Height / double(kTwipsPerPixel)));
  const std::string result = MciPutWindow(frame.hWnd, mciAlias, 1, 1, w, h);
  ShowMciResult(result);
  if (result == "Success") {
    main.LbCurrentCx(0).Caption = std::to_string(MciWhereDestination(mciAlias, "cx"));
    main.LbCurrentCy(0).Caption = std::to_string(MciWhereDestination(mciAlias, "cy"));
  }
}

void ClsMain::SwitchToFullScreen() {
  if (!VideoLoaded()) return;  // only a video goes full screen
  auto& p = program();
  auto& main = p.Main();
  auto& store = p.DataForm();
  auto& frame = main.FrameVideo(0);
  if (store.FullScreenStat == "False") {
    store.FullScreenStat = "True";
    store.VideoSizeHeight = std::to_string(main.Height);
    store.VideoSizeWidth = std::to_string(main.Width);
    store.VideoSizeLeft = std::to_string(main.Left);
    store.VideoSizeTop = std::to_string(main.Top);
    const auto screen = p.desktop().ScreenSize();
    main.Move(-100, 0, screen.width + 200, screen.height + 100);
    frame.Move(0, 600, main.Width, main.Height);
    main.AlwaysOnTop = true;
    ResumeNext([&] { ResizeTheVideo(); });
    SmoothForm(main, 1);
    main.FullScreenSec.Caption = "0";
    main.FullScreenTimer.Enabled = true;
    main.RightFrame.Visible = false;
    for (Control* slider : {static_cast<Control*>(&main.SliderMoveMultimedia(0)),
                            static_cast<Control*>(&main.Volum)}) {
      slider->Top = 300;
      slider->Left = slider->Left + 10;
    }
    main.ResizeArea.Visible = false;
    main.MinimizeButton.Visible = false;
    return;
  }
  store.FullScreenStat = "False";
  ResumeNext([&] {
    main.Height = static_cast<int>(CDbl(store.VideoSizeHeight.get()));
    main.Width = static_cast<int>(CDbl(store.VideoSizeWidth.get()));
    main.Top = static_cast<int>(CDbl(store.VideoSizeTop.get()));
    main.Left = static_cast<int>(CDbl(store.VideoSizeLeft.get()));
  });
  frame.Left = 120;
  main.AlwaysOnTop = false;
  SmoothForm(main, 9);
  main.FullScreenTimer.Enabled = false;
  main.RightFrame.Visible = true;
  for (Control* slider :
       {static_cast<Control*>(&main.SliderMoveMultimedia(0)), static_cast<Control*>(&main.Volum)}) {
    slider->Visible = true;
    slider->Left = slider->Left - 10;
  }
  main.ResizeArea.Visible = true;
  main.MinimizeButton.Visible = true;
}

void ClsMain::SwitchMainMode() {
  auto& p = program();
  ResumeNext([&] {
    if (CDbl(p.Main().LbActualCx(0).Caption.get()) >= 1) return;  // not while a video is loaded
    auto& store = p.DataForm();
    if (store.MainMode == "Small") {
      store.MiniMode = "False";
      store.MainMode = "Full";
      ApplyLayout(true);
    } else if (store.MainMode == "Full") {
      store.MiniMode = "False";
      store.MainMode = "Small";
      ApplyLayout(false);
    }
  });
}

void ClsMain::ChangeMainMode() { ApplyLayout(program().DataForm().MainMode != "Small"); }

}  // namespace yarvo
