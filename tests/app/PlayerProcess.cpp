#include "PlayerProcess.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <thread>

extern char** environ;

namespace yarvo::test {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

pid_t Spawn(std::vector<std::string> args, std::vector<std::string> env) {
  if (env.empty()) {
    for (char** e = environ; *e; ++e) env.emplace_back(*e);
  }
  auto pointers = [](std::vector<std::string>& strings) {
    std::vector<char*> list;
    for (auto& s : strings) list.push_back(s.data());
    list.push_back(nullptr);
    return list;
  };
  auto argv = pointers(args), envp = pointers(env);
  pid_t pid = -1;
  return posix_spawnp(&pid, argv[0], nullptr, nullptr, argv.data(), envp.data()) == 0 ? pid : -1;
}

ProgramFolder::ProgramFolder() {
  // What ships beside the executable comes along, as an installation has it.
  fs::copy(YARVO_SHIPPED_DATA, dir_.path(), fs::copy_options::recursive);
  fs::create_directories(dir_.path() / "Data");
  std::error_code error;
  fs::create_hard_link(YARVO_PLAYER_EXE, Exe(), error);
  if (error) fs::copy_file(YARVO_PLAYER_EXE, Exe());
}

Player::Player(const ProgramFolder& folder, const TempDir& home, std::vector<std::string> arguments,
               const std::string& display) {
  std::vector<std::string> env;
  for (char** e = environ; *e; ++e) {
    const std::string entry = *e;
    if (entry.rfind("DISPLAY=", 0) && entry.rfind("WAYLAND_DISPLAY=", 0) &&
        entry.rfind("XDG_", 0) && entry.rfind("QT_QPA_PLATFORM=", 0) && entry.rfind("PULSE_", 0))
      env.push_back(entry);
  }
  env.push_back("XDG_RUNTIME_DIR=" + home.path().string());
  env.push_back("XDG_CONFIG_HOME=" + (home.path() / "config").string());
  env.push_back("PULSE_SERVER=unix:" + (home.path() / "no-sound-server").string());
  env.push_back("ASAN_OPTIONS=detect_leaks=0");
  if (!display.empty()) env.push_back("DISPLAY=" + display);
  std::vector<std::string> args{folder.Exe()};
  args.insert(args.end(), arguments.begin(), arguments.end());
  pid_ = Spawn(std::move(args), std::move(env));
}

Player::~Player() {
  if (pid_ > 0 && !exited_) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
}

void Player::Close() {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!CatchesSigterm() && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(10ms);
  kill(pid_, SIGTERM);
}

int Player::Wait() {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  int status = 0;
  while (waitpid(pid_, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) return -2;
    std::this_thread::sleep_for(10ms);
  }
  exited_ = true;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -3;
}

bool Player::CatchesSigterm() const {
  std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("SigCgt:", 0) == 0)
      return (std::stoull(line.substr(7), nullptr, 16) >> (SIGTERM - 1)) & 1u;
  }
  return false;
}

}  // namespace yarvo::test
