#include "host/mpris/MprisCommands.h"

#include <algorithm>
#include <cmath>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/BassApi.h"
#include "engines/frmBass.h"
#include "engines/media/MCore.h"
#include "host/mpris/MprisModel.h"
#include "host/mpris/PlayerState.h"
#include "playlist/ClsPl.h"
#include "playlist/MediaLibrary.h"
#include "settings/Options.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

// The audio engine counts in bytes of its channel, as many to the second
// all through the song.
void SeekAudio(const frmBass& engine, double seconds) {
  BassApi& bass = program().bass();
  const auto channel = static_cast<DWORD>(CLng(engine.Chan.get()));
  const QWORD length = bass.BASS_ChannelGetLength(channel, BASS_POS_BYTE);
  const double lengthSeconds = bass.BASS_ChannelBytes2Seconds(channel, length);
  if (lengthSeconds <= 0) return;
  const auto bytes = static_cast<QWORD>(static_cast<double>(length) * (seconds / lengthSeconds));
  bass.BASS_ChannelSetPosition(channel, bytes, BASS_POS_BYTE);
}

// As the seek bar does on its release: the media service seeks in frames
// and plays on from there.
void SeekMedia(double seconds) {
  const double framesPerSecond = CDbl(program().MediaLibrary().LbFramesPerSecond(0).Caption.get());
  if (framesPerSecond <= 0) return;
  const auto frames = static_cast<std::int32_t>(std::lround(seconds * framesPerSecond));
  ShowMciResult(MciSeekPlay(ClsMain().mciAlias, frames));
}

}  // namespace

bool MprisCommands::Playing() const { return PlaybackStatus(LoadedEngine()) == "Playing"; }

void MprisCommands::Play() {
  const std::string status = PlaybackStatus(LoadedEngine());
  if (status == "Playing") return;
  ClsMain director;
  if (status == "Paused" || !program().Main().LbFileName(0).Caption.get().empty()) {
    director.Play();
  } else {
    director.PlayNext();
  }
}

void MprisCommands::Pause() {
  if (Playing()) ClsMain().Pause();
}

void MprisCommands::PlayPause() {
  if (Playing()) {
    ClsMain().Pause();
  } else {
    Play();
  }
}

void MprisCommands::Stop() {
  if (PlaybackStatus(LoadedEngine()) != "Stopped") ClsMain().SStop();
}

void MprisCommands::Next() { ClsMain().PlayNext(); }

void MprisCommands::Previous() { ClsMain().PlayPrevious(); }

std::optional<std::int64_t> MprisCommands::Seek(std::int64_t offset) {
  const MprisFacts facts = model_.Read();
  if (!facts.canSeek) return std::nullopt;
  const std::int64_t position = Microseconds(model_.PositionSeconds()) + offset;
  if (position >= facts.track.length) {
    Next();
    return std::nullopt;
  }
  return SeekTo(std::max<std::int64_t>(position, 0));
}

std::optional<std::int64_t> MprisCommands::SetPosition(const std::string& trackId,
                                                       std::int64_t position) {
  const MprisFacts facts = model_.Read();
  if (!facts.canSeek || trackId != facts.track.id || position < 0 || position > facts.track.length)
    return std::nullopt;
  return SeekTo(position);
}

std::int64_t MprisCommands::SeekTo(std::int64_t position) {
  const frmBass* engine = LoadedEngine();
  const double seconds = Seconds(position);
  if (AudioEngineOwnsTheSong(engine)) {
    SeekAudio(*engine, seconds);
  } else {
    SeekMedia(seconds);
  }
  return Microseconds(model_.PositionSeconds());
}

void MprisCommands::SetVolume(double volume) {
  if (std::isnan(volume)) return;
  auto& main = program().Main();
  main.Volum.value = std::clamp(volume, 0.0, 1.0) * 100.0;
  main.VolumChange();
}

void MprisCommands::SetShuffle(bool on) {
  auto& p = program();
  if (on == p.Options().Option2.Value) return;
  auto& menus = p.FormMeniuri();
  const Menu& item = on ? menus.ShuffleOnMenu : menus.ShuffleOfMenu;
  if (item.Click) item.Click();
}

void MprisCommands::OpenFile(const std::string& path) {
  auto& p = program();
  ClsMain director;
  // A paused song would be resumed by the director's Play: it goes first,
  // as it does before a double click on the playlist.
  if (PlaybackStatus(LoadedEngine()) == "Paused") director.SStop();
  p.Main().LbFileName(0).Caption = path;
  p.DataForm().FromPlaylist = "False";
  director.Play();
  ExtractFilename(path, path);
}

}  // namespace yarvo
