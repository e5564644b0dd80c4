// Starting, pausing and stopping a file, and the choice of its engine.

#include "director/ClsMain.h"

#include <array>
#include <string_view>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/TimeText.h"
#include "core/form/RuntimeError.h"
#include "director/DoctorYarvo.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "engines/media/MCore.h"
#include "engines/media/MciSendString.h"
#include "platform/Desktop.h"
#include "playlist/AntiManea.h"
#include "playlist/ClsPl.h"
#include "playlist/Id3Module.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Mp3InfoMod.h"
#include "playlist/Playlist.h"
#include "playlist/Top10.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

// The endings that the audio engine plays; everything else goes to the media
// service. Only the last four characters count, in lower case.
bool IsBassFile(const std::string& file) {
  static constexpr std::array<std::string_view, 5> kBassEndings = {".mp3", ".wav", ".mp2", ".mp1",
                                                                   ".ogg"};
  const std::string ending =
      LCase(file.size() >= 4 ? std::string_view(file).substr(file.size() - 4) : file);
  for (auto known : kBassEndings) {
    if (ending == known) return true;
  }
  return false;
}

}  // namespace

void ShowMciResult(const std::string& result) {
  program().Main().LbResult(0).Caption = "Result calling Function is : " + result;
}

void ClsMain::Play() {
  auto& p = program();
  auto& main = p.Main();
  auto& store = p.DataForm();
  ResumeNext([&] {
    if (main.StarePlayer.Caption != "Paused") p.frmBass().StopBass();
  });
  bool resumed = false;
  ResumeNext([&] {
    if (p.frmBass().BassON == "True") {
      p.frmBass().ResumeBass();
      main.StarePlayer.Caption = "Playing";
      resumed = true;
    }
  });
  if (resumed) return;
  ResumeNext([&] {
    if (main.LbStatus(0).Caption == "paused") {
      PlayResume();
      main.StarePlayer.Caption = "Playing";
      resumed = true;
    }
  });
  if (resumed) return;
  ResumeNext([&] { SStop(); });
  ResumeNext([&] {
    if (store.FromPlaylist != "False") main.LbFileName(0).Caption = store.ListaCale.Text();
  });
  ResumeNext([&] { GetMP3Inf(); });
  // Counted before the file is opened: a file that then fails has been counted.
  ResumeNext([&] { CountPlay(p.Playlist().PicList.Text()); });

  const std::string file = main.LbFileName(0).Caption;
  mciDevice = "MPEGVideo";
  ResumeNext([&] { p.frmBass().BassON = "False"; });
  if (IsBassFile(file)) {
    // No fall back to the media service: a file the audio engine cannot read
    // ends at the engine's first tick.
    ResumeNext([&] {
      auto& engine = p.frmBass();
      engine.FileToPlay.Text = file;
      engine.PLAYtheBass();
      p.frmBass().BassON = "True";
    });
    return;
  }
  PlayWithMci();
}

void ClsMain::PlayWithMci() {
  auto& p = program();
  auto& main = p.Main();
  auto& library = p.MediaLibrary();
  const std::string file = main.LbFileName(0).Caption;
  ResumeNext([&] {
    mciResult = MciOpen(main.FrameVideo(0).hWnd, mciAlias, file, mciDevice);
    ShowMciResult(mciResult);
  });
  if (mciResult == "Success") {
    ResumeNext(
        [&] { main.LbActualCx(0).Caption = std::to_string(MciWhereDestination(mciAlias, "cx")); });
    ResumeNext(
        [&] { main.LbActualCy(0).Caption = std::to_string(MciWhereDestination(mciAlias, "cy")); });
    ResumeNext([&] {
      library.LbFramesPerSecond(0).Caption = std::to_string(MciFramesPerSecond(mciAlias));
    });
    ResumeNext(
        [&] { library.LbTotalFrames(0).Caption = std::to_string(MciLengthFrames(mciAlias)); });
    ResumeNext([&] { library.LbTotalTime(0).Caption = Str(MciLengthMs(mciAlias) / 1000.0); });
    ResumeNext([&] { main.LbCurrentRate(0).Caption = std::to_string(MciSpeed(mciAlias)) + " %"; });
    ResumeNext([&] {
      const double fps = CDbl(library.LbFramesPerSecond(0).Caption.get());
      if (fps == 0) throw err::DivisionByZero();
      main.SliderMoveMultimedia(0).max =
          static_cast<int>(CDbl(library.LbTotalFrames(0).Caption.get()) / (2 * fps));
    });
    ResumeNext([&] { main.TimerMisc(0).Enabled = true; });
  }
  ResumeNext([&] { LayOutForMedia(); });
  ResumeNext([&] { ResizeTheVideo(); });
  ResumeNext([&] { ChangeVolume(); });
  ResumeNext([&] {
    mciResult = MciPlay(mciAlias, main.txtFrom(0).Text.get(), main.TxtTo(0).Text.get());
    ShowMciResult(mciResult);
  });
  if (mciResult != "Success") {
    if (!file.empty()) MciFailed();
    return;
  }
  const std::string row = p.Playlist().PicList.Text();
  ResumeNext([&] {
    if (p.DataForm().FromPlaylist == "True") main.Titlu.Caption = std::string(9, ' ') + row;
  });
  ResumeNext([&] { main.PiesaCurenta.Caption = row; });
  ResumeNext([&] { main.TimeCounter.Enabled = true; });
  ResumeNext([&] {
    const std::string& length = main.labLength.Caption;
    const double seconds =
        length.empty() ? CDbl(library.LbTotalTime(0).Caption.get()) : Val(length);
    main.TotalTime.Caption = TwoDigitMinutes(static_cast<long>(seconds));
  });
  ResumeNext([&] { ShowId3Tag(file); });
  ResumeNext([&] { CheckManea(main.LbFileName(0).Caption); });
}

