#include "support/SoundServer.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

extern char** environ;

namespace yarvo::test {

ChildProcess::ChildProcess(std::vector<std::string> argv, const std::filesystem::path& output,
                           const std::filesystem::path& errors) {
  std::vector<char*> args;
  for (auto& a : argv) args.push_back(a.data());
  args.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (const auto& [fd, path] : {std::pair{STDOUT_FILENO, &output}, {STDERR_FILENO, &errors}})
    posix_spawn_file_actions_addopen(&actions, fd, path->c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0644);
  if (posix_spawnp(&pid_, args[0], &actions, nullptr, args.data(), environ) != 0) pid_ = -1;
  posix_spawn_file_actions_destroy(&actions);
}

bool ChildProcess::Running() const { return pid_ > 0 && waitpid(pid_, nullptr, WNOHANG) == 0; }

void ChildProcess::Finish() {
  if (pid_ <= 0) return;
  kill(pid_, SIGTERM);
  waitpid(pid_, nullptr, 0);
  pid_ = -1;
}

std::vector<float> ReadRecording(const std::filesystem::path& raw) {
  std::error_code error;
  std::vector<float> samples(std::filesystem::file_size(raw, error) / sizeof(float));
  if (error) return {};
  std::ifstream(raw, std::ios::binary)
      .read(reinterpret_cast<char*>(samples.data()),
            static_cast<std::streamsize>(samples.size() * sizeof(float)));
  return samples;
}

SoundServer::SoundServer() : socket_(dir_ / "native") {
  // Everything the server and its clients keep goes to the temporary
  // folder: running as root, the server would otherwise use root's home.
  for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH",
                           "PULSE_CONFIG_PATH", "PULSE_SERVER", "DBUS_SESSION_BUS_ADDRESS"}) {
    const char* value = std::getenv(name);
    saved_.emplace_back(name, value != nullptr ? std::optional<std::string>(value) : std::nullopt);
    setenv(name, dir_.path().c_str(), 1);
  }
  setenv("PULSE_SERVER", PulseServer().c_str(), 1);
  // No session bus: a server claims its one name there, so a second test's
  // server running at the same time would give up.
  setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + (dir_ / "no-bus").string()).c_str(), 1);
  auto server = std::make_unique<ChildProcess>(
      std::vector<std::string>{
          "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--system=false",
          "--disallow-exit", "--use-pid-file=no", "--log-target=stderr", "--log-level=info", "-L",
          "module-null-sink sink_name=" + std::string(kSink) + " rate=" + std::to_string(kRate),
          "-L", "module-native-protocol-unix auth-anonymous=1 socket=" + socket_.string()},
      "/dev/null", dir_ / "server.log");
  using namespace std::chrono_literals;
  for (int i = 0; i < 50 && server->Running(); ++i) {
    if (std::system("pactl info >/dev/null 2>&1") == 0) {
      server_ = std::move(server);
      return;
    }
    std::this_thread::sleep_for(100ms);
  }
}

SoundServer::~SoundServer() {
  server_.reset();
  for (const auto& [name, value] : saved_) {
    if (value)
      setenv(name, value->c_str(), 1);
    else
      unsetenv(name);
  }
}

std::string SoundServer::Log() const {
  std::ostringstream text;
  text << std::ifstream(dir_ / "server.log").rdbuf();
  return text.str();
}

std::unique_ptr<ChildProcess> SoundServer::Record(const std::filesystem::path& raw) const {
  return std::make_unique<ChildProcess>(
      std::vector<std::string>{"parec", "--device=" + std::string(kSink) + ".monitor",
                               "--format=float32le", "--rate=" + std::to_string(kRate),
                               "--channels=2", "--raw", "--latency-msec=20"},
      raw);
}

}  // namespace yarvo::test
