#include "host/mpris/MprisPlayer.h"

#include <QStringList>

#include "host/mpris/MprisService.h"
#include "platform/FileUri.h"

namespace yarvo {

namespace {

QString Text(const std::string& text) { return QString::fromStdString(text); }

QVariantMap MetadataOf(const MprisTrack& track) {
  if (track.id.empty()) return {};
  QVariantMap metadata{
      {QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(Text(track.id)))},
      {QStringLiteral("xesam:title"), Text(track.title)},
      {QStringLiteral("xesam:url"), Text(UriOfLocalPath(track.path))},
  };
  if (!track.artist.empty())
    metadata[QStringLiteral("xesam:artist")] = QStringList{Text(track.artist)};
  if (!track.album.empty()) metadata[QStringLiteral("xesam:album")] = Text(track.album);
  if (track.length > 0) metadata[QStringLiteral("mpris:length")] = qlonglong{track.length};
  return metadata;
}

}  // namespace

MprisPlayer::MprisPlayer(MprisService* service)
    : QDBusAbstractAdaptor(service), service_(*service) {}

QString MprisPlayer::PlaybackStatus() const { return Text(service_.Facts().playbackStatus); }

bool MprisPlayer::Shuffle() const { return service_.Facts().shuffle; }

void MprisPlayer::SetShuffle(bool on) {
  service_.Later([on](MprisCommands& commands) { commands.SetShuffle(on); });
}

QVariantMap MprisPlayer::Metadata() const { return MetadataOf(service_.Facts().track); }

double MprisPlayer::Volume() const { return service_.Facts().volume; }

void MprisPlayer::SetVolume(double volume) {
  service_.Later([volume](MprisCommands& commands) { commands.SetVolume(volume); });
}

qlonglong MprisPlayer::Position() const { return service_.Position(); }

bool MprisPlayer::CanGoNext() const { return service_.Facts().canGoNext; }

bool MprisPlayer::CanGoPrevious() const { return service_.Facts().canGoPrevious; }

bool MprisPlayer::CanPlay() const { return service_.Facts().canPlay; }

bool MprisPlayer::CanPause() const { return service_.Facts().canPause; }

bool MprisPlayer::CanSeek() const { return service_.Facts().canSeek; }

QVariantMap MprisPlayer::Changes(const MprisFacts& before, const MprisFacts& now) {
  QVariantMap changes;
  auto compare = [&](const char* name, const auto& a, const auto& b, const QVariant& value) {
    if (!(a == b)) changes[QString::fromLatin1(name)] = value;
  };
  compare("PlaybackStatus", before.playbackStatus, now.playbackStatus, Text(now.playbackStatus));
  compare("Metadata", before.track, now.track, MetadataOf(now.track));
  compare("Volume", before.volume, now.volume, now.volume);
  compare("Shuffle", before.shuffle, now.shuffle, now.shuffle);
  compare("CanPlay", before.canPlay, now.canPlay, now.canPlay);
  compare("CanPause", before.canPause, now.canPause, now.canPause);
  compare("CanSeek", before.canSeek, now.canSeek, now.canSeek);
  compare("CanGoNext", before.canGoNext, now.canGoNext, now.canGoNext);
  compare("CanGoPrevious", before.canGoPrevious, now.canGoPrevious, now.canGoPrevious);
  return changes;
}

void MprisPlayer::Next() {
  service_.Later([](MprisCommands& commands) { commands.Next(); });
}

void MprisPlayer::Previous() {
  service_.Later([](MprisCommands& commands) { commands.Previous(); });
}

void MprisPlayer::Pause() {
  service_.Later([](MprisCommands& commands) { commands.Pause(); });
}

void MprisPlayer::PlayPause() {
  service_.Later([](MprisCommands& commands) { commands.PlayPause(); });
}

void MprisPlayer::Stop() {
  service_.Later([](MprisCommands& commands) { commands.Stop(); });
}

void MprisPlayer::Play() {
  service_.Later([](MprisCommands& commands) { commands.Play(); });
}

void MprisPlayer::Seek(qlonglong Offset) {
  service_.LaterSeek([Offset](MprisCommands& commands) { return commands.Seek(Offset); });
}

void MprisPlayer::SetPosition(const QDBusObjectPath& TrackId, qlonglong Position) {
  service_.LaterSeek([track = TrackId.path().toStdString(), Position](MprisCommands& commands) {
    return commands.SetPosition(track, Position);
  });
}

// Only local files: the player plays no stream by address.
void MprisPlayer::OpenUri(const QString& Uri) {
  auto path = LocalPathOfUri(Uri.toStdString());
  if (!path) return;
  service_.Later([path = std::move(*path)](MprisCommands& commands) { commands.OpenFile(path); });
}

}  // namespace yarvo
