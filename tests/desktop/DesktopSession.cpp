#include "DesktopSession.h"

#include <signal.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <thread>

#include "support/SoundAnalysis.h"
#include "playlist/Id3Tag.h"

extern char** environ;

namespace yarvo::test {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

constexpr std::size_t kFrameBytes = 2 * sizeof(float);  // parec's stereo float pairs
constexpr double kLatency = 0.25;                       // seconds the output lags
constexpr double kListen = 0.5;

// Whether `pid` has a handler for `signal` installed.
bool Catches(pid_t pid, int signal) {
  std::ifstream status("/proc/" + std::to_string(pid) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("SigCgt:", 0) == 0)
      return (std::stoull(line.substr(7), nullptr, 16) >> (signal - 1)) & 1u;
  }
  return false;
}

}  // namespace

std::string Output(const std::string& command) {
  std::string text;
  if (FILE* pipe = ::popen(command.c_str(), "r")) {
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
      text.append(buffer, n);
    ::pclose(pipe);
  }
  if (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

PlayerRun::PlayerRun(std::vector<std::string> argv, std::vector<std::string> env,
                     const std::string& errorLog)
    : pid_(Spawn(std::move(argv), std::move(env), errorLog)) {}

PlayerRun::~PlayerRun() {
  if (pid_ > 0 && !exited_) {
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
  }
}

void PlayerRun::Close() {
  WaitUntil([this] { return Catches(pid_, SIGTERM); });
  ::kill(pid_, SIGTERM);
}

int PlayerRun::Wait(std::chrono::seconds patience) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  int status = 0;
  while (::waitpid(pid_, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) return -2;
    std::this_thread::sleep_for(10ms);
  }
  exited_ = true;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -3;
}

BusMonitor::BusMonitor(const std::string& bus, const fs::path& log) : log_(log) {
  pid_ = Spawn({"sh", "-c",
                "exec dbus-monitor --address " + Quoted(bus) +
                    " \"type='signal',path='/org/mpris/MediaPlayer2'\" > " + Quoted(log.string())});
  // dbus-monitor prints the bus's greeting once it listens.
  WaitUntil([this] {
    std::ifstream in(log_);
    return in.peek() != std::ifstream::traits_type::eof();
  });
}

BusMonitor::~BusMonitor() {
  if (pid_ <= 0) return;
  ::kill(pid_, SIGTERM);
  ::waitpid(pid_, nullptr, 0);
}

std::vector<std::string> BusMonitor::Signals(const std::string& member) const {
  std::ifstream in(log_);
  std::vector<std::string> messages;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("signal ", 0) == 0) {
      messages.push_back(line + "\n");
    } else if (!messages.empty()) {
      messages.back() += line + "\n";
    }
  }
  std::erase_if(messages, [&](const std::string& message) {
    return message.find("member=" + member + "\n") == std::string::npos;
  });
  return messages;
}

// dbus-monitor indents by depth: the changed properties are the dict
// entries of the first array, six blanks in, which ends three blanks in.
bool BusMonitor::Told(const std::string& property, const std::string& value) const {
  for (const std::string& message : Signals("PropertiesChanged")) {
    const auto name = message.find("string \"" + property + "\"");
    if (name == std::string::npos) continue;
    const auto end =
        std::min(message.find("\n      dict entry(", name), message.find("\n   ]", name));
    if (message.substr(name, end - name).find(value) != std::string::npos) return true;
  }
  return false;
}

namespace {

std::string SessionBus() {
  const char* bus = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  return bus != nullptr ? bus : "";
}

}  // namespace

DesktopSession::DesktopSession() : bus_(SessionBus()) {}

std::string DesktopSession::Missing() const {
  if (bus_.empty()) return "no session bus: run under dbus-run-session";
  if (!x_.ready()) return "no X server (Xvfb)";
  if (!sound_.Ready()) return "no private PulseAudio server";
  return {};
}

