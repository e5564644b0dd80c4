#include "playlist/Playlist.h"

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "playlist/AddMedia.h"
#include "playlist/ClsPl.h"
#include "playlist/Id3Module.h"
#include "settings/KeyShortcut.h"
#include "windows/Main.h"

namespace yarvo {

Playlist::Playlist() : SkinnedForm("Playlist") {
  Caption = "Yarvo Player - Playlist";
  Move(8700, 1200, 4000, 4530);  // beside Main
  for (PictureBox* plate : {&Meniu1, &Meniu2, &Meniu3}) MakeImage(*plate, true);
  Meniu1.Move(240, 0, 735, 255);
  Meniu2.Move(1080, 0, 855, 255);
  Meniu3.Move(2040, 0, 855, 255);
  Meniu3.Visible = false;  // the window has two menus
  Label1.Move(360, 0, 375, 255);
  Label3.Move(1200, 0, 615, 255);
  for (Label* caption : {&Label1, &Label3}) caption->Align = Alignment::Center;
  MakeImage(CloseButton, false);
  CloseButton.Move(4000 - 820, 0, 330, 255);
  PicList.Move(90, 370, 4000 - 180, 4530 - 850);
  L1.Visible = false;
  L2.Visible = false;
  FrameScroll.Move(4000 - 350, 370, 270, 4530 - 660);
  ScrollBar.Move(4000 - 320, 380, 210, 4530 - 720);
  ItemsLabel.Move(120, 4530 - 350, 2500, 255);
  Shape1.Move(120, 4530 - 360, 4000 - 500, 15);
  ResizeArea.Move(4000 - 195, 4530 - 195, 195, 195);
  ResizeArea.FontSize = 7;
  AnchorFrame();
  ScrollTimer.Tick = [this] { Playlist_ScrollTimer_Timer(); };
  ScrollTimer.Quiet = true;
  PicList.Click = [this] { Playlist_PicList_Click(); };
  PicList.DblClick = [this] { Playlist_PicList_DblClick(); };
  PicList.AcceptsFiles = true;
  PicList.FilesDropped = [this](const std::vector<std::string>& paths, double y) {
    Playlist_PicList_OLEDragDrop(paths, y, PicList.RowHeight());
  };
  // The list is the window's one control that takes keys: the host hands
  // the window's keys to it.
  KeyDown = [this](int& keyCode, int shift) {
    if (PicList.KeyDown) PicList.KeyDown(keyCode, shift);
  };
  PicList.KeyDown = [](int& keyCode, int) {
    HandleShortcutKey(keyCode);
    if (keyCode == 46) StergeFisier();  // Delete
  };
}

void Playlist::Playlist_ScrollTimer_Timer() {
  ResumeNext([&] { ScrollBar.value = PicList.TopIndex; });
  ResumeNext([&] { ItemsLabel.Caption = "Total items: " + std::to_string(PicList.ListCount()); });
}

}  // namespace yarvo

namespace yarvo {

void Playlist::Playlist_PicList_Click() {
  auto& paths = program().DataForm().ListaCale;
  ResumeNext([&] {
    paths.Selected(PicList.ListIndex());
    ShowId3Tag(paths.Text());
  });
}

void Playlist::Playlist_PicList_DblClick() {
  auto& p = program();
  ClsMain director;
  if (p.Main().StarePlayer.Caption == "Paused") director.SStop();
  p.DataForm().FromPlaylist = "True";
  director.Play();
  p.DataForm().SongNumber = std::to_string(PicList.ListIndex());
}

}  // namespace yarvo
