// The player on a desktop of the test's own (dbus-run-session, Xvfb, a
// PulseAudio null sink): playerctl finds it, controls it through MPRIS2,
// and what it says is heard in the sink and told on the bus.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "DesktopSession.h"
#include "core/form/StringList.h"
#include "playlist/DataClass.h"
#include "support/ProgramFixture.h"

namespace yarvo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace test;

constexpr double kHeard = 0.01;  // loudness of a tone, well above silence

class MprisSession : public ::testing::Test {
 protected:
  void SetUp() override {
    if (const std::string missing = session.Missing(); !missing.empty()) FAIL() << missing;
  }

  // Waits until playerctl reads `expected` for `what`.
  ::testing::AssertionResult Reads(const std::string& what, const std::string& expected) {
    std::string last;
    if (WaitUntil([&] { return (last = session.Playerctl(what)) == expected; }))
      return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << what << " reads \"" << last << "\"";
  }

  double Position() { return std::atof(session.Playerctl("position").c_str()); }

  std::string SettingsLine(int line) {
    StringList settings;
    IncarcaData(folder / "settings.ini", settings);
    return settings.List(line);
  }

  DesktopSession session;
  ProgramFolder folder;
};

// A first start plays at volume 0: these start at full volume.
void AtFullVolume(const ProgramFolder& folder) {
  WriteBytes(folder / "settings.ini", SettingsWith({{11, "100"}, {56, "main"}}));
}

TEST_F(MprisSession, ASongOnTheCommandLineIsPlayedPausedSeekedAndClosedFromTheBus) {
  const fs::path tone =
      session.Tone("concert a.mp3", 440, 60, "Concert A", "Tuning Fork", "Test Tones");
  ASSERT_FALSE(tone.empty()) << "ffmpeg made no tone";
  AtFullVolume(folder);
  BusMonitor monitor(session.Bus(), session.Home() / "bus.txt");
  session.Record();
  auto player = session.StartPlayer(folder, {tone.string()});

  ASSERT_TRUE(Reads("status", "Playing"));
  EXPECT_EQ(session.Playerctl("--list-all"), "yarvo_player");
  EXPECT_EQ(session.Playerctl("metadata xesam:title"), "Concert A");
  EXPECT_EQ(session.Playerctl("metadata xesam:artist"), "Tuning Fork");
  EXPECT_EQ(session.Playerctl("metadata xesam:album"), "Test Tones");
  EXPECT_EQ(session.Playerctl("metadata xesam:url"),
            "file://" + session.Home().path().string() + "/concert%20a.mp3");
  EXPECT_NEAR(session.PitchAfter(session.Now()), 440, 2);

  session.Playerctl("pause");
  ASSERT_TRUE(Reads("status", "Paused"));
  EXPECT_LT(session.LevelAfter(session.Now()), kHeard / 10) << "the sink falls silent";
  session.Playerctl("play");
  ASSERT_TRUE(Reads("status", "Playing"));
  EXPECT_NEAR(session.PitchAfter(session.Now()), 440, 2) << "and sounds again";

  // Absolute (SetPosition) and relative (Seek) moves; the clock runs on.
  session.Playerctl("position 40");
  ASSERT_TRUE(WaitUntil([&] { return Position() >= 40; })) << Position();
  EXPECT_LT(Position(), 42);
  session.Playerctl("position 10-");
  ASSERT_TRUE(WaitUntil([&] { return Position() < 35; })) << Position();
  const double seeked = Position();
  EXPECT_GE(seeked, 30);
  std::this_thread::sleep_for(1500ms);
  EXPECT_GT(Position(), seeked + 1) << "the position moves on after a seek";

  session.Playerctl("volume 0.3");
  ASSERT_TRUE(Reads("volume", "0.300000"));
  session.Playerctl("shuffle On");
  ASSERT_TRUE(Reads("shuffle", "On"));

  ASSERT_TRUE(session.CallRoot("Quit"));
  ASSERT_EQ(player->Wait(), 0) << "ended by its close route";
  EXPECT_EQ(SettingsLine(11), "30") << "the volume was the volume bar's";
  EXPECT_EQ(SettingsLine(14), "True") << "shuffle was the random order mode";
  EXPECT_EQ(SettingsLine(13), "False");

  // What the desktop was told: every change once it happened, each seek.
  EXPECT_TRUE(monitor.Told("PlaybackStatus", "\"Playing\""));
  EXPECT_TRUE(monitor.Told("PlaybackStatus", "\"Paused\""));
  EXPECT_TRUE(monitor.Told("Metadata", "\"Concert A\""));
  EXPECT_FALSE(monitor.Told("PlaybackStatus", "\"Concert A\"")) << "each value with its name";
  EXPECT_TRUE(monitor.Told("Volume", "double 0.3"));
  EXPECT_TRUE(monitor.Told("Shuffle", "boolean true"));
  const auto seeks = monitor.Signals("Seeked");
  ASSERT_EQ(seeks.size(), 2u);
  EXPECT_NE(seeks[0].find("int64 40000000"), std::string::npos) << seeks[0];
}

