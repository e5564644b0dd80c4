// Main around a video: the size modes and the resize limits, the video
// panel's input, the quiet seconds of full screen, and the change between mini
// mode and the full window when a video starts or ends.

#include <algorithm>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "settings/Options.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"
#include "windows/mdlSmooth.h"

namespace yarvo {

namespace {

constexpr int kMinWidth = 6100;
constexpr int kMinHeightFull = 3530;
constexpr int kMinHeightSmall = 2000;

}  // namespace

void Main::AdjustVideo() { Main_Form_Resize(); }

// The picture lies over the window: the pointer on the picture is on the
// window, whose handlers see it at the window's coordinates.
void Main::BindVideo() {
  auto& panel = FrameVideo(0);
  auto onWindow = [this, &panel](std::function<void(const MouseEvent&)> Form::*handler) {
    return [this, &panel, handler](const MouseEvent& e) {
      MouseEvent atWindow = e;
      atWindow.x += panel.FormLeft();
      atWindow.y += panel.FormTop();
      if (this->*handler) (this->*handler)(atWindow);
    };
  };
  panel.MouseDown = onWindow(&Form::MouseDown);
  panel.MouseMove = onWindow(&Form::MouseMove);
  panel.MouseUp = onWindow(&Form::MouseUp);
  panel.DblClick = [this] {
    if (DblClick) DblClick();
  };
  LabelVideo.MouseMove = [this](const MouseEvent&) { QuietenFullScreen(); };
  FullScreenTimer.Tick = [this] { Main_FullScreenTimer_Timer(); };
}

// Six quiet seconds in full screen hide the bars and give the picture the
// whole screen; until then the bars show.
void Main::Main_FullScreenTimer_Timer() {
  auto& seek = SliderMoveMultimedia(0);
  int seconds = 0;
  ResumeNext([&] { seconds = static_cast<int>(CDbl(FullScreenSec.Caption.get())) + 1; });
  FullScreenSec.Caption = std::to_string(seconds);
  if (seconds >= 6) {
    FullScreenSec.Caption = "0";
    seek.Visible = false;
    Volum.Visible = false;
    FullScreenTimer.Enabled = false;
    FrameVideo(0).Top = 0;
    return;
  }
  seek.Visible = true;
  Volum.Visible = true;
  FrameVideo(0).Top = 600;
}

void Main::QuietenFullScreen() {
  if (program().DataForm().FullScreenStat == "True") FullScreenSec.Caption = "0";
}

// The pointer moved on the window (`click` false) or clicked it: in full
// screen the bars come back at the next tick, or at once for a click.
void Main::WakeFullScreen(bool click) {
  if (program().DataForm().FullScreenStat != "True") return;
  FullScreenTimer.Enabled = true;
  if (!click) return;
  FullScreenSec.Caption = "0";
  SliderMoveMultimedia(0).Visible = true;
  Volum.Visible = true;
}

// A change of the size mode lays a loaded video out again; the corner grip
// sizes only a stretched picture.
void Main::VideoSizeModeChanged() {
  auto& p = program();
  auto& options = p.Options();
  auto& menus = p.FormMeniuri();
  if (LbActualCx(0).Caption != "-1") ResumeNext([this] { AdjustVideo(); });
  ResizeArea.Visible = options.Option14.Value.get();
  menus.StretchMenu.Checked = options.Option14.Value.get();
  menus.OriginalSizeMenu.Checked = options.Option16.Value.get();
  menus.OriginalSize2Menu.Checked = options.Option17.Value.get();
}

void Main::Main_Form_Resize() {
  auto& p = program();
  auto& store = p.DataForm();
  auto& options = p.Options();
  auto& frame = FrameVideo(0);
  SmoothForm(*this, 9);
  ResumeNext([&] {
    ResizeArea.Left = Width - 195;
    ResizeArea.Top = Height - 195;
  });
  double videoWidth = -1;
  ResumeNext([&] { videoWidth = CDbl(LbActualCx(0).Caption.get()); });
  const bool video = videoWidth > 1;
  if (store.FullScreenStat == "False" && video) {
    ResumeNext([&] {
      if (options.Option14.Value) {
        frame.Width = Width - 1450;
        frame.Height = Height - 700;
        ClsMain().ResizeTheVideo();
        frame.Top = 370;
        ResizeArea.Visible = true;
        return;
      }
      const int factor = options.Option17.Value ? 30 : 15;
      frame.Width = static_cast<int>(videoWidth) * factor;
      frame.Height = static_cast<int>(CDbl(LbActualCy(0).Caption.get())) * factor;
      // Within the limits below at once: a window asked to be narrower
      // than they allow would size itself back and forth for ever.
      Width = std::max(frame.Width + 1450, kMinWidth);
      Height = std::max(frame.Height + 700, kMinHeightFull);
      ClsMain().ResizeTheVideo();
      frame.Top = 370;
      ResizeArea.Visible = false;
    });
  }
  if (store.FullScreenStat == "False") {
    const int minHeight = store.MainMode == "Small" && !video ? kMinHeightSmall : kMinHeightFull;
    if (Width < kMinWidth) Width = kMinWidth;
    if (Height < minHeight) Height = minHeight;
  }
  frame.Visible = video;
  AnchorEdges();
}

// The controls that follow the right and bottom edges.
void Main::AnchorEdges() {
  const int w = Width;
  const int h = Height;
  ResumeNext([&] { RightFrame.Left = w - 1200; });
  ResumeNext([&] { Logo.Left = w - 1100; });
  ResumeNext([&] { Logo.Top = h - 650; });
  AnchorFrame();
  ResumeNext([&] { MinimizeButton.Left = w - 1150; });
  ResumeNext([&] { CloseButton.Left = w - 750; });
  ResumeNext([&] { SliderMoveMultimedia(0).Top = h - 320; });
  ResumeNext([&] { Volum.Top = h - 320; });
  ResumeNext([&] { ImagineVolum.Top = h - 270; });
}

void Main::Main_LbActualCx_Change() {
  auto& p = program();
  auto& store = p.DataForm();
  if (LbActualCx(0).Caption.get().empty()) LbActualCx(0).Caption = "-1";  // runs this handler again
  double width = -1;
  ResumeNext([&] { width = CDbl(LbActualCx(0).Caption.get()); });
  if (width > 1) {
    MiniForm* mini = p.LoadedMiniForm();
    if (store.MiniMode == "True" && mini && mini->WindowState != yarvo::WindowState::Minimized) {
      ReturnToMini = true;
      ShowMainForm();
      ResumeNext([&] { p.FormMeniuri().FullMiniMenu.Enabled = false; });
    } else if (store.MiniMode == "False") {
      ReturnToMini = false;
    }
    return;
  }
  if (WindowState != yarvo::WindowState::Minimized && ReturnToMini) {
    ShowMiniForm();
    ResumeNext([&] { p.FormMeniuri().FullMiniMenu.Enabled = true; });
  }
}

}  // namespace yarvo
