// The real executable, started on the offscreen platform in a prepared
// program folder and closed through its window's close route.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "PlayerProcess.h"
#include "core/form/StringList.h"
#include "playlist/DataClass.h"
#include "support/ProgramFixture.h"

namespace yarvo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace test;

TEST(Executable, ClosedByTheWindowSystemItSavesItsStateInOrder) {
  ProgramFolder folder;
  TempDir home;
  WriteBytes(folder / "Data/plst.data", "/music/First Song.mp3\r\n/music/b.two.ogg   \r\n");
  Player player(folder, home);
  player.Close();
  ASSERT_EQ(player.Wait(), 0);

  EXPECT_EQ(ReadBytes(folder / "Data/plst.data"), "/music/First Song.mp3\r\n/music/b.two.ogg\r\n");
  EXPECT_EQ(ReadBytes(folder / "Data/playlist.data"), "First Song\r\nb.two\r\n");
  EXPECT_FALSE(fs::exists(folder / "Data/id3.data"))
      << "titles from file names: no tag titles saved";
  const std::vector<std::string> order = {"Data/top.data", "settings.ini", "Data/keyboard.data",
                                          "Data/plst.data", "Data/playlist.data"};
  for (std::size_t i = 1; i < order.size(); ++i) {
    SCOPED_TRACE(order[i]);
    EXPECT_LE(fs::last_write_time(folder / order[i - 1]), fs::last_write_time(folder / order[i]));
  }
  EXPECT_EQ(std::ranges::count(ReadBytes(folder / "settings.ini"), '\n'), 72);
}

// A file the audio engine cannot decode ends at its first tick; the program
// goes on and closes as usual.
TEST(Executable, AnUnplayableFileOnTheCommandLineLeavesTheProgramRunning) {
  ProgramFolder folder;
  TempDir home;
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
  TempDir home;
  // One instance only, and the main window.
  const std::string settings = SettingsWith({{28, "0"}, {56, "main"}});
  WriteBytes(folder / "settings.ini", settings);
  Player first(folder, home);
  // The first has passed its instance check once it repairs the media
  // driver table, which comes later in its start.
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!fs::exists(home.path() / "config/yarvo-player/system.ini") &&
         std::chrono::steady_clock::now() < deadline)
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
