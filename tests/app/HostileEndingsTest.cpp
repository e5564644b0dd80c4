// The real executable where a hostile user or machine puts it: ended while a
// message waits for an answer, started without a display, given a pipe to
// read, hung up on, and started after saves that a kill cut short.

#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

#include "PlayerProcess.h"
#include "XServer.h"
#include "platform/Files.h"

namespace yarvo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace test;

constexpr auto kQuickly = std::chrono::seconds(20);

long SavedLines(const ProgramFolder& folder) {
  return std::ranges::count(ReadBytes(folder / "settings.ini"), '\n');
}

// Bytes that no decoder takes for media: the media service refuses them.
std::string NoMedia() {
  std::string bytes(6000, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7919 % 251);
  return bytes;
}

constexpr const char* kCouldNotPlay =
    "Sorry, Yarvo Player could not play this file. Doctor Yarvo will try to fix that";

TEST(HostileEndings, AnEndRequestWhileAStartUpMessageIsOpenEndsTheProcess) {
  XServer x;
  if (!x.ready()) GTEST_SKIP() << "no Xvfb on this machine";
  ProgramFolder folder;
  TempDir home;
  WriteBytes(folder / "settings.ini", SettingsWith({{28, "0"}, {56, "main"}}));  // one instance
  WriteBytes(folder / "broken.avi", NoMedia());
  {
    Player player(folder, home, {folder / "broken.avi"}, x.display());
    ASSERT_TRUE(WaitUntil([&] { return x.DialogShown(); })) << "the failure is told in a box";
    player.Close();
    ASSERT_EQ(player.Wait(kQuickly), 0) << "the process ends, not only its windows";
  }
  EXPECT_EQ(SavedLines(folder), 72);
  // Nothing is left running that would lock the user out of the next start.
  Player next(folder, home, {}, x.display());
  EXPECT_EQ(next.Wait(3s), -2) << "the next start runs";
  next.Close();
  EXPECT_EQ(next.Wait(), 0);
}

TEST(HostileEndings, WithoutADisplayAMessageGoesToStandardErrorAndTheProgramGoesOn) {
  ProgramFolder folder;
  TempDir home;
  WriteBytes(folder / "broken.avi", NoMedia());
  const std::string errors = home / "stderr.txt";
  Player player(folder, home, {folder / "broken.avi"}, {}, errors);
  // The repair component speaks after the first message was answered.
  EXPECT_TRUE(WaitUntil([&] {
    const std::string text = ReadBytes(errors);
    return text.find(kCouldNotPlay) != std::string::npos &&
           text.find("Doctor Yarvo: ") != std::string::npos;
  })) << ReadBytes(errors);
  player.Close();
  EXPECT_EQ(player.Wait(kQuickly), 0);
  EXPECT_EQ(SavedLines(folder), 72);
}

TEST(HostileEndings, APipeAsTheSongOrAsThePlaylistFileIsRefusedLikeAMissingFile) {
  // One song for each engine: the audio engine's and the media service's.
  for (const char* song : {"song.mp3", "clip.avi"}) {
    SCOPED_TRACE(song);
    ProgramFolder folder;
    TempDir home;
    ASSERT_EQ(::mkfifo((folder / "Data/plst.data").c_str(), 0644), 0);
    ASSERT_EQ(::mkfifo((folder / song).c_str(), 0644), 0);
    Player player(folder, home, {folder / song});
    player.Close();
    ASSERT_EQ(player.Wait(kQuickly), 0) << "nothing waits for a writer to the pipes";
    EXPECT_EQ(SavedLines(folder), 72);
    EXPECT_TRUE(fs::is_fifo(folder / "Data/plst.data")) << "a pipe is never replaced";
  }
}

TEST(HostileEndings, AHangUpClosesThePlayerAndSavesLikeATerminationRequest) {
  ProgramFolder folder;
  TempDir home;
  WriteBytes(folder / "Data/plst.data", "/music/a.mp3\r\n");
  Player player(folder, home);
  player.Signal(SIGHUP);
  ASSERT_EQ(player.Wait(), 0) << "ended by its close route, not by the signal";
  EXPECT_EQ(SavedLines(folder), 72);
  EXPECT_EQ(ReadBytes(folder / "Data/playlist.data"), "a\r\n");
}

TEST(HostileEndings, AStartRemovesWhatSavesCutShortByAKillLeftBehind) {
  ProgramFolder folder;
  TempDir home;
  const fs::path leftovers[] = {folder / "Data/plst.data.partial-save-4242",
                                folder / "settings.ini.partial-save-77",
                                home / "config/yarvo-player/system.ini.partial-save-9"};
  for (const auto& leftover : leftovers) WriteBytes(leftover, "half a save");
  // A save that another running instance is still making keeps its file.
  const std::string running = folder / "Data/top.data.partial-save-1";
  WriteBytes(running, "being written");
  const FileDescriptor held(::open(running.c_str(), O_RDONLY | O_CLOEXEC));
  ASSERT_EQ(::flock(held.get(), LOCK_EX), 0);

  Player player(folder, home);
  player.Close();
  ASSERT_EQ(player.Wait(), 0);
  for (const auto& leftover : leftovers) EXPECT_FALSE(fs::exists(leftover)) << leftover;
  EXPECT_TRUE(fs::exists(running));
}

}  // namespace
}  // namespace yarvo