fs::path DesktopSession::Tone(const std::string& name, int hertz, int seconds,
                              const std::string& title, const std::string& artist,
                              const std::string& album) const {
  const fs::path file = home_ / name;
  const std::string command =
      "ffmpeg -loglevel error -y -f lavfi -i sine=frequency=" + std::to_string(hertz) +
      ":duration=" + std::to_string(seconds) +
      " -ac 2 -ar 44100 -c:a libmp3lame -b:a 128k -id3v2_version 0 " + Quoted(file.string());
  if (std::system(command.c_str()) != 0) return {};
  Id3Tag tag;
  tag.Title = title;
  tag.Artist = artist;
  tag.Album = album;
  const auto bytes = id3TagBytes(tag);
  std::ofstream(file, std::ios::binary | std::ios::app)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  return file;
}

std::unique_ptr<PlayerRun> DesktopSession::StartPlayer(const ProgramFolder& folder,
                                                       std::vector<std::string> arguments) const {
  std::vector<std::string> env;
  for (char** e = environ; *e; ++e) {
    const std::string entry = *e;
    bool kept = true;
    for (const char* replaced : {"DISPLAY=", "WAYLAND_DISPLAY=", "XDG_", "QT_QPA_PLATFORM=",
                                 "PULSE_", "DBUS_SESSION_BUS_ADDRESS=", "HOME="})
      kept = kept && entry.rfind(replaced, 0) != 0;
    if (kept) env.push_back(entry);
  }
  env.push_back("HOME=" + home_.path().string());
  env.push_back("XDG_RUNTIME_DIR=" + home_.path().string());
  env.push_back("XDG_CONFIG_HOME=" + (home_ / "config").string());
  env.push_back("DISPLAY=" + x_.display());
  env.push_back("PULSE_SERVER=" + sound_.PulseServer());
  env.push_back("DBUS_SESSION_BUS_ADDRESS=" + bus_);
  std::vector<std::string> argv{folder.Exe()};
  argv.insert(argv.end(), arguments.begin(), arguments.end());
  return std::make_unique<PlayerRun>(std::move(argv), std::move(env),
                                     (home_ / "player-errors.txt").string());
}

std::string DesktopSession::Playerctl(const std::string& arguments) const {
  return Output("DBUS_SESSION_BUS_ADDRESS=" + Quoted(bus_) + " playerctl --player=yarvo_player " +
                arguments + " 2>&1");
}

bool DesktopSession::CallRoot(const std::string& method) const {
  return Output("dbus-send --bus=" + Quoted(bus_) +
                " --print-reply --dest=org.mpris.MediaPlayer2.yarvo_player "
                "/org/mpris/MediaPlayer2 org.mpris.MediaPlayer2." +
                method + " 2>&1")
             .rfind("method return", 0) == 0;
}

void DesktopSession::PressInPlayersWindow(const std::string& key) const {
  const std::string xdotool = "DISPLAY=" + Quoted(x_.display()) + " xdotool ";
  const std::string window =
      Output(xdotool + "search --onlyvisible --name '^Yarvo Player' | head -n 1");
  Output(xdotool + "mousemove --window " + window + " 10 10 key " + Quoted(key));
}

void DesktopSession::Record() {
  recorder_ = sound_.Record(home_ / "heard.raw");
  WaitUntil([this] { return Now() > 0; });
}

std::size_t DesktopSession::Now() const {
  std::error_code error;
  return static_cast<std::size_t>(fs::file_size(home_ / "heard.raw", error) / kFrameBytes);
}

std::vector<float> DesktopSession::LeftAfter(std::size_t from) const {
  const auto start = from + static_cast<std::size_t>(kLatency * SoundServer::kRate);
  const auto count = static_cast<std::size_t>(kListen * SoundServer::kRate);
  WaitUntil([&] { return Now() >= start + count; });
  const Recording heard =
      Recording::fromStereo(ReadRecording(home_ / "heard.raw"), SoundServer::kRate);
  if (heard.left.size() < start + count) return {};
  return {heard.left.begin() + static_cast<std::ptrdiff_t>(start),
          heard.left.begin() + static_cast<std::ptrdiff_t>(start + count)};
}

double DesktopSession::PitchAfter(std::size_t from) const {
  const std::vector<float> left = LeftAfter(from);
  return left.empty() ? 0 : dominantFrequency(left, 0, left.size(), SoundServer::kRate);
}

double DesktopSession::LevelAfter(std::size_t from) const {
  const std::vector<float> left = LeftAfter(from);
  return level(left, 0, left.size());
}

}  // namespace yarvo::test
