#include "playlist/Playlist.h"

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "platform/Desktop.h"
#include "playlist/AddMedia.h"
#include "playlist/ClsPl.h"
#include "playlist/Id3Module.h"
#include "settings/KeyShortcut.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"
#include "windows/Resize.h"

#include <tuple>

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
  Shape1.BackColor = 0x808080;
  ResizeArea.Move(4000 - 195, 4530 - 195, 195, 195);
  ResizeArea.FontSize = 7;
  ResizeArea.FontName = "Marlett";
  AnchorFrame();
  ScrollTimer.Tick = [this] { Playlist_ScrollTimer_Timer(); };
  ScrollTimer.Quiet = true;
  PicList.Click = [this] { Playlist_PicList_Click(); };
  PicList.DblClick = [this] { Playlist_PicList_DblClick(); };
  PicList.AcceptsFiles = true;
  PicList.FilesDropped = [this](const std::vector<std::string>& paths, double y) {
    Playlist_PicList_OLEDragDrop(paths, y, PicList.RowHeight());
  };
  BindFrame();
  BindRows();
  Resize = [this] { ResizePlaylist(); };
  Activate = [this] { Playlist_Form_Activate(); };
  ScrollBar.Change = [this] { ScrollBarMoved(); };
  ScrollBar.Scroll = [this] { ScrollBarMoved(); };
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

// The frame drags the window, the grip sizes it, the title bar pops the
// window's menus up, and the close button hides it.
void Playlist::BindFrame() {
  auto move = [this](const MouseEvent&) { FormMove(*this); };
  MouseDown = move;
  for (PictureBox* edge : {&ImgTopLeft, &ImgTopCenter, &ImgTopRight, &ImgLeft, &ImgRight,
                           &ImgBottomLeft, &ImgBottomCenter, &ImgBottomRight})
    edge->MouseDown = move;
  ItemsLabel.MouseDown = move;
  for (auto [plate, caption, menu, x] :
       {std::tuple{&Meniu1, &Label1, &FormMeniuri::PlaylistMenu1, 250},
        std::tuple{&Meniu2, &Label3, &FormMeniuri::PlaylistMenu2, 1100}}) {
    auto popUp = [this, menu = menu, x = x](const MouseEvent&) {
      auto& p = program();
      p.desktop().PopupMenu(*this, p.FormMeniuri().*menu, x, 300);
    };
    plate->MouseUp = popUp;
    caption->MouseUp = popUp;
  }
  CloseButton.Click = [this] {
    Hide();
    program().DataForm().PlaylistON = "0";
  };
  ResizeArea.MouseMove = [this](const MouseEvent& e) {
    MousePointer = 8;
    if (e.button != MouseButton::Left) return;
    ResizeHeld = true;
    SizeFromCorner(*this);
    ResizeHeld = false;
  };
  MouseMove = [this](const MouseEvent&) {
    auto& store = program().DataForm();
    MousePointer = 0;
    for (PictureBox* plate : {&Meniu1, &Meniu2, &Meniu3})
      ResumeNext([&] { plate->Picture = store.MeniuNormal.get(); });
    ResumeNext([&] { CloseButton.Picture = store.CloseNormal.get(); });
  };
  CloseButton.MouseMove = [this](const MouseEvent&) {
    ResumeNext([this] { CloseButton.Picture = program().DataForm().CloseFocus.get(); });
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
