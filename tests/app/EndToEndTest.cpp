// A person's session with the player, on an X server with a window manager,
// driven by a real X client and heard on a private sound server: play from
// the playlist, skip, pause, stop, seek, move and size the window, switch the
// layout (the playlist follows the window), rearrange the playlist, drop a
// file on it from a file manager, and close; then the files the player wrote.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Ear.h"
#include "Hand.h"
#include "PlayerProcess.h"
#include "ScreenPixels.h"
#include "XServer.h"
#include "support/SoundServer.h"

namespace yarvo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace test;

constexpr int kLeft = 100, kTop = 100;          // the main window
constexpr int kListLeft = 520, kListTop = 100;  // the playlist window
constexpr double kFirstHalf[] = {330, 440, 550, 660, 770};
constexpr double kSecondHalf[] = {1210, 1320, 1430, 1540, 1650};

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const auto end = text.find("\r\n", at);
    if (end == std::string::npos) break;
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

class EndToEnd : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!x.ready()) GTEST_SKIP() << "no Xvfb on this machine";
    if (!sound.Ready()) GTEST_SKIP() << "no private PulseAudio server here";
    if (!Hand::Available() || !XServer::HasWindowManager()) GTEST_SKIP() << "no xdotool or openbox";
    ASSERT_TRUE(x.StartWindowManager());
    // Five songs of 20 s: one tone the first half, another the second.
    // The last one's name is Latin-1, as old collections have them.
    for (int i = 0; i < 5; ++i) {
      songs.push_back(folder /
                      ("Song " + std::to_string(i + 1) + (i == 4 ? " caf\xE9" : "") + ".mp3"));
      const std::string make =
          "ffmpeg -loglevel error -y -f lavfi -i \"aevalsrc=exprs='0.4*sin(2*PI*if(lt(t,10)," +
          std::to_string(kFirstHalf[i]) + "," + std::to_string(kSecondHalf[i]) +
          ")*t)':s=44100:d=20\" -ac 2 -b:a 128k '" + songs.back() + "'";
      ASSERT_EQ(std::system(make.c_str()), 0);
    }
    std::string list;
    for (int i = 0; i < 4; ++i) list += songs[static_cast<std::size_t>(i)] + "\r\n";
    WriteBytes(folder / "Data/plst.data", list);
    WriteBytes(folder / "settings.ini", SettingsWith({{2, std::to_string(kLeft * 15)},
                                                      {3, std::to_string(kTop * 15)},
                                                      {7, std::to_string(kListLeft * 15)},
                                                      {8, std::to_string(kListTop * 15)},
                                                      {11, "60"},
                                                      {16, "Playlist=True"},
                                                      {20, "Default"},
                                                      {53, "Full"},
                                                      {56, "main"}}));
    ear = std::make_unique<Ear>(sound, home / "heard.raw");
  }

  // The main window once it shows, and the playlist window.
  std::optional<XServer::Window> MainWindow() const {
    const auto main = x.PlayerMain();
    return main && main->mapped ? main : std::nullopt;
  }
  std::optional<XServer::Window> ListWindow() const { return x.PlayerList(); }

  XServer x;
  SoundServer sound;
  ProgramFolder folder;
  TempDir home;
  Hand hand{x.display()};
  std::unique_ptr<Ear> ear;
  std::vector<std::string> songs;
};

