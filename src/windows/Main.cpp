#include "windows/Main.h"

#include "core/DataForm.h"
#include "core/Version.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "engines/media/MCore.h"
#include "platform/Desktop.h"
#include "platform/ProcessControl.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/KeyShortcut.h"
#include "settings/Options.h"
#include "windows/MiniForm.h"
#include "windows/Skins.h"
#include "windows/Snap.h"
#include "windows/modSysTray.h"

namespace yarvo {

Main::Main() : SkinnedForm("Main") {
  Caption = std::string("Yarvo Player ") + kVersionText;
  Move(2000, 1200, 6525, 3885);
  Visible = true;  // the start window shows once it has loaded
  for (Control* working :
       {static_cast<Control*>(&LbFileName(0)), static_cast<Control*>(&LbStatus(0)),
        static_cast<Control*>(&LbResult(0)), static_cast<Control*>(&LbActualCx(0)),
        static_cast<Control*>(&LbActualCy(0)), static_cast<Control*>(&LbCurrentCx(0)),
        static_cast<Control*>(&LbCurrentCy(0)), static_cast<Control*>(&LbCurrentRate(0)),
        static_cast<Control*>(&LbCurrPos(0)), static_cast<Control*>(&LbProgress(0)),
        static_cast<Control*>(&StartMoveSlider), static_cast<Control*>(&FullScreenSec),
        static_cast<Control*>(&PiesaCurenta), static_cast<Control*>(&PozInTop),
        static_cast<Control*>(&txtFrom(0)), static_cast<Control*>(&TxtTo(0)),
        static_cast<Control*>(&KeyFocus)}) {
    working->Visible = false;
  }
  LayOutControls();
  FrameVideo(0).Visible = false;
  FrameVideo(0).NativeSurface = true;
  FrameVideo(0).BackColor = 0x000000;
  // The bands start flat, the reverb dry.
  for (int band = 0; band < 10; ++band) sldEQR(band).value = 50;
  sldEQR(10).value = 100;
  BindEqualizer();
  BindFrame();
  BindHover();
  BindClicks();
  BindVideo();
  TimerMisc(0).Tick = [this] { Main_TimerMisc_Timer(); };
  TimeCounter.Tick = [this] { Main_TimeCounter_Timer(); };
  ScrollTextTimer.Tick = [this] { Main_ScrollTextTimer_Timer(); };
  FixWindows.Tick = [this] { Main_FixWindows_Timer(); };
  FixImages.Tick = [this] { Main_FixImages_Timer(); };
  // These ticks only bring the windows in line with the models: while
  // nothing they read changes, they sleep.
  for (Timer* timer : {&TimeCounter, &FixWindows, &FixImages}) timer->Quiet = true;
  LbActualCx(0).Change = [this] { Main_LbActualCx_Change(); };
  Resize = [this] { Main_Form_Resize(); };
  KeyDown = [](int& keyCode, int) { HandleShortcutKey(keyCode); };
  KeyFocus.KeyDown = [](int& keyCode, int) { HandleShortcutKey(keyCode); };
  Volum.Change = [this] { VolumChange(); };
  Volum.Scroll = [this] { VolumChange(); };
  Volum.GotFocus = [this] { VolumFocus(); };
  auto& seek = SliderMoveMultimedia(0);
  seek.GotFocus = [this] { ScrollbarFocus(); };
  seek.Scroll = [this] { ScrollbarScroll(); };
  seek.LostFocus = [this] { ScrollbarLostFocus(); };
  Load = [this] { Main_Form_Load(); };
  QueryUnload = [this] { Main_Form_QueryUnload(); };
  Unload = [this] { Main_Form_Unload(); };
}

void Main::Main_Form_Load() {
  auto& p = program();
  auto& store = p.DataForm();
  ResumeNext([&] {
    store.CaleYarvoPlayer.AddItem(p.process().ProgramFolder());
    store.CaleYarvoPlayer.Selected(0);
  });
  ResumeNext([&] { Titlu.Caption = std::string("Yarvo Player ") + kVersionText; });
  ResumeNext([&] { p.Playlist(); });
  ResumeNext([&] { p.FormMeniuri(); });
  ResumeNext([&] { p.Options(); });
  ResumeNext([&] { p.MediaLibrary(); });
  ResumeNext([&] { p.JumpForm(); });
  ResumeNext([&] { ClsMain().LoadYarvo(); });
  ApplySkin();
  ResumeNext([&] { FrameVideo(0).Top = 370; });
  RepairMediaDrivers();
  tagTick = 0;
  ResumeNext([&] {
    SnapForm(*this);
    SnapForm(p.Playlist());
    SnapForm(p.MediaLibrary());
  });
  ResumeNext([&] { KeyFocus.Left = -1000; });
  ResumeNext([&] {
    if (p.Options().Check7.Value == 1) AddPlayerTrayIcon();
  });
  ResumeNext([&] {
    if (MiniForm* mini = p.LoadedMiniForm(); mini && mini->Visible) {
      for (auto [from, to] :
           {std::pair{&TSec, &mini->TSec}, std::pair{&StarePlayer, &mini->StarePlayer},
            std::pair{&TotalTime, &mini->TotalTime}, std::pair{&Titlu, &mini->Titlu},
            std::pair{&Label1, &mini->Label1}, std::pair{&Label3, &mini->Label3},
            std::pair{&Label4, &mini->Label4}}) {
        to->ForeColor = from->ForeColor.get();
      }
      mini->Visualisation.BackColor = BackColor.get();
      mini->BackColor = BackColor.get();
      mini->ImagineVolum.Picture = ImagineVolum.Picture.get();
    }
  });
}

// The media service keeps a table of drivers by media type; three entries
// must name the drivers the player relies on. Each is read, compared and
// written only when it differs; a refused write changes nothing and is not
// reported.
void Main::RepairMediaDrivers() {
  static constexpr std::pair<const char*, const char*> kDrivers[] = {
      {"MPEGVideo", "mciqtz.drv"}, {"sequencer", "mciseq.drv"}, {"avivideo", "mciavi.drv"}};
  for (const auto& [key, driver] : kDrivers) {
    ResumeNext([&] {
      if (MciReadDriver(key) != driver) MciWriteDriver(key, driver);
    });
  }
}

// The volume goes to the engine that owns the current file.
void Main::VolumChange() {
  auto& p = program();
  ResumeNext([&] {
    if (p.frmBass().BassON == "True") {
      p.frmBass().VolumBass();
    } else {
      ClsMain().ChangeVolume();
    }
  });
}

void Main::Main_Form_QueryUnload() {
  for (int i = 0; i <= 2; ++i) {
    ResumeNext([&] { TimerMisc(i).Enabled = false; });
    ResumeNext([&] { program().desktop().DoEvents(); });
  }
  ResumeNext([] { MciCloseAll(); });
}

void Main::Main_Form_Unload() {
  ClsMain director;
  ResumeNext([&] { director.SStop(); });
  director.CloseYarvo();
}

}  // namespace yarvo
