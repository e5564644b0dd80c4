#include "PlayerProcess.h"

#include <fcntl.h>
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

bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(50ms);
  }
  return true;
}

pid_t Spawn(std::vector<std::string> args, std::vector<std::string> env,
            const std::string& errorLog) {
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
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (!errorLog.empty())
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errorLog.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0644);
  pid_t pid = -1;
  const int started = posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), envp.data());
  posix_spawn_file_actions_destroy(&actions);
  return started == 0 ? pid : -1;
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
               const std::string& display, const std::string& errorLog,
               const std::string& pulseServer) {
  std::vector<std::string> env;
  for (char** e = environ; *e; ++e) {
    const std::string entry = *e;
    if (entry.rfind("DISPLAY=", 0) && entry.rfind("WAYLAND_DISPLAY=", 0) &&
        entry.rfind("XDG_", 0) && entry.rfind("QT_QPA_PLATFORM=", 0) && entry.rfind("PULSE_", 0))
      env.push_back(entry);
  }
  env.push_back("XDG_RUNTIME_DIR=" + home.path().string());
  env.push_back("XDG_CONFIG_HOME=" + (home.path() / "config").string());
  env.push_back("PULSE_SERVER=" + (pulseServer.empty()
                                       ? "unix:" + (home.path() / "no-sound-server").string()
                                       : pulseServer));
  if (!display.empty()) env.push_back("DISPLAY=" + display);
  std::vector<std::string> args{folder.Exe()};
  args.insert(args.end(), arguments.begin(), arguments.end());
  pid_ = Spawn(std::move(args), std::move(env), errorLog);
}

Player::~Player() {
  if (pid_ > 0 && !exited_) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
}

void Player::Signal(int signal) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!Catches(signal) && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(10ms);
  kill(pid_, signal);
}

int Player::Wait(std::chrono::seconds patience) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  int status = 0;
  while (waitpid(pid_, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) return -2;
    std::this_thread::sleep_for(10ms);
  }
  exited_ = true;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -3;
}

bool Player::Catches(int signal) const {
  std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("SigCgt:", 0) == 0)
      return (std::stoull(line.substr(7), nullptr, 16) >> (signal - 1)) & 1u;
  }
  return false;
}

}  // namespace yarvo::test
