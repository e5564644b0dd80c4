#include "windows/MiniForm.h"

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/KeyShortcut.h"
#include "settings/Options.h"
#include "windows/Main.h"
#include "windows/Skins.h"
#include "windows/Snap.h"
#include "windows/mdlSmooth.h"

namespace yarvo {

MiniForm::MiniForm() : SkinnedForm("MiniForm") {
  Caption = "Yarvo Player";
  Move(2000, 1200, 6105, 1485);
  for (PictureBox* plate : {&Meniu1, &Meniu2, &Meniu3}) MakeImage(*plate, true);
  Meniu1.Move(240, 0, 735, 255);
  Meniu2.Move(1080, 0, 855, 255);
  Meniu3.Move(2040, 0, 855, 255);
  Label1.Move(360, 0, 375, 255);
  Label3.Move(1200, 0, 615, 255);
  Label4.Move(2160, 0, 615, 255);
  for (Label* caption : {&Label1, &Label3, &Label4}) caption->Align = Alignment::Center;
  LabelVideo.Move(2985, 30, 1815, 195);
  LabelVideo.Align = Alignment::Center;
  LabelVideo.ForeColor = 0x808080;  // no skin line colours it: a grey that reads on any
  for (PictureBox* button : {&MinimizeButton, &CloseButton, &ImagineVolum})
    MakeImage(*button, false);
  MinimizeButton.Move(4920, 0, 330, 255);
  CloseButton.Move(5280, 0, 330, 255);
  MakeImage(Image1, false);
  Image1.Move(1920, 360, 2895, 735);
  TSec.Move(2160, 480, 735, 255);
  TSec.FontSize = 12;
  TSec.FontBold = true;
  TotalTime.Move(3135, 480, 495, 210);
  StarePlayer.Move(3840, 480, 915, 255);
  StarePlayer.FontBold = true;
  Titlu.Move(2040, 810, 2775, 255);
  Titlu.FontBold = true;
  Visualisation.Move(75, 405, 1815, 615);
  Butoane1.Move(4995, 345, 975, 930);
  Volum.Move(360, 1080, 1455, 255);
  SliderMoveMultimedia(0).Move(1920, 1080, 3015, 255);
  ImagineVolum.Move(120, 1200, 195, 165);
  KeyFocus.Visible = false;
  AnchorFrame();
  Load = [this] { MiniForm_Form_Load(); };
  Unload = [this] { UnSnapForm(*this); };
  Resize = [this] { MiniForm_Form_Resize(); };
  KeyDown = [](int& keyCode, int) { HandleShortcutKey(keyCode); };
  KeyFocus.KeyDown = [](int& keyCode, int) { HandleShortcutKey(keyCode); };
  Activate = [this] { MiniForm_Form_Activate(); };
  Deactivate = [] { program().DataForm().Magnet = "0"; };
  BindBars();
  BindFrame();
  BindHover();
  Timer1.Tick = [this] { MiniForm_Timer1_Timer(); };
  Timer1.Quiet = true;  // a mirror of Main
}

void MiniForm::MiniForm_Form_Load() {
  ResumeNext([this] { SmoothForm(*this, 9); });
  ResumeNext([this] { KeyFocus.Left = -2000; });
  ResumeNext([this] { SnapForm(*this); });
  LoadSkin();
}

// The skin as it is now: the mini window keeps it until it is loaded again.
// The colours come from the main window.
void MiniForm::LoadSkin() {
  auto& p = program();
  auto& main = p.Main();
  LoadEdgePictures(*this);
  ResumeNext([&] { Label1.Caption = main.Label1.Caption.get(); });
  ResumeNext([&] { Label3.Caption = main.Label3.Caption.get(); });
  ResumeNext([&] { Label4.Caption = main.Label4.Caption.get(); });
  for (PictureBox* plate : {&Meniu1, &Meniu2, &Meniu3})
    ResumeNext([&] { plate->Picture = p.DataForm().MeniuNormal.get(); });
  ResumeNext([&] { MinimizeButton.Picture = LoadSkinPicture("/minimize-normal.bmp"); });
  ResumeNext([&] { CloseButton.Picture = LoadSkinPicture("/close-normal.bmp"); });
  LoadBarPictures(Volum, 'h', "/h-scrollbar-thumb.bmp", "/h-scrollbar-thumb-focus.bmp");
  CopyBarPictures(main.Volum, SliderMoveMultimedia(0));
  LoadBarPictures(SliderMoveMultimedia(0), 'h', "/h-scrollbar-thumb.bmp",
                  "/h-scrollbar-thumb-focus.bmp");
  ResumeNext([&] { Image1.Picture = LoadSkinPicture("/main-mini.jpg"); });
  BackColor = main.BackColor.get();
  ImagineVolum.Picture = main.ImagineVolum.Picture.get();
  for (auto [to, from] : {std::pair{&TSec, &main.TSec}, std::pair{&StarePlayer, &main.StarePlayer},
                          std::pair{&TotalTime, &main.TotalTime}, std::pair{&Titlu, &main.Titlu},
                          std::pair{&Label1, &main.Label1}, std::pair{&Label3, &main.Label3},
                          std::pair{&Label4, &main.Label4}})
    to->ForeColor = from->ForeColor.get();
  Visualisation.BackColor = BackColor.get();
}

void MiniForm::MiniForm_Form_Resize() {
  SmoothForm(*this, 9);
  AnchorFrame();
}

void MiniForm::MiniForm_Timer1_Timer() {
  auto& main = program().Main();
  ResumeNext([&] { TSec.Caption = main.TSec.Caption.get(); });
  ResumeNext([&] { Titlu.Caption = main.Titlu.Caption.get(); });
  ResumeNext([&] { TotalTime.Caption = main.TotalTime.Caption.get(); });
  ResumeNext([&] { StarePlayer.Caption = main.StarePlayer.Caption.get(); });
  ResumeNext([&] { LabelVideo.Caption = main.LabelVideo.Caption.get(); });
  ResumeNext([&] {
    SliderMoveMultimedia(0).max = main.SliderMoveMultimedia(0).max.get();
    SliderMoveMultimedia(0).value = static_cast<double>(main.SliderMoveMultimedia(0).value);
  });
  ResumeNext([&] {
    Volum.max = main.Volum.max.get();
    Volum.value = static_cast<double>(main.Volum.value);
  });
}

// The player window active: the playlist and the library keep their offsets
// to it while it is dragged. A video needs the big window, so the mini
// window gives way at once when one is loaded.
void MiniForm::MiniForm_Form_Activate() {
  auto& p = program();
  auto& store = p.DataForm();
  HoldDockedOffsets(*this);
  store.MiniMode = "True";
  if (store.PlaylistON == "0") p.Playlist().Hide();
  double videoWidth = -1;
  ResumeNext([&] { videoWidth = CDbl(p.Main().LbActualCx(0).Caption.get()); });
  if (videoWidth > 1) {
    ShowMainForm();  // unloads this form: nothing of it may run after
    return;
  }
  ResumeNext([this] { KeyFocus.SetFocus(); });
}

void MiniForm::MiniForm_CloseButton_Click() {
  auto& p = program();
  auto& main = p.Main();
  main.Top = Top.get();
  main.Left = Left.get();
  if (p.DataForm().FullScreenStat == "False") ClsMain().CloseYarvo();
}

// The main window's minimize, on this window and its title.
void MiniForm::MiniForm_MinimizeButton_Click() {
  auto& p = program();
  auto& store = p.DataForm();
  auto& playlist = p.Playlist();
  auto& library = p.MediaLibrary();
  WindowState = yarvo::WindowState::Minimized;
  store.PlaylistON = playlist.Visible ? "1" : "0";
  store.MediaOn = library.Visible ? "1" : "0";
  Caption = p.Options().Check1.Value == 1 ? Titlu.Caption.get()
                                          : std::string("Yarvo Player") + std::string(8, ' ');
  playlist.Hide();
  library.Hide();
}

void ShowMiniForm() {
  auto& p = program();
  auto& main = p.Main();
  main.Hide();
  auto& mini = p.MiniForm();
  mini.Left = main.Left.get();
  mini.Top = main.Top.get();
  mini.Icon = main.Icon.get();
  mini.Show();
  p.DataForm().MiniMode = "True";
}

void ShowMainForm() {
  auto& p = program();
  auto& main = p.Main();
  if (MiniForm* mini = p.LoadedMiniForm()) {
    main.Top = mini->Top.get();
    main.Left = mini->Left.get();
  }
  p.UnloadMiniForm();
  main.Show();
  p.DataForm().MiniMode = "False";
}

}  // namespace yarvo
