// Keyboard shortcuts: the dispatcher reads the Options boxes on every key,
// keyboard.data fills and keeps them, and the keyboard page assigns keys.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "playlist/JumpForm.h"
#include "playlist/Playlist.h"
#include "settings/KeyShortcut.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;

constexpr int kVolumeUp = 8;
constexpr int kVolumeDown = 9;

std::string Lines(const Strings& rows) {
  std::string bytes;
  for (const auto& row : rows) bytes += row + "\r\n";
  return bytes;
}

class Shortcuts : public test::ProgramFixture {
 protected:
  void SetUp() override { Start(); }

  void Bind(int action, int code) { P().Options().AsciBox(action).Text = std::to_string(code); }

  void Press(int code) {
    int key = code;
    HandleShortcutKey(key);
    EXPECT_EQ(key, code) << "the dispatcher leaves the key code alone";
  }

  int Volume() { return static_cast<int>(P().Main().Volum.value); }
  void SetVolume(int value) { P().Main().Volum.value = value; }

  std::string KeyboardFile() { return folder / "Data/keyboard.data"; }

  Strings Boxes() {
    Strings texts;
    for (int i = 0; i < 10; ++i) texts.push_back(P().Options().AsciBox(i).Text);
    for (int i = 0; i < 10; ++i) texts.push_back(P().Options().AsciText(i).Text);
    return texts;
  }
};

TEST_F(Shortcuts, AllActionsOnOneKeyRunInIndexOrder) {
  // Up then down from 95: 100 (the limit), then 90. Down first would end at
  // 95, and stopping after the first match at 100.
  SetVolume(95);
  Bind(kVolumeUp, 65);
  Bind(kVolumeDown, 65);
  Press(65);
  EXPECT_EQ(Volume(), 90);
}

TEST_F(Shortcuts, MinimizeAndCloseWorkOnlyOutsideFullScreen) {
  Bind(6, 77);
  Bind(7, 81);
  Bind(kVolumeUp, 38);
  for (const char* state : {"True", "", "false"}) {
    SCOPED_TRACE(state);
    P().DataForm().FullScreenStat = state;
    P().Playlist().Show();
    SetVolume(50);
    Press(77);
    EXPECT_EQ(P().Main().WindowState.get(), WindowState::Normal);
    EXPECT_TRUE(P().Playlist().Visible.get());
    EXPECT_NO_THROW(Press(81)) << "close does not end the program";
    Press(38);
    EXPECT_EQ(Volume(), 60) << "the volume still answers";
  }

  P().DataForm().FullScreenStat = "False";
  P().Main().Titlu.Caption = "   Some song";
  // Minimizing hides the playlist and records whether it showed.
  for (auto [playlistShows, showTitle, playlistOn, caption] :
       {std::tuple{true, 0, "1", "Yarvo Player        "}, {false, 1, "0", "   Some song"}}) {
    SCOPED_TRACE(caption);
    P().Main().WindowState = WindowState::Normal;
    P().Playlist().Visible = playlistShows;
    P().Options().Check1.Value = showTitle;
    Press(77);
    EXPECT_EQ(P().Main().WindowState.get(), WindowState::Minimized);
    EXPECT_EQ(P().DataForm().PlaylistON.get(), playlistOn);
    EXPECT_EQ(P().Main().Caption.get(), caption);
    EXPECT_FALSE(P().Playlist().Visible.get());
  }
  int key = 81;
  EXPECT_THROW(HandleShortcutKey(key), ProcessEnd) << "outside full screen close ends it";
}

