#pragma once
// A desktop of a test's own, as the player meets one: the session bus that
// dbus-run-session started for the test, a private X server, and a private
// PulseAudio server whose null sink is recorded. The player runs as a real
// process in it; playerctl, dbus-send and dbus-monitor speak to it over the
// bus, as a desktop's media controls do.

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "../app/PlayerProcess.h"
#include "../app/XServer.h"
#include "support/SoundServer.h"
#include "support/TempDir.h"

namespace yarvo::test {

// Runs a shell command; its standard output, without the last line break.
std::string Output(const std::string& command);

// `text` in single quotes for the shell.
std::string Quoted(const std::string& text);

// A player process with the environment the caller gives, which it cannot
// survive: it is killed when this goes if it still runs.
class PlayerRun {
 public:
  PlayerRun(std::vector<std::string> argv, std::vector<std::string> env,
            const std::string& errorLog);
  ~PlayerRun();
  PlayerRun(const PlayerRun&) = delete;
  PlayerRun& operator=(const PlayerRun&) = delete;

  // Asks it to end as a session logout does, once it has its handler.
  void Close();
  // The exit status; -2 when it did not end in time, -3 when a signal ended it.
  int Wait(std::chrono::seconds patience = std::chrono::seconds(60));

 private:
  pid_t pid_ = -1;
  bool exited_ = false;
};

// The bus's traffic about the player's object, as dbus-monitor prints it.
class BusMonitor {
 public:
  BusMonitor(const std::string& bus, const std::filesystem::path& log);
  ~BusMonitor();
  BusMonitor(const BusMonitor&) = delete;
  BusMonitor& operator=(const BusMonitor&) = delete;

  // Each signal message printed so far, header line and arguments.
  std::vector<std::string> Signals(const std::string& member) const;
  // Whether a PropertiesChanged told `property` with a value that prints
  // as `value`.
  bool Told(const std::string& property, const std::string& value) const;

 private:
  std::filesystem::path log_;
  pid_t pid_ = -1;
};

class DesktopSession {
 public:
  DesktopSession();

  // Why the session cannot be had here; "" when it is ready.
  std::string Missing() const;
  const std::string& Bus() const { return bus_; }
  const TempDir& Home() const { return home_; }

  // An MP3 file of `seconds` of a sine at `hertz`, with an ID3v1 tag.
  std::filesystem::path Tone(const std::string& name, int hertz, int seconds,
                             const std::string& title, const std::string& artist = {},
                             const std::string& album = {}) const;

  // Starts the player from `folder` on this desktop.
  std::unique_ptr<PlayerRun> StartPlayer(const ProgramFolder& folder,
                                         std::vector<std::string> arguments = {}) const;

  // playerctl with `arguments`, for the player only; its output.
  std::string Playerctl(const std::string& arguments) const;
  // Calls a method of the root interface with dbus-send; whether it was answered.
  bool CallRoot(const std::string& method) const;
  // Presses `key` (an X key name) in the player's main window, as a user
  // does with the pointer over it.
  void PressInPlayersWindow(const std::string& key) const;

  // Starts recording the sink; the sample where it stands now.
  void Record();
  std::size_t Now() const;
  // The strongest frequency of the half second from `from` plus a quarter
  // second (for the output's latency), once it is recorded.
  double PitchAfter(std::size_t from) const;
  // The loudness (root mean square) of the same half second.
  double LevelAfter(std::size_t from) const;

 private:
  std::vector<float> LeftAfter(std::size_t from) const;

  // Read before the sound server takes the bus from the environment.
  std::string bus_;
  XServer x_;
  SoundServer sound_;
  TempDir home_;
  std::unique_ptr<ChildProcess> recorder_;
};

}  // namespace yarvo::test
