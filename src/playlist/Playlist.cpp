#include "playlist/Playlist.h"

#include "core/form/RuntimeError.h"

namespace yarvo {

Playlist::Playlist() : Form("Playlist") {
  Caption = "Yarvo Player - Playlist";
  Move(6600, 1200, 4000, 4530);
  PicList.Move(90, 370, 4000 - 180, 4530 - 850);
  L1.Visible = false;
  L2.Visible = false;
  FrameScroll.Move(4000 - 350, 370, 270, 4530 - 660);
  ScrollBar.Move(4000 - 320, 380, 210, 4530 - 720);
  ItemsLabel.Move(120, 4530 - 350, 2500, 255);
  ScrollTimer.Tick = [this] { Playlist_ScrollTimer_Timer(); };
}

void Playlist::Playlist_ScrollTimer_Timer() {
  ResumeNext([&] { ScrollBar.Value = PicList.TopIndex; });
  ResumeNext([&] { ItemsLabel.Caption = "Total items: " + std::to_string(PicList.ListCount()); });
}

}  // namespace yarvo
