#pragma once
// The real executable run as a separate process: a program folder of its
// own, a private runtime and configuration folder, no sound server.

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "support/ProgramFixture.h"

namespace yarvo::test {

inline constexpr auto kPatience = std::chrono::seconds(60);

// Starts `args`, the program looked up on PATH unless given as a path,
// with `env` (this process's environment when empty); -1 when it cannot.
pid_t Spawn(std::vector<std::string> args, std::vector<std::string> env = {});

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
// platform. Killed if still running when the object goes.
class Player {
 public:
  Player(const ProgramFolder& folder, const TempDir& home, std::vector<std::string> arguments = {},
         const std::string& display = {});
  ~Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  // Asks the player to close, as a session logout does, once it listens.
  void Close();
  // The exit status; -2 when it did not end in time.
  int Wait();

 private:
  bool CatchesSigterm() const;

  pid_t pid_ = -1;
  bool exited_ = false;
};

}  // namespace yarvo::test
