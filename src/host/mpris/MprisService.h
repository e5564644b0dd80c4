#pragma once
// The player on the session bus, as the MPRIS2 protocol has media players
// there: bus name org.mpris.MediaPlayer2.yarvo_player (with ".instance<pid>"
// behind it when another player holds that name), object
// /org/mpris/MediaPlayer2, the root and the Player interfaces. The
// desktop's media keys, lock screen, widgets and playerctl reach the player
// this way.
//
// What the desktop asks runs through MprisCommands, as one event of the
// program, once the call is answered: a message box that a song's failure
// opens never holds the caller. When the event loop has nothing left to do
// and the models have moved, the Player properties are read again and what
// changed goes out in one PropertiesChanged; a jump of the song's position
// (a seek, from the desktop or from the seek bar) goes out as Seeked.
//
// Without a session bus the player runs on alone and says so once on
// standard error. Interface thread only.

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <string>

#include "host/mpris/MprisCommands.h"
#include "host/mpris/MprisFacts.h"
#include "host/mpris/MprisModel.h"
#include "host/mpris/SeekWatch.h"

namespace yarvo {

class MprisPlayer;
class Program;
class WindowHosts;

class MprisService final : public QObject {
 public:
  MprisService(Program& program, WindowHosts& windows);
  ~MprisService() override;
  MprisService(const MprisService&) = delete;
  MprisService& operator=(const MprisService&) = delete;

  // What the adaptors read and ask.
  MprisFacts Facts();
  std::int64_t Position();  // microseconds
  // Runs `command` as an event of the program once the running call is
  // answered.
  void Later(std::function<void(MprisCommands&)> command);
  // The same, for a command that may move the song: the position it went
  // to is told as Seeked.
  void LaterSeek(std::function<std::optional<std::int64_t>(MprisCommands&)> command);
  // Brings the player's window (the main or the mini one) to the front.
  void Raise();
  // Closes the player as the window system's close does: it saves its state.
  void Quit();

 private:
  bool Register();
  // When the models moved: tells the desktop what changed.
  void Follow();
  void WatchSeeks(const MprisFacts& now, const std::string& clock);
  void TellSeek(std::int64_t position);

  Program& program_;
  WindowHosts& windows_;
  MprisModel model_;
  MprisCommands commands_{model_};
  SeekWatch seeks_;
  MprisPlayer* player_ = nullptr;  // owned as a child
  QString busName_;                // "" when the player is not on the bus
  MprisFacts told_;
  // The time text the windows show: it moves once a second while a song
  // plays, and a seek moves it too.
  std::string clock_;
  std::uint64_t followedRevision_ = ~std::uint64_t{0};
};

}  // namespace yarvo
