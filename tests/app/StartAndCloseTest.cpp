// The real executable, started on the offscreen platform in a prepared
// program folder and closed through its window's close route.

#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "core/form/StringList.h"
#include "playlist/DataClass.h"
#include "support/ProgramFixture.h"

extern char** environ;

namespace yarvo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using test::ReadBytes;
using test::WriteBytes;

constexpr auto kPatience = 60s;

// The program folder is the folder of the executable: put (a link to) the
// binary into a fresh folder.
class ProgramFolder {
 public:
  ProgramFolder() {
    fs::create_directories(dir_.Path() / "Data");
    std::error_code error;
    fs::create_hard_link(YARVO_PLAYER_EXE, Exe(), error);
    if (error) fs::copy_file(YARVO_PLAYER_EXE, Exe());
  }
  std::string Exe() const { return dir_ / "yarvo-player"; }
  std::string operator/(const std::string& relative) const { return dir_ / relative; }

 private:
  test::TempDir dir_;
};

// One run of the player with a private runtime and configuration folder,
// no display and no sound server.
class Player {
 public:
  Player(const ProgramFolder& folder, const test::TempDir& home, std::vector<std::string> arguments = {}) {
    std::vector<std::string> env;
    for (char** e = environ; *e; ++e) {
      const std::string entry = *e;
      if (entry.rfind("DISPLAY=", 0) && entry.rfind("WAYLAND_DISPLAY=", 0) && entry.rfind("XDG_", 0) &&
          entry.rfind("QT_QPA_PLATFORM=", 0) && entry.rfind("PULSE_", 0))
        env.push_back(entry);
    }
    env.push_back("XDG_RUNTIME_DIR=" + home.Path().string());
    env.push_back("XDG_CONFIG_HOME=" + (home.Path() / "config").string());
    env.push_back("PULSE_SERVER=unix:" + (home.Path() / "no-sound-server").string());
    env.push_back("ASAN_OPTIONS=detect_leaks=0");
    std::vector<char*> envp;
    for (auto& e : env) envp.push_back(e.data());
    envp.push_back(nullptr);
    std::vector<std::string> args{folder.Exe()};
    args.insert(args.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (auto& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    if (posix_spawn(&pid_, folder.Exe().c_str(), nullptr, nullptr, argv.data(), envp.data()) != 0) pid_ = -1;
  }
  ~Player() {
    if (pid_ > 0 && !exited_) {
      kill(pid_, SIGKILL);
      waitpid(pid_, nullptr, 0);
    }
  }

  // Asks the player to close, as a session logout does, once it listens.
  void Close() {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (!CatchesSigterm() && std::chrono::steady_clock::now() < deadline) std::this_thread::sleep_for(10ms);
    kill(pid_, SIGTERM);
  }

  // The exit status; -2 when it did not end in time.
  int Wait() {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    int status = 0;
    while (waitpid(pid_, &status, WNOHANG) == 0) {
      if (std::chrono::steady_clock::now() > deadline) return -2;
      std::this_thread::sleep_for(10ms);
    }
    exited_ = true;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -3;
  }

 private:
  bool CatchesSigterm() const {
    std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
    for (std::string line; std::getline(status, line);) {
      if (line.rfind("SigCgt:", 0) == 0) return (std::stoull(line.substr(7), nullptr, 16) >> (SIGTERM - 1)) & 1u;
    }
    return false;
  }

  pid_t pid_ = -1;
  bool exited_ = false;
};

fs::file_time_type Written(const std::string& path) { return fs::last_write_time(path); }

std::string Settings(std::initializer_list<std::pair<int, const char*>> values) {
  std::vector<std::string> lines(72);
  for (auto [line, text] : values) lines[static_cast<std::size_t>(line)] = text;
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  return bytes;
}

TEST(Executable, ClosedByTheWindowSystemItSavesItsStateInOrder) {
  ProgramFolder folder;
  test::TempDir home;
  WriteBytes(folder / "Data/plst.data", "/music/First Song.mp3\r\n/music/b.two.ogg   \r\n");
  Player player(folder, home);
  player.Close();
  ASSERT_EQ(player.Wait(), 0);

  EXPECT_EQ(ReadBytes(folder / "Data/plst.data"), "/music/First Song.mp3\r\n/music/b.two.ogg\r\n");
  EXPECT_EQ(ReadBytes(folder / "Data/playlist.data"), "First Song\r\nb.two\r\n");
  EXPECT_FALSE(fs::exists(folder / "Data/id3.data")) << "titles from file names: no tag titles saved";
  const std::vector<std::string> order = {"Data/top.data", "settings.ini", "Data/keyboard.data",
                                          "Data/plst.data", "Data/playlist.data"};
  for (std::size_t i = 1; i < order.size(); ++i) {
    SCOPED_TRACE(order[i]);
    EXPECT_LE(Written(folder / order[i - 1]), Written(folder / order[i]));
  }
  std::ifstream settings(folder / "settings.ini");
  int lines = 0;
  for (std::string line; std::getline(settings, line);) ++lines;
  EXPECT_EQ(lines, 72);
}

// A file the audio engine cannot decode ends at its first tick; the program
// goes on and closes as usual.
TEST(Executable, AnUnplayableFileOnTheCommandLineLeavesTheProgramRunning) {
  ProgramFolder folder;
  test::TempDir home;
  WriteBytes(folder / "song with blanks.mp3", std::string(4096, '\0'));  // no audio in it
  Player player(folder, home, {folder / "song", "with", "blanks.MP3"});
  player.Close();
  ASSERT_EQ(player.Wait(), 0);
  StringList top;
  IncarcaData(folder / "Data/top.data", top);
  ASSERT_EQ(top.ListCount(), 40);
  EXPECT_EQ(top.List(0), "") << "a file outside the playlist has no title to count";
}

TEST(Executable, ASecondInstanceEndsAtOnceWhenOnlyOneMayRun) {
  ProgramFolder folder;
  test::TempDir home;
  const std::string settings = Settings({{28, "0"}, {56, "main"}});
  WriteBytes(folder / "settings.ini", settings);
  Player first(folder, home);
  // The first has passed its instance check once it repairs the media
  // driver table, which comes later in its start.
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!fs::exists(home.Path() / "config/yarvo-player/system.ini") && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(10ms);

  Player second(folder, home);
  EXPECT_EQ(second.Wait(), 0) << "ended by itself";
  EXPECT_EQ(ReadBytes(folder / "settings.ini"), settings);
  EXPECT_FALSE(fs::exists(folder / "Data/plst.data")) << "the second saved nothing";

  first.Close();
  ASSERT_EQ(first.Wait(), 0);
  EXPECT_TRUE(fs::exists(folder / "Data/plst.data"));
}

}  // namespace
}  // namespace yarvo
