// The real executable, started on the offscreen platform in a prepared
// program folder and closed through its window's close route.

#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/ProgramFixture.h"

extern char** environ;

namespace yarvo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using test::ReadBytes;
using test::WriteBytes;

// The program folder is the folder of the executable: put (a link to) the
// binary into a fresh folder beside the build.
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

bool CatchesSigterm(pid_t pid) {
  std::ifstream status("/proc/" + std::to_string(pid) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("SigCgt:", 0) == 0) {
      const unsigned long long mask = std::stoull(line.substr(7), nullptr, 16);
      return (mask >> (SIGTERM - 1)) & 1u;
    }
  }
  return false;
}

// Runs the player with `arguments` and a private runtime folder; asks it to
// close once it listens for that; returns its exit status.
int RunAndClose(const ProgramFolder& folder, const test::TempDir& runtime,
                const std::vector<std::string>& arguments = {}) {
  std::vector<std::string> env;
  for (char** e = environ; *e; ++e) {
    const std::string entry = *e;
    if (entry.rfind("DISPLAY=", 0) && entry.rfind("WAYLAND_DISPLAY=", 0) &&
        entry.rfind("XDG_RUNTIME_DIR=", 0) && entry.rfind("QT_QPA_PLATFORM=", 0))
      env.push_back(entry);
  }
  env.push_back("XDG_RUNTIME_DIR=" + runtime.Path().string());
  env.push_back("ASAN_OPTIONS=detect_leaks=0");
  std::vector<char*> envp;
  for (auto& e : env) envp.push_back(e.data());
  envp.push_back(nullptr);
  std::vector<std::string> args{folder.Exe()};
  args.insert(args.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);

  pid_t pid = 0;
  if (posix_spawn(&pid, folder.Exe().c_str(), nullptr, nullptr, argv.data(), envp.data()) != 0) return -1;
  const auto deadline = std::chrono::steady_clock::now() + 60s;
  while (!CatchesSigterm(pid) && std::chrono::steady_clock::now() < deadline) std::this_thread::sleep_for(10ms);
  kill(pid, SIGTERM);
  int status = 0;
  while (waitpid(pid, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) {
      kill(pid, SIGKILL);
      waitpid(pid, &status, 0);
      return -2;
    }
    std::this_thread::sleep_for(10ms);
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -3;
}

fs::file_time_type Written(const std::string& path) { return fs::last_write_time(path); }

TEST(Executable, ClosedByTheWindowSystemItSavesThePlaylistFiles) {
  ProgramFolder folder;
  test::TempDir runtime;
  WriteBytes(folder / "Data/plst.data", "/music/First Song.mp3\r\n/music/b.two.ogg   \r\n");
  ASSERT_EQ(RunAndClose(folder, runtime), 0);

  EXPECT_EQ(ReadBytes(folder / "Data/plst.data"), "/music/First Song.mp3\r\n/music/b.two.ogg\r\n");
  EXPECT_EQ(ReadBytes(folder / "Data/playlist.data"), "First Song\r\nb.two\r\n");
  EXPECT_FALSE(fs::exists(folder / "Data/id3.data")) << "titles from file names: no tag titles saved";
  EXPECT_LE(Written(folder / "Data/plst.data"), Written(folder / "Data/playlist.data"));
}

TEST(Executable, StartsWithNoDataFilesAndWritesThemAtClose) {
  ProgramFolder folder;
  test::TempDir runtime;
  ASSERT_EQ(RunAndClose(folder, runtime), 0);
  EXPECT_TRUE(fs::exists(folder / "Data/plst.data"));
  EXPECT_EQ(ReadBytes(folder / "Data/plst.data"), "");
}

}  // namespace
}  // namespace yarvo
