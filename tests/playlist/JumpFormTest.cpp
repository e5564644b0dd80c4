// The "Search" window: the pattern from the typed text, the search after a
// pause in the typing, the keys, and the jump that plays a row.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/DataForm.h"
#include "playlist/ClsPl.h"
#include "playlist/JumpForm.h"
#include "playlist/Playlist.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;

constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr int kUp = 38;
constexpr int kDown = 40;

class Jump : public test::ProgramFixture {
 protected:
  // Rows 0..5; rows 4 and 5 are twins by title.
  void SetUp() override {
    Start();
    for (const char* path : {"/m/abba.mp3", "/m/Cab Calloway.mp3", "/m/Nothing.mp3",
                             "/m/grab a cab.mp3", "/m/one/twin.mp3", "/m/two/twin.mp3"}) {
      bass.AddFile(path, 30);
      P().DataForm().ListaCale.AddItem(path);
    }
    ListNoChar(P().Playlist().PicList, P().DataForm().ListaCale);
    SetJumpList();
  }

  JumpForm& J() { return P().JumpForm(); }
  void Type(const std::string& text) { J().Cautare.Text = text; }
  // Types `text` and waits out the pause after which the search runs.
  void Search(const std::string& text) {
    Type(text);
    clock.Advance(500);
  }
  void Key(int code) {
    int key = code;
    J().Cautare.KeyDown(key, 0);
  }
  Strings Results() { return test::Rows(J().Rezultate); }
};

TEST_F(Jump, TheSearchRunsAfterTwoQuietTicksAndFindsThePatternAnywhereButAtTheStart) {
  Type("xab");
  EXPECT_EQ(J().RealSearch.Text.get(), "ab");
  clock.Advance(250);
  EXPECT_TRUE(Results().empty()) << "one tick is no pause yet";
  clock.Advance(250);
  // "abba" holds "ab" only at its very start; "grab a cab" holds it twice.
  EXPECT_EQ(Results(), (Strings{"Cab Calloway", "grab a cab", "grab a cab"}));
  EXPECT_EQ(J().Rezultate.ListIndex(), 0);
  EXPECT_FALSE(clock.Armed(J().Actualizare));

  Type("xca");
  clock.Advance(250);
  Type("xcal");  // typing again before the second tick puts the search off
  clock.Advance(250);
  EXPECT_TRUE(Results().empty());
  clock.Advance(250);
  EXPECT_EQ(Results(), Strings{"Cab Calloway"});
}

TEST_F(Jump, EnterTheButtonAndADoubleClickPlayTheSelectedResultAndHideTheWindow) {
  J().Show();
  Search("xab");
  Key(kEnter);
  EXPECT_EQ(bass.PlayingFile(), "/m/Cab Calloway.mp3");
  EXPECT_EQ(P().DataForm().SongNumber.get(), "1");
  EXPECT_EQ(P().DataForm().FromPlaylist.get(), "True");
  EXPECT_FALSE(J().Visible);
  EXPECT_EQ(J().Cautare.Text.get(), "");
  EXPECT_EQ(P().Playlist().ActiveControl(), &P().Playlist().PicList);

  Search("xab");
  J().Rezultate.SetListIndex(1);
  J().Rezultate.DblClick();
  EXPECT_EQ(bass.PlayingFile(), "/m/grab a cab.mp3");
  Search("xca");
  J().Command1.Click();
  EXPECT_EQ(bass.PlayingFile(), "/m/Cab Calloway.mp3");
}

TEST_F(Jump, DownAndUpStopAtTheEndsAndOfTwoEqualTitlesTheUpperOnePlays) {
  Search("twin");  // the pattern "win"
  ASSERT_EQ(Results(), (Strings{"twin", "twin"}));
  Key(kUp);
  EXPECT_EQ(J().Rezultate.ListIndex(), 0);
  for (int i = 0; i < 3; ++i) Key(kDown);
  EXPECT_EQ(J().Rezultate.ListIndex(), 1);
  Key(kUp);
  EXPECT_EQ(J().Rezultate.ListIndex(), 0);
  Key(kDown);
  Key(kEnter);
  EXPECT_EQ(bass.PlayingFile(), "/m/one/twin.mp3");
  EXPECT_EQ(P().DataForm().SongNumber.get(), "4");
}

TEST_F(Jump, EscAndCancelHideWithOrWithoutResultsAndNothingPlays) {
  J().Show();
  Search("xzz");
  Key(kEnter);
  J().Command1.Click();
  J().JumpForm_Rezultate_DblClick();
  EXPECT_TRUE(J().Visible) << "without results there is nothing to play";
  Key(kEscape);
  EXPECT_FALSE(J().Visible);
  J().Show();
  Search("xab");
  Key(kEscape);
  EXPECT_FALSE(J().Visible);
  J().Show();
  J().Command2.Click();
  EXPECT_FALSE(J().Visible);
  EXPECT_EQ(bass.PlayingFile(), "");
}

TEST_F(Jump, OneCharacterSearchesForNothingAndTheTimerStopsAtItsTwentiethTick) {
  Type("c");
  EXPECT_EQ(J().RealSearch.Text.get(), "");
  clock.Advance(19 * 250);
  EXPECT_TRUE(clock.Armed(J().Actualizare));
  clock.Advance(250);
  EXPECT_FALSE(clock.Armed(J().Actualizare));
  EXPECT_EQ(J().TickCounter(), 3);
  EXPECT_TRUE(Results().empty());
}

TEST_F(Jump, ActivationOrAClickEmptiesTheText) {
  Type("xab");
  J().Activate();
  EXPECT_EQ(J().Cautare.Text.get(), "");
  EXPECT_EQ(J().ActiveControl(), &J().Cautare);
  Type("xab");
  J().Cautare.Click();
  EXPECT_EQ(J().Cautare.Text.get(), "");
}

TEST_F(Jump, ATitleNoLongerInThePlaylistLeavesItWithoutACursor) {
  Search("xab");
  P().Playlist().PicList.SetList(1, "renamed");
  Key(kEnter);
  EXPECT_EQ(P().Playlist().PicList.ListIndex(), -1);
  EXPECT_EQ(P().DataForm().SongNumber.get(), "-1");
  EXPECT_EQ(bass.PlayingFile(), "");
}

TEST_F(Jump, ThePatternIsTheTextAfterItsFirstCharacterUpToFifty) {
  Type("x" + std::string(60, 'y'));
  EXPECT_EQ(J().RealSearch.Text.get(), std::string(50, 'y'));
  // é, ș and ț take two bytes each but count as one character.
  EXPECT_EQ(MidCharacters("\303\251ab", 2, 50), "ab");
  EXPECT_EQ(MidCharacters("x\310\231\310\233a", 2, 2), "\310\231\310\233");
  EXPECT_EQ(MidCharacters("0123456789", 2, 3), "123");
  EXPECT_EQ(MidCharacters("x", 2, 50), "");
}

}  // namespace
}  // namespace yarvo
