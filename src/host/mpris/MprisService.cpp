#include "host/mpris/MprisService.h"

#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QMetaObject>
#include <QStringList>

#include <chrono>
#include <iostream>

#include "core/DataForm.h"
#include "core/form/Property.h"
#include "director/Program.h"
#include "host/FormHost.h"
#include "host/WindowHosts.h"
#include "host/mpris/MprisPlayer.h"
#include "host/mpris/MprisRoot.h"
#include "platform/qt/QtEvents.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {

namespace {

const QString kObjectPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString kBusName = QStringLiteral("org.mpris.MediaPlayer2.yarvo_player");

double SteadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

MprisService::MprisService(Program& program, WindowHosts& windows)
    : program_(program), windows_(windows) {
  if (!Register()) return;
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          [this] { Follow(); });
}

MprisService::~MprisService() {
  if (busName_.isEmpty()) return;
  QDBusConnection bus = QDBusConnection::sessionBus();
  bus.unregisterService(busName_);
  bus.unregisterObject(kObjectPath);
}

bool MprisService::Register() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) {
    std::cerr << "Yarvo Player: no session bus, so the desktop's media controls cannot reach "
                 "the player ("
              << bus.lastError().message().toStdString() << ")\n";
    return false;
  }
  new MprisRoot(this);
  player_ = new MprisPlayer(this);
  // The object first: a client that sees the name may call at once.
  if (bus.registerObject(kObjectPath, this, QDBusConnection::ExportAdaptors)) {
    for (const QString& name :
         {kBusName, kBusName + QStringLiteral(".instance") + QString::number(::getpid())}) {
      if (bus.registerService(name)) {
        busName_ = name;
        return true;
      }
    }
    bus.unregisterObject(kObjectPath);
  }
  std::cerr << "Yarvo Player: the session bus refused the player ("
            << bus.lastError().message().toStdString() << ")\n";
  return false;
}

MprisFacts MprisService::Facts() {
  MprisFacts facts;
  QtEvents::Dispatch([&] { facts = model_.Read(); });
  return facts;
}

std::int64_t MprisService::Position() {
  double seconds = 0;
  QtEvents::Dispatch([&] { seconds = model_.PositionSeconds(); });
  return Microseconds(seconds);
}

void MprisService::Later(std::function<void(MprisCommands&)> command) {
  QMetaObject::invokeMethod(
      this,
      [this, command = std::move(command)] { QtEvents::Dispatch([&] { command(commands_); }); },
      Qt::QueuedConnection);
}

void MprisService::LaterSeek(std::function<std::optional<std::int64_t>(MprisCommands&)> command) {
  Later([this, command = std::move(command)](MprisCommands& commands) {
    if (const auto position = command(commands)) TellSeek(*position);
  });
}

void MprisService::Raise() {
  Form* shown = nullptr;
  QtEvents::Dispatch([&] {
    Form& form = program_.DataForm().MiniMode == "True" ? static_cast<Form&>(program_.MiniForm())
                                                        : program_.Main();
    form.WindowState = WindowState::Normal;
    shown = &form;
  });
  if (shown == nullptr) return;
  windows_.Sync();
  if (FormHost* host = windows_.HostOf(*shown)) {
    host->raise();
    host->activateWindow();
  }
}

// After the answer: the close saves the state and ends the event loop.
void MprisService::Quit() {
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (QtEvents::Ending()) return;
        if (FormHost* main = windows_.HostOf(program_.Main())) main->close();
      },
      Qt::QueuedConnection);
}

void MprisService::Follow() {
  if (QtEvents::Ending() || modelRevision() == followedRevision_) return;
  followedRevision_ = modelRevision();
  MprisFacts now = told_;
  std::string clock = clock_;
  QtEvents::Dispatch([&] {
    now = model_.Read();
    clock = program_.Main().TSec.Caption;
  });
  WatchSeeks(now, clock);
  clock_ = clock;
  // Most changes of the model (a frame of the visualisation) change nothing
  // the desktop is told.
  if (now == told_) return;
  const QVariantMap changes = MprisPlayer::Changes(told_, now);
  told_ = now;
  if (changes.isEmpty()) return;
  QDBusMessage signal =
      QDBusMessage::createSignal(kObjectPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                                 QStringLiteral("PropertiesChanged"));
  signal << QString::fromLatin1(MprisPlayer::kInterface) << changes << QStringList();
  QDBusConnection::sessionBus().send(signal);
}

// Read at the changes of state and song and at the ticks of the windows'
// clock, so an idle player reads nothing.
void MprisService::WatchSeeks(const MprisFacts& now, const std::string& clock) {
  const bool newSong = now.track.id != told_.track.id;
  if (!newSong && clock == clock_ && now.playbackStatus == told_.playbackStatus) return;
  double position = 0;
  QtEvents::Dispatch([&] { position = model_.PositionSeconds(); });
  const bool running = now.playbackStatus == "Playing";
  if (newSong) {
    seeks_.Restart(position, SteadySeconds(), running);
  } else if (seeks_.Jumped(position, SteadySeconds(), running)) {
    emit player_->Seeked(Microseconds(position));
  }
}

void MprisService::TellSeek(std::int64_t position) {
  seeks_.Restart(Seconds(position), SteadySeconds(), model_.Read().playbackStatus == "Playing");
  emit player_->Seeked(position);
}

}  // namespace yarvo