TEST_F(Shortcuts, VolumeKeysStopAtTheEndsOfTheScale) {
  bass.AddFile("/m/a.mp3", 60);
  P().Playlist().PicList.AddItem("a");
  P().DataForm().ListaCale.AddItem("/m/a.mp3");
  P().Playlist().PicList.Selected(0);
  P().DataForm().ListaCale.Selected(0);
  ClsMain().Play();
  ASSERT_EQ(bass.PlayingFile(), "/m/a.mp3");
  Bind(kVolumeUp, 38);
  Bind(kVolumeDown, 40);
  for (auto [start, key, expected] : {std::tuple{95, 38, 100}, {50, 40, 40}, {5, 40, 0}}) {
    SCOPED_TRACE(std::to_string(start) + (key == 38 ? " up" : " down"));
    SetVolume(start);
    bass.volume = 12345;
    Press(key);
    EXPECT_EQ(Volume(), expected);
    EXPECT_EQ(bass.volume, static_cast<unsigned>(expected * 100)) << "the audio engine is told";
  }
}

TEST_F(Shortcuts, TheFileFillsOnlyTheBoxesItHasRowsFor) {
  // Start found no keyboard.data: every box stays as created, and no usual
  // key may fire on the code 0 they hold.
  EXPECT_EQ(Boxes(), Strings(20, "0"));
  SetVolume(50);
  for (int key : {74, 13, 32, 83, 39, 37, 77, 81, 38, 40}) Press(key);
  EXPECT_EQ(Volume(), 50);
  EXPECT_FALSE(P().JumpForm().Visible.get());
  EXPECT_EQ(P().Main().WindowState.get(), WindowState::Normal);

  const Strings twelve{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "a", "b"};
  Strings boxes = twelve;
  boxes.resize(20, "0");
  test::WriteBytes(KeyboardFile(), Lines(twelve));
  LoadKeyboardData();
  EXPECT_EQ(Boxes(), boxes);
  EXPECT_EQ(test::Rows(P().DataForm().KeyboardSettings), twelve) << "the list is the file";
}

TEST_F(Shortcuts, SaveWritesTheCodesThenTheTexts) {
  const Strings expected{"100", "101", "102", "103", "104", "105", "106", "107", "108", "109",
                         "a",   "b",   "c",   "d",   "e",   "f",   "g",   "h",   "i",   "j"};
  for (int i = 0; i < 10; ++i) {
    P().Options().AsciBox(i).Text = expected[static_cast<std::size_t>(i)];
    P().Options().AsciText(i).Text = expected[static_cast<std::size_t>(i) + 10];
  }
  SaveKeyboardData();
  EXPECT_EQ(test::ReadBytes(KeyboardFile()), Lines(expected));
}

TEST_F(Shortcuts, TheShippedFileBindsTheUsualKeys) {
  test::WriteBytes(KeyboardFile(), test::ReadBytes(YARVO_SHIPPED_DATA "/Data/keyboard.data"));
  LoadKeyboardData();
  EXPECT_EQ(Boxes(),
            (Strings{"74", "13",    "32",    "83", "39",    "37",   "77", "81", "38", "40",
                     "J",  "Enter", "Space", "S",  "Right", "Left", "M",  "Q",  "Up", "Down"}));
  SetVolume(50);
  Press(38);
  EXPECT_EQ(Volume(), 60) << "Up is louder";
  Press(74);
  EXPECT_TRUE(P().JumpForm().Visible.get()) << "J shows the search window";
}

TEST_F(Shortcuts, AssigningAKeyKeepsItsCharacterAndStoresItsCode) {
  auto& box = P().Options().AsciBox(kVolumeUp);
  // The box's text at key-up: a letter typed in front of the old code, a
  // character of two bytes, nothing.
  for (auto [typed, key, shown] :
       {std::tuple{"k38", 75, "k"}, {"\u00E940", 50, "\u00E9"}, {"", 13, ""}}) {
    SCOPED_TRACE(key);
    box.SelStart = 4;
    box.Click();
    EXPECT_EQ(box.SelStart.get(), 0) << "the caret goes to the start";
    box.Text = typed;
    int code = key;
    box.KeyUp(code, 0);
    EXPECT_EQ(P().Options().AsciText(kVolumeUp).Text.get(), shown);
    EXPECT_EQ(box.Text.get(), std::to_string(key));
    SetVolume(50);
    Press(key);
    EXPECT_EQ(Volume(), 60) << "the new key works at once";
  }
}

}  // namespace
}  // namespace yarvo
