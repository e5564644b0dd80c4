#include "host/mpris/MprisModel.h"

#include <algorithm>
#include <string>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/BassApi.h"
#include "engines/frmBass.h"
#include "engines/media/MCore.h"
#include "host/mpris/PlayerState.h"
#include "playlist/ClsPl.h"
#include "playlist/Id3Module.h"
#include "playlist/Id3Tag.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

constexpr QWORD kNoBytes = ~QWORD{0};  // the audio library's failed length

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string::npos ? ""
                                    : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The engine's length of the song it plays, in seconds; 0 when it does not
// know it (yet).
double LengthSeconds(const frmBass* engine) {
  auto& p = program();
  if (AudioEngineOwnsTheSong(engine)) {
    const auto channel = static_cast<DWORD>(CLng(engine->Chan.get()));
    const QWORD bytes = p.bass().BASS_ChannelGetLength(channel, BASS_POS_BYTE);
    return bytes == kNoBytes ? 0
                             : std::max(0.0, p.bass().BASS_ChannelBytes2Seconds(channel, bytes));
  }
  const std::string& total = p.MediaLibrary().LbTotalTime(0).Caption;
  return total.empty() ? 0 : std::max(0.0, CDbl(total));
}

void ReadTag(MprisTrack& track) {
  Id3Tag tag;
  if (readId3TagFile(track.path, tag)) {
    const CodePage page = TagCodePage();
    track.title = Trimmed(fieldText(tag.Title, page));
    track.artist = Trimmed(fieldText(tag.Artist, page));
    track.album = Trimmed(fieldText(tag.Album, page));
  }
  if (track.title.empty()) track.title = TitleOf(track.path);
  if (track.title.empty()) track.title = GetLastBackSlash(track.path);
}

}  // namespace

MprisFacts MprisModel::Read() {
  auto& p = program();
  const frmBass* engine = LoadedEngine();
  MprisFacts facts;
  facts.playbackStatus = PlaybackStatus(engine);
  const bool loaded = facts.playbackStatus != "Stopped";
  facts.track = TrackOf(p.Main().LbFileName(0).Caption);
  if (loaded && facts.track.length == 0) {
    track_.length = Microseconds(LengthSeconds(engine));
    facts.track.length = track_.length;
  }
  facts.volume = p.Main().Volum.value / 100.0;
  facts.shuffle = p.Options().Option2.Value;
  const int rows = p.Playlist().PicList.ListCount();
  facts.canPlay = loaded || !facts.track.path.empty() || rows > 0;
  facts.canPause = loaded;
  facts.canSeek = loaded && facts.track.length > 0;
  facts.canGoNext = rows > 0 || p.DataForm().ListaProgramate.ListCount() > 0;
  facts.canGoPrevious = rows > 0;
  return facts;
}

const MprisTrack& MprisModel::TrackOf(const std::string& path) {
  if (path != track_.path) {
    track_ = MprisTrack{};
    track_.path = path;
    if (!path.empty()) {
      track_.id = "/org/yarvo_player/track/" + std::to_string(++tracksSeen_);
      ReadTag(track_);
    }
  }
  return track_;
}

double MprisModel::PositionSeconds() const {
  auto& p = program();
  const frmBass* engine = LoadedEngine();
  const std::string status = PlaybackStatus(engine);
  if (status == "Stopped") return 0;
  if (AudioEngineOwnsTheSong(engine)) {
    const auto channel = static_cast<DWORD>(CLng(engine->Chan.get()));
    const double seconds = p.bass().BASS_ChannelBytes2Seconds(
        channel, p.bass().BASS_ChannelGetPosition(channel, BASS_POS_BYTE));
    if (seconds >= 0) return seconds;
    // The engine lets go of a song in its last seconds, a little before the
    // next one starts: it stands where the engine's last tick saw it.
    const double total = CDbl(engine->StreamLength.get());
    return total > 0 ? Seconds(track_.length) * CDbl(engine->Pozitie.get()) / total : 0;
  }
  const double framesPerSecond = CDbl(p.MediaLibrary().LbFramesPerSecond(0).Caption.get());
  const std::int32_t frames = MciPosition(ClsMain().mciAlias);
  return frames >= 0 && framesPerSecond > 0 ? frames / framesPerSecond : 0;
}

}  // namespace yarvo
