#pragma once
// The real executable run as a separate process: a program folder of its
// own, a private runtime and configuration folder, no sound server.

#include <signal.h>
#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "support/ProgramFixture.h"

namespace yarvo::test {

inline constexpr auto kPatience = std::chrono::seconds(60);

// Polls `condition` until it holds; false after `patience`.
bool WaitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds patience = kPatience);

// Starts `args`, the program looked up on PATH unless given as a path,
// with `env` (this process's environment when empty) and its standard error
// to `errorLog` when given; -1 when it cannot.
pid_t Spawn(std::vector<std::string> args, std::vector<std::string> env = {},
            const std::string& errorLog = {});

// The program folder is the folder of the executable: (a link to) the
// binary and the shipped data in a fresh folder.
class ProgramFolder {
 public:
  ProgramFolder();
  std::string Exe() const { return dir_ / "yarvo-player"; }
  std::string operator/(const std::string& relative) const { return dir_ / relative; }

 private:
  TempDir dir_;
};

// One run of the player; without `display` it runs on the offscreen
// platform. Its standard error goes to `errorLog` when given. It plays to
// the sound server `pulseServer` (a PULSE_SERVER value), or to none. Killed
// if still running when the object goes.
class Player {
 public:
  Player(const ProgramFolder& folder, const TempDir& home, std::vector<std::string> arguments = {},
         const std::string& display = {}, const std::string& errorLog = {},
         const std::string& pulseServer = {});
  ~Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  // Asks the player to close, as a session logout does, once it listens.
  void Close() { Signal(SIGTERM); }
  // Sends `signal` once the player has installed its handlers.
  void Signal(int signal);
  // The exit status; -2 when it did not end within `patience`, -3 when a
  // signal ended it.
  int Wait(std::chrono::seconds patience = kPatience);

 private:
  bool Catches(int signal) const;

  pid_t pid_ = -1;
  bool exited_ = false;
};

}  // namespace yarvo::test
