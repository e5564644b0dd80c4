// The playlist window's layout and its scroll bar: the bar takes 30 rows as
// the visible page, and follows the list once a second.

#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "playlist/Playlist.h"
#include "windows/mdlSmooth.h"

namespace yarvo {

namespace {

constexpr int kMinWidth = 4000;
constexpr int kMinHeight = 4530;
constexpr int kPage = 30;

}  // namespace

void Playlist::ResizePlaylist() {
  SmoothForm(*this, 9);
  // The window is disabled while it is brought up to its limits.
  if (Width < kMinWidth || Height < kMinHeight) {
    Enabled = false;
    if (Width < kMinWidth) Width = kMinWidth;
    if (Height < kMinHeight) Height = kMinHeight;
    Enabled = true;
  }
  const int w = Width;
  const int h = Height;
  AnchorFrame();
  ResumeNext([&] {
    PicList.Width = w - 180;
    PicList.Height = h - 850;
  });
  ResumeNext([&] { FrameScroll.Move(w - 350, 370, FrameScroll.Width, h - 660); });
  ResumeNext([&] {
    ScrollBar.Move(w - 320, 380, ScrollBar.Width, h - 720);
    ScrollBar.value = 0;
  });
  ResumeNext([&] { ItemsLabel.Top = h - 350; });
  ResumeNext([&] {
    Shape1.Top = h - 360;
    Shape1.Width = w - 500;
  });
  ResumeNext([&] { CloseButton.Left = w - 820; });
  ResumeNext([&] {
    ResizeArea.Left = w - 195;
    ResizeArea.Top = h - 195;
  });
}

// The bar's Change and Scroll alike: the list's top row follows the bar, and
// its end the bar's end.
void Playlist::ScrollBarMoved() {
  ResumeNext([&] {
    ScrollBar.max = PicList.ListCount() - kPage;
    ScrollBar.LargeChange = 10;
    ScrollBar.SmallChange = 1;
  });
  ResumeNext([&] {
    PicList.TopIndex = static_cast<int>(ScrollBar.value);
    if (ScrollBar.value == ScrollBar.max) PicList.TopIndex = PicList.ListCount() - 1;
  });
  ResumeNext([&] { PicList.SetFocus(); });
}

void Playlist::Playlist_Form_Activate() {
  ResumeNext([&] {
    ScrollBar.max = PicList.ListCount() - kPage;
    if (ScrollBar.value == ScrollBar.max) PicList.TopIndex = PicList.ListCount() - 1;
    PicList.TopIndex = static_cast<int>(ScrollBar.value);
  });
}

}  // namespace yarvo
