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
  EXPECT_EQ(J().Lista.ListIndex(), 0);
  EXPECT_FALSE(clock.Armed(J().Actualizare));
  EXPECT_EQ(J().TickCounter(), 0);
}

TEST_F(Jump, TypingAgainBeforeTheSecondTickPutsTheSearchOff) {
  Type("xca");
  clock.Advance(250);
  Type("xcal");
  clock.Advance(250);
  EXPECT_TRUE(Results().empty());
  clock.Advance(250);
  EXPECT_EQ(Results(), Strings{"Cab Calloway"});
}

TEST_F(Jump, EnterPlaysTheSelectedResultAndHidesTheWindow) {
  J().Show();
  Type("xab");
  clock.Advance(500);
  Key(kEnter);
  EXPECT_EQ(P().Main().LbFileName(0).Caption.get(), "/m/Cab Calloway.mp3");
  EXPECT_EQ(bass.PlayingFile(), "/m/Cab Calloway.mp3");
  EXPECT_EQ(P().DataForm().SongNumber.get(), "1");
  EXPECT_EQ(P().DataForm().FromPlaylist.get(), "True");
  EXPECT_EQ(P().Playlist().PicList.ListIndex(), 1);
  EXPECT_FALSE(J().Visible);
  EXPECT_EQ(J().Cautare.Text.get(), "");
  EXPECT_EQ(P().Playlist().ActiveControl(), &P().Playlist().PicList);
}

TEST_F(Jump, OfTwoEqualTitlesTheUpperOnePlays) {
  Type("twin");  // the pattern "win"
  clock.Advance(500);
  ASSERT_EQ(Results(), (Strings{"twin", "twin"}));
  Key(kDown);
  ASSERT_EQ(J().Rezultate.ListIndex(), 1);
  Key(kEnter);
  EXPECT_EQ(bass.PlayingFile(), "/m/one/twin.mp3");
  EXPECT_EQ(P().DataForm().SongNumber.get(), "4");
}

TEST_F(Jump, DownAndUpStopAtTheEndsOfTheResults) {
  Type("xab");
  clock.Advance(500);
  Key(kUp);
  EXPECT_EQ(J().Rezultate.ListIndex(), 0);
  for (int i = 0; i < 4; ++i) Key(kDown);
  EXPECT_EQ(J().Rezultate.ListIndex(), 2);
  Key(kUp);
  EXPECT_EQ(J().Rezultate.ListIndex(), 1);
}

TEST_F(Jump, EscHidesWithOrWithoutResults) {
  J().Show();
  Key(kEscape);
  EXPECT_FALSE(J().Visible);
  J().Show();
  Type("xab");
  clock.Advance(500);
  Key(kEscape);
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

TEST_F(Jump, WithoutResultsEnterAndTheButtonPlayNothing) {
  Type("xzz");
  clock.Advance(500);
  Key(kEnter);
  J().Command1.Click();
  J().JumpForm_Rezultate_DblClick();
  EXPECT_EQ(bass.PlayingFile(), "");
}

TEST_F(Jump, TheJumpButtonAndADoubleClickPlayTheSelectedRow) {
  Type("xca");
  clock.Advance(500);
  J().Command1.Click();
  EXPECT_EQ(bass.PlayingFile(), "/m/Cab Calloway.mp3");
  Type("xab");
  clock.Advance(500);
  J().Rezultate.SetListIndex(1);
  J().Rezultate.DblClick();
  EXPECT_EQ(bass.PlayingFile(), "/m/grab a cab.mp3");
}

TEST_F(Jump, CancelHidesAndActivationOrAClickEmptiesTheText) {
  J().Show();
  J().Command2.Click();
  EXPECT_FALSE(J().Visible);
  Type("xab");
  J().Activate();
  EXPECT_EQ(J().Cautare.Text.get(), "");
  EXPECT_EQ(J().ActiveControl(), &J().Cautare);
  Type("xab");
  J().Cautare.Click();
  EXPECT_EQ(J().Cautare.Text.get(), "");
  EXPECT_EQ(J().RealSearch.Text.get(), "");
}

TEST_F(Jump, ATitleNoLongerInThePlaylistLeavesItWithoutACursor) {
  Type("xab");
  clock.Advance(500);
  P().Playlist().PicList.SetList(1, "renamed");
  Key(kEnter);
  EXPECT_EQ(P().Playlist().PicList.ListIndex(), -1);
  EXPECT_EQ(P().DataForm().SongNumber.get(), "-1");
  EXPECT_EQ(bass.PlayingFile(), "");
}

struct MidCase {
  const char* text;
  std::size_t first;
  std::size_t count;
  const char* expected;
};

class Characters : public ::testing::TestWithParam<MidCase> {};

TEST_P(Characters, AreCutOnUtf8Boundaries) {
  const auto& c = GetParam();
  EXPECT_EQ(MidCharacters(c.text, c.first, c.count), c.expected) << c.text;
}

INSTANTIATE_TEST_SUITE_P(Texts, Characters,
                         ::testing::Values(MidCase{"xab", 2, 50, "ab"}, MidCase{"x", 2, 50, ""},
                                           MidCase{"", 2, 50, ""},
                                           MidCase{"\xC3\xA9"
                                                   "ab",
                                                   2, 50, "ab"},  // é is one character
                                           MidCase{"x\xC8\x99\xC8\x9B"
                                                   "a",
                                                   2, 2, "\xC8\x99\xC8\x9B"},  // ș ț
                                           MidCase{"0123456789", 2, 3, "123"}));

TEST_F(Jump, ThePatternTakesAtMostFiftyCharacters) {
  Type("x" + std::string(60, 'y'));
  EXPECT_EQ(J().RealSearch.Text.get(), std::string(50, 'y'));
}

}  // namespace
}  // namespace yarvo