// The window takes the video's layout when the file has a picture; an audio
// file through the media service keeps the audio layout, and in mini mode
// the window is left alone.
void ClsMain::LayOutForMedia() {
  auto& p = program();
  auto& main = p.Main();
  if (main.LbActualCx(0).Caption != "-1") {
    ResumeNext([&] { main.ResizeArea.Visible = true; });
    ResumeNext([&] { main.MainFrame(1).Visible = false; });
    ResumeNext([&] { main.FrameVideo(0).Visible = true; });
    ResumeNext([&] {
      main.LabelVideo.Caption = main.Titlu.Caption.get() + "  " + main.TSec.Caption.get();
    });
    ResumeNext([&] {
      main.Height = static_cast<int>(CDbl(p.DataForm().VideoSizeHeight2.get()));
      main.Width = static_cast<int>(CDbl(p.DataForm().VideoSizeWidth2.get()));
    });
    for (Control* shown :
         {static_cast<Control*>(&main.Image3), static_cast<Control*>(&main.Image4),
          static_cast<Control*>(&main.InfoLabel), static_cast<Control*>(&main.PlaylistLabel)}) {
      shown->Visible = true;
    }
    ResumeNext([&] { main.Logo.Top = main.Height - 650; });
    ResumeNext([&] { main.RightFrame.Height = 2295; });
    ResumeNext([&] { main.MainFrame(1).Height = 3015; });
    ResumeNext([&] { main.AdjustVideo(); });
  } else if (p.DataForm().MiniMode == "False") {
    ResumeNext([&] { main.ResizeArea.Visible = false; });
    ResumeNext([&] { main.MainFrame(1).Visible = true; });
    ResumeNext([&] { ChangeMainMode(); });
    ResumeNext([&] { main.LabelVideo.Caption = "YARVO PLAYER"; });
  }
}

// The user hears why first; the repair component runs once the message is
// closed, and nothing else happens: no retry, no next song.
void ClsMain::MciFailed() {
  auto& p = program();
  const std::string file = p.Main().LbFileName(0).Caption;
  p.desktop().MsgBox(
      "Sorry, Yarvo Player could not play this file. Doctor Yarvo will try to fix that",
      "Yarvo Player");
  ResumeNext([&] { DoctorYarvo().Repair(file); });
}

void ClsMain::OpenAndPlayFile() {
  const std::string file = ShowFileDialog();
  if (file.empty()) return;
  auto& p = program();
  p.Main().LbFileName(0).Caption = file;
  p.DataForm().FromPlaylist = "False";
  Play();
  ExtractFilename(file, file);
}

void ClsMain::Pause() {
  auto& p = program();
  auto& main = p.Main();
  if (p.frmBass().BassON == "True") {
    p.frmBass().Pauza();  // no toggle: resuming goes through Play
  } else if (main.LbStatus(0).Caption == "paused") {
    PlayResume();
  } else {
    main.LbStatus(0).Caption = "paused";
    ShowMciResult(MciPause(mciAlias));
  }
}

void ClsMain::PlayResume() { ShowMciResult(MciResume(mciAlias)); }

void ClsMain::SStop() {
  auto& p = program();
  auto& main = p.Main();
  auto& slider = main.SliderMoveMultimedia(0);
  if (p.frmBass().BassON == "True") {
    p.frmBass().StopBass();
    slider.value = 0;
    return;
  }
  ShowMciResult(MciStop(mciAlias));
  slider.value = 0;
  mciResult = MciClose(mciAlias);
  ShowMciResult(mciResult);
  if (p.DataForm().FullScreenStat == "True") SwitchToFullScreen();
  // With nothing open the close fails, and labels and timers stay as they were.
  if (mciResult != "Success") return;
  main.TimerMisc(0).Enabled = false;
  for (auto* label :
       {&main.LbCurrPos(0), &main.LbProgress(0), &main.LbStatus(0), &main.LbActualCx(0),
        &main.LbActualCy(0), &main.LbCurrentCx(0), &main.LbCurrentCy(0), &main.LbCurrentRate(0)}) {
    label->Caption = "";
  }
  slider.value = 0;
  main.TimeCounter.Enabled = false;
}

void ClsMain::GetMP3Inf() {
  auto& p = program();
  auto& main = p.Main();
  auto& library = p.MediaLibrary();
  Mp3Info info;
  ResumeNext([&] { ReadMp3Info(main.LbFileName(0).Caption.get(), info); });
  main.labSize.Caption = info.FileSize + " Bytes";
  main.labLength.Caption = info.Length + " Sec";
  main.labLayer.Caption = info.Version + " " + info.Layer;
  main.labBitRate.Caption = info.BitRate + " Kbps";
  main.labFreqChan.Caption = info.Frequency + " " + info.Mode;
  library.labCRC.Caption = info.Crc;
  library.labCopy.Caption = info.Copyright;
  library.labEmphasis.Caption = info.Emphasis;
  library.labOriginal.Caption = info.Original;
}

void ClsMain::SetCDState(bool open) {
  ResumeNext(
      [open] { mciSendString(open ? "Set CDAudio Door Open" : "Set CDAudio Door Closed", {}); });
}

}  // namespace yarvo
