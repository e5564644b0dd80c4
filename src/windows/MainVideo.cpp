// Main around a video: the size mode, the resize limits, and the change
// between mini mode and the full window when a video starts or ends.

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "settings/Options.h"
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
      Width = frame.Width + 1450;
      Height = frame.Height + 700;
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
      Top = mini->Top;
      Left = mini->Left;
      p.UnloadMiniForm();
      Show();
      store.MiniMode = "False";
    } else if (store.MiniMode == "False") {
      ReturnToMini = false;
    }
    return;
  }
  if (WindowState != yarvo::WindowState::Minimized && ReturnToMini) {
    Hide();
    auto& mini = p.MiniForm();
    mini.Icon = Icon.get();
    mini.Top = Top;
    mini.Left = Left;
    mini.Show();
    store.MiniMode = "True";
  }
}

}  // namespace yarvo
