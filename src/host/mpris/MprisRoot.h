#pragma once
// org.mpris.MediaPlayer2: who the player is, and the window-level requests.

#include <QDBusAbstractAdaptor>
#include <QString>
#include <QStringList>

namespace yarvo {

class MprisService;

class MprisRoot final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
  Q_PROPERTY(bool CanQuit READ CanQuit)
  Q_PROPERTY(bool CanRaise READ CanRaise)
  Q_PROPERTY(bool HasTrackList READ HasTrackList)
  Q_PROPERTY(QString Identity READ Identity)
  Q_PROPERTY(QString DesktopEntry READ DesktopEntry)
  Q_PROPERTY(QStringList SupportedUriSchemes READ SupportedUriSchemes)
  Q_PROPERTY(QStringList SupportedMimeTypes READ SupportedMimeTypes)

 public:
  explicit MprisRoot(MprisService* service);

  bool CanQuit() const { return true; }
  bool CanRaise() const { return true; }
  bool HasTrackList() const { return false; }
  QString Identity() const;
  QString DesktopEntry() const;
  QStringList SupportedUriSchemes() const;
  QStringList SupportedMimeTypes() const;

 public Q_SLOTS:
  void Raise();
  void Quit();

 private:
  MprisService& service_;
};

}  // namespace yarvo