TEST_F(EndToEnd, APersonPlaysArrangesAndClosesAndTheFilesKeepItAll) {
  Player player(folder, home, {}, x.display(), {}, sound.PulseServer());
  ASSERT_TRUE(WaitUntil([&] { return MainWindow() && ListWindow() && ListWindow()->mapped; }));
  std::this_thread::sleep_for(1500ms);
  auto main = *MainWindow();
  auto list = *ListWindow();

  // Before any song, the main window has its grip: it sizes the window, and
  // no smaller than its limits (6100 by 3530 twips in the full layout).
  const auto grip = [&] { return std::pair{main.x + main.width - 6, main.y + main.height - 6}; };
  const auto designed = main;
  hand.Drag(grip().first, grip().second, grip().first + 80, grip().second + 40);
  ASSERT_TRUE(WaitUntil([&] { return MainWindow()->width == designed.width + 80; }, 5s));
  EXPECT_EQ(MainWindow()->height, designed.height + 40);
  main = *MainWindow();
  hand.Drag(grip().first, grip().second, grip().first - 300, grip().second - 200);
  EXPECT_TRUE(WaitUntil([&] { return MainWindow()->width == 6100 / 15; }, 5s))
      << MainWindow()->width;
  EXPECT_EQ(MainWindow()->height, 3530 / 15);
  main = *MainWindow();
  EXPECT_EQ(main.x, designed.x);
  EXPECT_EQ(main.y, designed.y);
  const Pixels idle = Screenshot(x.display());

  // A double click on the third row plays it.
  int rowX = list.x + 60, rowY = list.y + 24;  // the list's first row starts here
  hand.DoubleClick(rowX, rowY + 2 * 13 + 6);
  EXPECT_TRUE(ear->Hears(kFirstHalf[2])) << "the third song; heard " << ear->Heard();
  const Pixels playing = Screenshot(x.display());
  int changed = 0;  // the state word's place in the main panel
  for (int y = 54; y < 71; ++y)
    for (int dx = 16; dx < 77; ++dx)
      changed += !(idle.At(main.x + dx, main.y + y) == playing.At(main.x + dx, main.y + y));
  EXPECT_GT(changed, 20) << "the state word is written";

  // The transport buttons: next, pause, play, stop.
  const int buttonsX = main.x + main.width - 80 + 4, buttonsY = main.y + 24 + 8;
  hand.Click(buttonsX + 56, buttonsY + 32);  // next
  EXPECT_TRUE(ear->Hears(kFirstHalf[3])) << "the fourth song; heard " << ear->Heard();

  // The visualisation draws the tone: a column of the spectrum's reds.
  const Pixels frame = Screenshot(x.display());
  int reds = 0;
  for (int y = 0; y < 40; ++y)
    for (int dx = 0; dx < 160; ++dx) {
      const Rgb pixel = frame.At(main.x + 8 + 136 + dx, main.y + 24 + 48 + y);
      reds += pixel.r > 150 && pixel.g < 100 && pixel.b < 100;
    }
  EXPECT_GT(reds, 40) << "the visualisation shows the song";
  hand.Click(buttonsX + 32, buttonsY + 8);  // pause
  EXPECT_TRUE(ear->HearsSilence()) << "paused";
  hand.Click(buttonsX + 32, buttonsY + 28);  // play
  EXPECT_TRUE(ear->Hears(kFirstHalf[3])) << "resumed";
  // After a button, the keys are the shortcuts': Space pauses, Enter plays.
  hand.Xdo("key space");
  EXPECT_TRUE(ear->HearsSilence()) << "paused by its key";
  hand.Xdo("key Return");
  EXPECT_TRUE(ear->Hears(kFirstHalf[3])) << "played by its key";

  // A drag of the seek bar's thumb to four fifths plays the second half.
  const int barY = main.y + main.height - 21;
  const auto thumbX = [&](int from, int width) {
    const Pixels now = Screenshot(x.display());
    const Pixels thumb = ReadPicture(folder / "Skins/Default/h-scrollbar-thumb.bmp");
    for (int sx = from; sx < from + width; ++sx)
      if (now.At(sx, barY + 8) == thumb.At(6, 8) && now.At(sx, barY + 3) == thumb.At(6, 3))
        return sx;
    return -1;
  };
  const int seekThumb = thumbX(main.x + 8, 209);
  ASSERT_GT(seekThumb, 0) << "the thumb of the seek bar";
  hand.Drag(seekThumb, barY + 8, main.x + 8 + 7 + 160, barY + 8);
  EXPECT_TRUE(ear->Hears(kSecondHalf[3])) << "heard " << ear->Heard();

  hand.Click(buttonsX + 32, buttonsY + 54);  // stop
  EXPECT_TRUE(ear->HearsSilence()) << "stopped";
  std::this_thread::sleep_for(500ms);
  const Pixels stopped = Screenshot(x.display());
  const Pixels idlePicture = ReadPicture(folder / "Skins/Default/yarvoplayer.bmp");
  int differs = 0;
  for (int y = 0; y < 40; y += 4)
    for (int dx = 0; dx < 160; dx += 4)
      differs +=
          !(stopped.At(main.x + 8 + 136 + dx, main.y + 24 + 48 + y) == idlePicture.At(dx, y));
  EXPECT_EQ(differs, 0) << "the idle picture is back";

  // The volume bar's thumb dragged past its right end.
  const int volumeThumb = thumbX(main.x + 232, 93);
  ASSERT_GT(volumeThumb, 0) << "the thumb of the volume bar";
  hand.Drag(volumeThumb, barY + 8, main.x + 232 + 200, barY + 8);

  // The window moved by its title bar, then its layout made small and full
  // again by double clicks on the title bar's right end.
  hand.Drag(main.x + 325, main.y + 8, main.x + 385, main.y + 48);
  ASSERT_TRUE(WaitUntil([&] { return MainWindow() && MainWindow()->x == main.x + 60; }, 5s));
  main = *MainWindow();
  EXPECT_EQ(main.y, kTop + 40);
  // The player was active: the playlist came along.
  ASSERT_TRUE(WaitUntil([&] { return ListWindow()->x == kListLeft + 60; }, 5s));
  list = *ListWindow();
  EXPECT_EQ(list.y, kListTop + 40);
  rowX += 60;
  rowY += 40;
  hand.DoubleClick(main.x + main.width - 90, main.y + 8);
  EXPECT_TRUE(WaitUntil([&] { return MainWindow() && MainWindow()->height == 133; }, 5s))
      << "the small layout";
  hand.DoubleClick(main.x + main.width - 90, main.y + 8);
  EXPECT_TRUE(WaitUntil([&] { return MainWindow() && MainWindow()->height == 235; }, 5s))
      << "the full layout again";

  // The playlist sized bigger, its first row dragged to the fourth, and a
  // fifth song dropped on its second row from a file manager.
  hand.Drag(list.x + list.width - 7, list.y + list.height - 7, list.x + list.width + 73,
            list.y + list.height + 53);
  ASSERT_TRUE(WaitUntil([&] { return ListWindow()->width == 346; }, 5s));
  list = *ListWindow();
  hand.Drag(rowX, rowY + 6, rowX, rowY + 3 * 13 + 6);
  ChildProcess source({"env", "DISPLAY=" + x.display(), YARVO_DRAG_SOURCE, songs[4]}, "/dev/null",
                      "/dev/null");
  ASSERT_TRUE(WaitUntil([&] { return x.Find("Drag source") && x.Find("Drag source")->mapped; }));
  const auto sourceWindow = *x.Find("Drag source");
  const auto fifthRow = [&] {
    const Pixels now = Screenshot(x.display());
    std::vector<Rgb> row;
    for (int dx = 0; dx < 150; ++dx) row.push_back(now.At(rowX - 40 + dx, rowY + 4 * 13 + 6));
    return row;
  };
  const auto empty = fifthRow();
  hand.Drag(sourceWindow.x + 40, sourceWindow.y + 30, rowX, rowY + 13 + 6);
  EXPECT_TRUE(WaitUntil([&] { return fifthRow() != empty; }, 10s)) << "a fifth row is drawn";

  player.Close();
  ASSERT_EQ(player.Wait(), 0);
  const auto settings = Lines(ReadBytes(folder / "settings.ini"));
  ASSERT_EQ(settings.size(), 72u);
  EXPECT_EQ(settings[2], std::to_string((kLeft + 60) * 15)) << "left";
  EXPECT_EQ(settings[3], std::to_string((kTop + 40) * 15)) << "top";
  EXPECT_EQ(settings[4], "6100") << "width";
  EXPECT_EQ(settings[5], "3530") << "height";
  EXPECT_EQ(settings[9], "5190") << "the playlist's width: 346 pixels";
  EXPECT_EQ(settings[11], "100") << "volume";
  EXPECT_EQ(settings[53], "Full");
  EXPECT_EQ(settings[56], "main");
  EXPECT_EQ(Lines(ReadBytes(folder / "Data/plst.data")),
            (std::vector<std::string>{songs[1], songs[4], songs[2], songs[3], songs[0]}));
  const auto top = Lines(ReadBytes(folder / "Data/top.data"));
  ASSERT_EQ(top.size(), 40u);
  EXPECT_NE(std::find(top.begin(), top.end(), "Song 3"), top.end());
  EXPECT_NE(std::find(top.begin(), top.end(), "Song 4"), top.end());
}

}  // namespace
}  // namespace yarvo
