#pragma once
// org.mpris.MediaPlayer2.Player: the song, the state and the transport.
// Properties are read from the models when asked; methods run through the
// service (MprisService::Later), so every one answers at once.

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QString>
#include <QVariantMap>

#include "host/mpris/MprisFacts.h"

namespace yarvo {

class MprisService;

class MprisPlayer final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
  Q_PROPERTY(QString PlaybackStatus READ PlaybackStatus)
  Q_PROPERTY(QString LoopStatus READ LoopStatus)
  Q_PROPERTY(double Rate READ Rate)
  Q_PROPERTY(double MinimumRate READ Rate)
  Q_PROPERTY(double MaximumRate READ Rate)
  Q_PROPERTY(bool Shuffle READ Shuffle WRITE SetShuffle)
  Q_PROPERTY(QVariantMap Metadata READ Metadata)
  Q_PROPERTY(double Volume READ Volume WRITE SetVolume)
  Q_PROPERTY(qlonglong Position READ Position)
  Q_PROPERTY(bool CanGoNext READ CanGoNext)
  Q_PROPERTY(bool CanGoPrevious READ CanGoPrevious)
  Q_PROPERTY(bool CanPlay READ CanPlay)
  Q_PROPERTY(bool CanPause READ CanPause)
  Q_PROPERTY(bool CanSeek READ CanSeek)
  Q_PROPERTY(bool CanControl READ CanControl)

 public:
  static constexpr const char* kInterface = "org.mpris.MediaPlayer2.Player";

  explicit MprisPlayer(MprisService* service);

  QString PlaybackStatus() const;
  // The list never ends: after its last row comes its first.
  QString LoopStatus() const { return QStringLiteral("Playlist"); }
  double Rate() const { return 1.0; }
  bool Shuffle() const;
  void SetShuffle(bool on);
  QVariantMap Metadata() const;
  double Volume() const;
  void SetVolume(double volume);
  qlonglong Position() const;
  bool CanGoNext() const;
  bool CanGoPrevious() const;
  bool CanPlay() const;
  bool CanPause() const;
  bool CanSeek() const;
  bool CanControl() const { return true; }

  // The properties that differ between two readings, by their names and
  // with their new values.
  static QVariantMap Changes(const MprisFacts& before, const MprisFacts& now);

 public Q_SLOTS:
  void Next();
  void Previous();
  void Pause();
  void PlayPause();
  void Stop();
  void Play();
  void Seek(qlonglong Offset);
  void SetPosition(const QDBusObjectPath& TrackId, qlonglong Position);
  void OpenUri(const QString& Uri);

 Q_SIGNALS:
  void Seeked(qlonglong Position);

 private:
  MprisService& service_;
};

}  // namespace yarvo
