// What the main window's buttons, plates and title bar do when clicked or
// double-clicked, the minimize button, and the window's activation.

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "core/form/Twips.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "platform/Desktop.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"
#include "windows/Skins.h"
#include "windows/Snap.h"
#include "windows/modSysTray.h"

namespace yarvo {

namespace {

bool VideoLoaded() { return program().Main().LbActualCx(0).Caption != "-1"; }

}  // namespace

// The playlist's button: shows the window if it was hidden, else hides it,
// with its state in PlaylistON and the button's picture from the skin.
void Main::TogglePlaylist() {
  auto& p = program();
  auto& playlist = p.Playlist();
  const bool show = !playlist.Visible;
  playlist.Visible = show;
  p.DataForm().PlaylistON = show ? "1" : "0";
  ResumeNext(
      [&] { ImgButton4.Picture = LoadSkinPicture(show ? "/button4.bmp" : "/button4b.bmp"); });
}

void Main::BindClicks() {
  ImgButton3.Click = [this] {
    program().desktop().PopupMenu(*this, program().FormMeniuri().PresetMenu, ImgButton3.FormLeft(),
                                  ImgButton3.FormTop() + ImgButton3.Height);
  };
  for (Control* toggle : {static_cast<Control*>(&ImgButton4), static_cast<Control*>(&Image4),
                          static_cast<Control*>(&PlaylistLabel)})
    toggle->Click = [this] { TogglePlaylist(); };
  // The library's ranking page: the small button shows it, the "Info" plate
  // shows or hides it.
  auto showTop20 = [](bool toggle) {
    auto& library = program().MediaLibrary();
    if (toggle && library.Visible) {
      library.Hide();
      return;
    }
    library.FrameTop10.Visible = true;
    library.FrameIDTag.Visible = false;
    library.FrameLibrary.Visible = false;
    library.Show();
  };
  ImgButton5.Click = [showTop20] { showTop20(false); };
  for (Control* toggle : {static_cast<Control*>(&Image3), static_cast<Control*>(&InfoLabel)})
    toggle->Click = [showTop20] { showTop20(true); };
  MinimizeButton.Click = [this] { Main_MinimizeButton_Click(); };
  DblClick = [] { ClsMain().SwitchToFullScreen(); };
  for (Control* title :
       {static_cast<Control*>(&ImgTopCenter), static_cast<Control*>(&LabelVideo)}) {
    title->DblClick = [] {
      ClsMain director;
      director.SwitchMainMode();
      if (!VideoLoaded()) return;
      director.SwitchToFullScreen();
    };
  }
  ImgTopRight.DblClick = [] { ClsMain().SwitchMainMode(); };
  MouseUp = [this](const MouseEvent& e) {
    if (e.button == MouseButton::Left) WakeFullScreen(true);
    if (e.button != MouseButton::Right || !FrameVideo(0).Visible) return;
    program().desktop().PopupMenu(*this, program().FormMeniuri().VideoMenu, static_cast<int>(e.x),
                                  static_cast<int>(e.y));
  };
  Activate = [this] { Main_Form_Activate(); };
  Deactivate = [] { program().DataForm().Magnet = "0"; };
}

void Main::Main_MinimizeButton_Click() {
  auto& p = program();
  auto& store = p.DataForm();
  auto& playlist = p.Playlist();
  auto& library = p.MediaLibrary();
  if (store.FullScreenStat == "False") {
    WindowState = yarvo::WindowState::Minimized;
    store.PlaylistON = playlist.Visible ? "1" : "0";
    store.MediaOn = library.Visible ? "1" : "0";
    Caption = p.Options().Check1.Value == 1 ? Titlu.Caption.get()
                                            : std::string("Yarvo Player") + std::string(8, ' ');
    playlist.Hide();
    library.Hide();
  }
  // Hidden, the window is found by its icon alone: without a notification
  // area it stays in the task bar.
  ResumeNext([&] {
    if (p.Options().Check7.Value == 1 && PlayerInTray()) Hide();
  });
  ResumeNext([&] { playlist.ScrollTimer.Enabled = false; });
  ResumeNext([&] { FixImages.Enabled = false; });
  ResumeNext([&] {
    if (p.frmBass().tmrSpectrum.Enabled) p.frmBass().tmrSpectrum.Enabled = false;
  });
  ResumeNext([&] { MinimizeButton.Picture = store.MinimizeNormal.get(); });
}

// FixWindows brings the playlist and the library back once the window is.
void Main::Main_SysTray_MouseDown(MouseButton button, ScreenPoint at) {
  if (WindowState != yarvo::WindowState::Minimized) return;
  if (button == MouseButton::Left) {
    WindowState = yarvo::WindowState::Normal;
    Show();
  } else if (button == MouseButton::Right) {
    auto& p = program();
    Menu& menu = p.FormMeniuri().SysTrayMenu;
    menu.Visible = true;
    p.desktop().PopupMenu(*this, menu, at.x * kTwipsPerPixel - Left, at.y * kTwipsPerPixel - Top);
    menu.Visible = false;
  }
}

// The player window active: the playlist and the library keep their offsets
// to it while it is dragged.
void Main::Main_Form_Activate() {
  HoldDockedOffsets(*this);
  if (program().DataForm().PlaylistON == "0") program().Playlist().Hide();
}

}  // namespace yarvo