TEST_F(MprisSession, PlayNextAndPreviousPlayTheRightSongsOfThePlaylist) {
  struct Song {
    const char* title;
    int hertz;
    int seconds;
  };
  const Song songs[] = {{"Low", 330, 60}, {"Middle", 550, 60}, {"High", 770, 6}};
  std::string list;
  for (const auto& [title, hertz, seconds] : songs) {
    const fs::path file = session.Tone(std::string(title) + ".mp3", hertz, seconds, title);
    ASSERT_FALSE(file.empty()) << "ffmpeg made no tone";
    list += file.string() + "\r\n";
  }
  WriteBytes(folder / "Data/plst.data", list);
  AtFullVolume(folder);
  BusMonitor monitor(session.Bus(), session.Home() / "bus.txt");
  session.Record();
  auto player = session.StartPlayer(folder);
  ASSERT_TRUE(Reads("status", "Stopped"));
  EXPECT_LT(session.LevelAfter(session.Now()), kHeard / 10);

  for (const auto& [command, song] : {std::pair{"play", songs[0]},
                                      {"next", songs[1]},
                                      {"next", songs[2]},
                                      {"previous", songs[1]},
                                      {"previous", songs[0]},
                                      {"previous", songs[2]}}) {
    SCOPED_TRACE(command + std::string(" to ") + song.title);
    session.Playerctl(command);
    ASSERT_TRUE(Reads("metadata xesam:title", song.title));
    ASSERT_TRUE(Reads("status", "Playing"));
    EXPECT_NEAR(session.PitchAfter(session.Now()), song.hertz, 2);
  }
  // The short last song ends, and the list goes on from its first row.
  ASSERT_TRUE(Reads("metadata xesam:title", "Low"));
  EXPECT_NEAR(session.PitchAfter(session.Now()), 330, 2);
  EXPECT_TRUE(monitor.Signals("Seeked").empty()) << "a new song is no seek, nor a song's end";

  // A file the desktop opens plays as a file from outside the playlist.
  const fs::path opened = session.Tone("opened file.mp3", 440, 60, "Opened");
  session.Playerctl("open " +
                    Quoted("file://" + opened.parent_path().string() + "/opened%20file.mp3"));
  ASSERT_TRUE(Reads("metadata xesam:title", "Opened"));
  EXPECT_NEAR(session.PitchAfter(session.Now()), 440, 2);

  session.Playerctl("stop");
  ASSERT_TRUE(Reads("status", "Stopped"));
  EXPECT_LT(session.LevelAfter(session.Now()), kHeard / 10);
  player->Close();
  EXPECT_EQ(player->Wait(), 0);
}

// Inside the player's windows the media keys are keys like any other, for
// the shortcut table to bind.
TEST_F(MprisSession, MediaKeysInThePlayersWindowRunTheShortcutsBoundToThem) {
  std::string list;
  for (const auto& [title, hertz] : {std::pair{"Low", 330}, {"Middle", 550}}) {
    const fs::path file = session.Tone(std::string(title) + ".mp3", hertz, 60, title);
    ASSERT_FALSE(file.empty()) << "ffmpeg made no tone";
    list += file.string() + "\r\n";
  }
  WriteBytes(folder / "Data/plst.data", list);
  // Pause, stop, next and previous on play/pause, stop, next and previous.
  WriteBytes(folder / "Data/keyboard.data",
             "74\r\n13\r\n179\r\n178\r\n176\r\n177\r\n77\r\n81\r\n38\r\n40\r\n"
             "J\r\nEnter\r\nP\r\nS\r\nN\r\nB\r\nM\r\nQ\r\nUp\r\nDown\r\n");
  AtFullVolume(folder);
  session.Record();
  auto player = session.StartPlayer(folder);
  ASSERT_TRUE(Reads("status", "Stopped"));
  session.Playerctl("play");
  ASSERT_TRUE(Reads("metadata xesam:title", "Low"));

  session.PressInPlayersWindow("XF86AudioNext");
  ASSERT_TRUE(Reads("metadata xesam:title", "Middle"));
  EXPECT_NEAR(session.PitchAfter(session.Now()), 550, 2);
  session.PressInPlayersWindow("XF86AudioPrev");
  ASSERT_TRUE(Reads("metadata xesam:title", "Low"));
  session.PressInPlayersWindow("XF86AudioPlay");
  EXPECT_TRUE(Reads("status", "Paused"));
  session.PressInPlayersWindow("XF86AudioStop");
  EXPECT_TRUE(Reads("status", "Stopped"));
  player->Close();
  EXPECT_EQ(player->Wait(), 0);
}

TEST_F(MprisSession, WithoutABusThePlayerSaysSoOnceAndRunsOn) {
  const std::string errors = session.Home() / "errors.txt";
  std::vector<std::string> env{
      "HOME=" + session.Home().path().string(), "XDG_RUNTIME_DIR=" + session.Home().path().string(),
      "DBUS_SESSION_BUS_ADDRESS=unix:path=" + (session.Home() / "no-bus").string(),
      "PULSE_SERVER=unix:" + (session.Home() / "no-sound").string()};
  for (const char* name : {"LSAN_OPTIONS", "UBSAN_OPTIONS", "ASAN_OPTIONS", "PATH"}) {
    if (const char* value = std::getenv(name)) env.push_back(std::string(name) + "=" + value);
  }
  PlayerRun player({folder.Exe()}, env, errors);
  std::this_thread::sleep_for(2s);
  player.Close();
  ASSERT_EQ(player.Wait(), 0);
  const std::string text = ReadBytes(errors);
  const std::string said = "no session bus";
  const auto first = text.find(said);
  EXPECT_NE(first, std::string::npos) << text;
  EXPECT_EQ(text.find(said, first + 1), std::string::npos) << "once";
  EXPECT_TRUE(fs::exists(folder / "settings.ini")) << "it ran and saved as ever";
}

}  // namespace
}  // namespace yarvo
