#include "engines/frmBass.h"

#include <cmath>
#include <filesystem>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/TimeText.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/BassApi.h"
#include "engines/Visualisation.h"
#include "platform/ProcessControl.h"
#include "playlist/AntiManea.h"
#include "playlist/Id3Module.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "playlist/Top10.h"
#include "settings/Options.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

// Centres of the ten equalizer bands, Hz; every band is 18 semitones wide.
constexpr float kBandCentre[10] = {80, 150, 300, 500, 750, 1000, 3000, 8000, 12000, 15000};
constexpr float kBandWidth = 18;
// One step of the seek bar, in bytes of the channel.
constexpr double kBytesPerSliderStep = 100000;

BassApi& Bass() { return program().bass(); }

int WholeSeconds(DWORD channel, QWORD bytes) {
  return static_cast<int>(std::lround(Bass().BASS_ChannelBytes2Seconds(channel, bytes)));
}

}  // namespace

frmBass::frmBass() : Form("frmBass") {
  Caption = "Yarvo Player";
  Load = [this] { Form_Load(); };
  Unload = [this] { Form_Unload(); };
  Timer1.Tick = [this] { Timer1_Timer(); };
  tmrSpectrum.Tick = [this] { tmrSpectrum_Timer(); };
  StreamLength.onChange([this] { StreamLength_Change(); });
}

frmBass::~frmBass() = default;

DWORD frmBass::Channel() const { return static_cast<DWORD>(CLng(Chan.get())); }

void frmBass::Form_Load() {
  ResumeNext([] { std::filesystem::current_path(program().process().ProgramFolder()); });
  ResumeNext([] { Bass().BASS_Init(-1, 44100, 0, nullptr, nullptr); });
}

void frmBass::Form_Unload() {
  ResumeNext([this] { tmrSpectrum.Enabled = false; });
  ResumeNext([] { Bass().BASS_Free(); });
}

void frmBass::PLAYtheBass() {
  auto& p = program();
  auto& main = p.Main();
  if (main.StarePlayer.Caption == "Paused") {
    ResumeBass();
    return;
  }
  ResumeNext([&] { Bass().BASS_MusicFree(Channel()); });
  ResumeNext([&] { Bass().BASS_StreamFree(Channel()); });
  const std::string path = FileToPlay.Text;
  ResumeNext([&] {
    Chan = Str(Bass().BASS_StreamCreateFile(BASS_FALSE, path.c_str(), 0, 0,
                                            BASS_SAMPLE_FX | BASS_UNICODE));
  });
  // A tracker module is no stream: the second try is what lets it play.
  ResumeNext([&] {
    if (Chan == "0") {
      Chan = Str(Bass().BASS_MusicLoad(BASS_FALSE, path.c_str(), 0, 0,
                                       BASS_SAMPLE_FX | BASS_MUSIC_RAMP | BASS_UNICODE, 0));
    }
  });
  for (int b = 0; b < 10; ++b) {
    ResumeNext([&] {
      fx[static_cast<std::size_t>(b)] = Bass().BASS_ChannelSetFX(Channel(), BASS_FX_DX8_PARAMEQ, 0);
    });
  }
  ResumeNext([&] { fx[10] = Bass().BASS_ChannelSetFX(Channel(), BASS_FX_DX8_REVERB, 0); });
  for (int b = 0; b < 10; ++b) {
    ResumeNext([&] {
      const BASS_DX8_PARAMEQ band{kBandCentre[b], kBandWidth, 0};
      Bass().BASS_FXSetParameters(fx[static_cast<std::size_t>(b)], &band);
    });
  }
  for (int b = 0; b <= 10; ++b) UpdateFX(b);
  ResumeNext([&] { Bass().BASS_ChannelPlay(Channel(), BASS_FALSE); });
  main.StarePlayer.Caption = "Playing";
  ResumeNext([&] { main.ResizeArea.Visible = false; });
  ResumeNext([&] { main.MainFrame(1).Visible = true; });
  ResumeNext([] { ClsMain().ChangeMainMode(); });
  ResumeNext([&] { main.LabelVideo.Caption = "YARVO PLAYER"; });
  ResumeNext([&] { CheckManea(main.LbFileName(0).Caption); });
  VolumBass();
  Timer1.Enabled = true;
  SetUpSpectrum();
  tmrSpectrum.Enabled = true;
}

void frmBass::Pauza() {
  ResumeNext([this] { Bass().BASS_ChannelPause(Channel()); });
  program().Main().StarePlayer.Caption = "Paused";
}

void frmBass::ResumeBass() {
  ResumeNext([this] { Bass().BASS_ChannelPlay(Channel(), BASS_FALSE); });
  ResumeNext([] { ResumeParkedSpectrum(); });
}

bool frmBass::ChannelSounds() {
  return Bass().BASS_ChannelIsActive(Channel()) == BASS_ACTIVE_PLAYING;
}

void frmBass::StopBass() {
  ResumeNext([this] { Bass().BASS_ChannelStop(Channel()); });
  program().Main().StarePlayer.Caption = "Stopped";
  Timer1.Enabled = false;
  program().UnloadfrmBass();
}

void frmBass::VolumBass() {
  ResumeNext([] {
    const auto volume = std::lround(program().Main().Volum.value * 100.0);
    Bass().BASS_SetConfig(BASS_CONFIG_GVOL_STREAM, static_cast<DWORD>(volume));
  });
}

void frmBass::UpdateFX(int b) {
  ResumeNext([&] {
    const auto& slider = program().Main().sldEQR(b);
    const long v = std::lround(slider.value / 5.0);
    const bool on = program().Options().Option12.Value;
    const HFX effect = fx.at(static_cast<std::size_t>(b));
    if (b < 10) {
      BASS_DX8_PARAMEQ band{};
      Bass().BASS_FXGetParameters(effect, &band);
      band.fGain = on ? static_cast<float>(10 - v) : 0.0f;
      Bass().BASS_FXSetParameters(effect, &band);
    } else {
      BASS_DX8_REVERB reverb{};
      Bass().BASS_FXGetParameters(effect, &reverb);
      reverb.fReverbMix = on ? static_cast<float>(-0.012 * double(v * v * v)) : -12.0f;
      Bass().BASS_FXSetParameters(effect, &reverb);
    }
  });
}

void frmBass::MoveScollEq(int b) {
  ResumeNext([&] {
    auto& slider = program().Main().sldEQR(b);
    const bool on = program().Options().Option12.Value;
    const long shown = b < 10 ? (on ? 50 - std::lround(slider.value) : 0)
                             : (on ? 100 - std::lround(slider.value) : 50);
    slider.ToolTipText = std::to_string(shown);
  });
  UpdateFX(b);
}

void frmBass::Timer1_Timer() {
  auto& p = program();
  auto& main = p.Main();
  bool ended = false;
  ResumeNext([&] {
    if (Bass().BASS_ChannelIsActive(Channel()) == 0) {
      main.LbStatus(0).Caption = "stopped";
      ended = true;
      ClsMain().EndOfSong();
    }
  });
  // The rest of the tick follows the channel that just ended: once the next
  // song has started it would only describe (and, for a video, stop the
  // clock of) another file.
  if (ended) return;
  ResumeNext(
      [&] { Pozitie = Str(double(Bass().BASS_ChannelGetPosition(Channel(), BASS_POS_BYTE))); });
  ResumeNext(
      [&] { StreamLength = Str(double(Bass().BASS_ChannelGetLength(Channel(), BASS_POS_BYTE))); });
  ResumeNext([&] {
    if (Scrolling == "False") {
      main.SliderMoveMultimedia(0).value =
          static_cast<int>(CDbl(Pozitie.get()) / kBytesPerSliderStep);
    }
  });
  ResumeNext([&] {
    totalSeconds = WholeSeconds(Channel(), static_cast<QWORD>(CDbl(StreamLength.get())));
  });
  ResumeNext(
      [&] { playedSeconds = WholeSeconds(Channel(), static_cast<QWORD>(CDbl(Pozitie.get()))); });
  main.TimeCounter.Enabled = false;
  main.TSec.Caption = OneDigitMinutes(playedSeconds);
  main.TotalTime.Caption = OneDigitMinutes(totalSeconds);
  main.LbStatus(0).Caption = "Playing";
  RotateTagLine();
  if (playedSeconds >= totalSeconds - 3) {
    ResumeNext([&] { Bass().BASS_MusicFree(Channel()); });
    ResumeNext([&] { Bass().BASS_StreamFree(Channel()); });
    totalSeconds = 0;
    playedSeconds = 0;
  }
}

void frmBass::RotateTagLine() {
  auto& p = program();
  auto& info = p.Main().InfoIDTag.Caption;
  auto& library = p.MediaLibrary();
  ResumeNext([&] {
    const int tick = CInt(SwitchIDTag.get()) + 1;
    SwitchIDTag = std::to_string(tick);
    switch (tick) {
      case 1:
        info = "Artist: " + library.Text2T.Text.get();
        break;
      case 4:
        info = "Album: " + library.Text3T.Text.get();
        break;
      case 8:
        info = "Year: " + library.Text4T.Text.get();
        break;
      case 12:
        ShowTopPosition();
        info = p.Main().PozInTop.Caption.get();
        break;
      case 15:
        SwitchIDTag = "0";
        break;
      default:
        break;
    }
  });
}

void frmBass::StreamLength_Change() {
  auto& p = program();
  auto& main = p.Main();
  const std::string row = p.Playlist().PicList.Text();
  ResumeNext([&] { main.TimerMisc(0).Enabled = false; });
  ResumeNext([&] {
    main.SliderMoveMultimedia(0).max =
        static_cast<int>(CDbl(StreamLength.get()) / kBytesPerSliderStep);
  });
  ResumeNext([&] { p.MediaLibrary().LbCurrentTime(0).Caption = "0"; });
  ResumeNext([&] {
    if (p.process().CommandLine().empty()) main.Titlu.Caption = row;
  });
  ResumeNext([&] {
    if (p.DataForm().FromPlaylist == "True") main.Titlu.Caption = std::string(9, ' ') + row;
  });
  ResumeNext([&] { main.PiesaCurenta.Caption = row; });
  ResumeNext([&] { main.LbFileName(0).Caption = FileToPlay.Text; });
  ResumeNext([&] { ShowId3Tag(main.LbFileName(0).Caption); });
  ResumeNext([] { ClsMain().GetMP3Inf(); });
}

}  // namespace yarvo
