// The ranking: counting plays, the climb on the ranking timer, the text that
// tells the current song's place, and Data/top.data across a restart.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/DataForm.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "playlist/Top10.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;
using Entry = std::pair<std::string, std::string>;  // title, count
using Entries = std::vector<Entry>;

constexpr int kOnePass = 20 * 100;  // ms: twenty steps of the ranking timer

// Places 1, 2 ... down to the last one that holds a title or a count.
Entries Ranked() {
  auto& library = program().MediaLibrary();
  Entries entries;
  for (int i = 0; i < 20; ++i) {
    entries.emplace_back(library.Song(i).Caption.get(), library.CountPlayed(i).Caption.get());
  }
  while (!entries.empty() && entries.back() == Entry{"", "0"}) entries.pop_back();
  return entries;
}

// Places 1, 2 ... hold `entries`; the rest stay empty with count "0".
void SetPlaces(const Entries& entries) {
  auto& library = program().MediaLibrary();
  for (std::size_t i = 0; i < 20; ++i) {
    const Entry entry = i < entries.size() ? entries[i] : Entry{"", "0"};
    library.Song(static_cast<int>(i)).Caption = entry.first;
    library.CountPlayed(static_cast<int>(i)).Caption = entry.second;
  }
}

// "t1" to "tn", count "1" each: the list as a restart leaves it.
Entries AfterRestart(int n) {
  Entries entries;
  for (int i = 1; i <= n; ++i) entries.emplace_back("t" + std::to_string(i), "1");
  return entries;
}

// `title` at place 1 with two plays, over t1 to t19.
Entries OnTop(const std::string& title) {
  Entries entries = AfterRestart(19);
  entries.insert(entries.begin(), Entry{title, "2"});
  return entries;
}

class Ranking : public test::ProgramFixture {
 protected:
  void SetUp() override { Start(); }

  MediaLibrary& Library() { return P().MediaLibrary(); }
  Strings Waiting() { return test::Rows(Library().ListaAsteptare); }

  std::string PositionText(const std::string& current, bool romanian) {
    P().Options().LanguageSelector.SetListIndex(romanian ? 1 : 0);
    P().Main().PiesaCurenta.Caption = current;
    ShowTopPosition();
    return P().Main().PozInTop.Caption;
  }
};

TEST_F(Ranking, APlaceTwentySongPlayedAgainClimbsToPlaceOneInOnePass) {
  SetPlaces(AfterRestart(20));
  P().Main().PiesaCurenta.Caption = "t20";
  CountPlay("t20");
  clock.Advance(100);
  EXPECT_EQ(Ranked().at(18), (Entry{"t20", "2"})) << "one place per tick";
  EXPECT_EQ(P().Main().PozInTop.Caption.get(), "Position 19 in Top 20");
  clock.Advance(kOnePass - 100);
  EXPECT_EQ(Ranked(), OnTop("t20"));
  EXPECT_EQ(P().Main().PozInTop.Caption.get(), "Position 1 in Top 20");
  EXPECT_FALSE(Library().TimerClasament.Enabled.get()) << "the pass ends at place 1";
}

TEST_F(Ranking, OnePassOrdersByCountAndKeepsEqualCountsInTheirOrder) {
  SetPlaces({{"nine", "9"}, {"ten", "9"}});
  CountPlay("ten");
  clock.Advance(kOnePass);
  EXPECT_EQ(Ranked(), (Entries{{"ten", "10"}, {"nine", "9"}})) << "10 stands above 9, as numbers";
  SetPlaces({{"a", "2"}, {"b", "1"}, {"c", "1"}});
  CountPlay("c");
  clock.Advance(kOnePass);
  EXPECT_EQ(Ranked(), (Entries{{"a", "2"}, {"c", "2"}, {"b", "1"}})) << "equal counts do not pass";
}

TEST_F(Ranking, APlayDuringAClimbStartsThePassAgainFromTheBottom) {
  SetPlaces(AfterRestart(20));
  CountPlay("t20");
  clock.Advance(kOnePass / 2);  // t20 has reached place 10; t19 is now at place 20
  ASSERT_EQ(Ranked().at(19).first, "t19");
  CountPlay("t19");
  clock.Advance(kOnePass);
  EXPECT_EQ(Ranked().at(0).first, "t20");
  EXPECT_EQ(Ranked().at(10).first, "t19") << "it climbs up to the equal count of t20's old place";
  EXPECT_FALSE(Library().TimerClasament.Enabled.get());
}

TEST_F(Ranking, TheTwentyFirstSongWaitsAndThePositionTextSaysSo) {
  for (int i = 1; i <= 21; ++i) CountPlay("t" + std::to_string(i));
  clock.Advance(kOnePass);
  EXPECT_EQ(Ranked(), AfterRestart(20));
  EXPECT_EQ(Waiting(), Strings{"t21"});

  struct Case {
    const char* current;
    const char* english;
    const char* romanian;
  };
  for (const Case& c : {Case{"t3", "Position 3 in Top 20", "Locul 3 in clasament"},
                        Case{"t21", "Not in Top 20", "Nu se afla in Top 20"},
                        Case{"never played", "Not in Top 20", "Nu se afla in clasament"}}) {
    SCOPED_TRACE(c.current);
    EXPECT_EQ(PositionText(c.current, false), c.english);
    EXPECT_EQ(PositionText(c.current, true), c.romanian);
  }
}

TEST_F(Ranking, TheTwentiethWaitingTitlePushesTheOldestOutAndASecondPlayTakesPlaceTwenty) {
  SetPlaces(AfterRestart(20));
  Strings waiting;
  for (int i = 1; i <= 20; ++i) {
    waiting.push_back("w" + std::to_string(i));
    CountPlay(waiting.back());
  }
  waiting.erase(waiting.begin());
  EXPECT_EQ(Waiting(), waiting);
  EXPECT_EQ(Ranked(), AfterRestart(20)) << "waiting songs leave the list alone";

  CountPlay("w5");  // from the middle of the list, over t20
  clock.Advance(kOnePass);
  EXPECT_EQ(Ranked(), OnTop("w5"));
  waiting.erase(waiting.begin() + 3);
  EXPECT_EQ(Waiting(), waiting) << "t20 is lost, not sent to wait";
}

TEST_F(Ranking, AnEmptyTitleIsNotCountedAndMatchesNoEmptyPlace) {
  SetPlaces(AfterRestart(3));
  CountPlay("");
  EXPECT_EQ(Ranked(), AfterRestart(3)) << "empty places keep count 0";
  EXPECT_TRUE(Waiting().empty());
  EXPECT_FALSE(Library().TimerClasament.Enabled.get());
  EXPECT_EQ(PositionText("", false), "Not in Top 20");
  EXPECT_EQ(PositionText("", true), "Nu se afla in clasament");
}

class PlayTheBestDraw : public Ranking {
 protected:
  // Rows 0-19 hold places 20 down to 1 ("t20" first), then "other" and a
  // row whose title is empty; every path is an mp3.
  void SetUp() override {
    Ranking::SetUp();
    SetPlaces(AfterRestart(20));
    for (int place = 20; place >= 1; --place) AddRow("t" + std::to_string(place));
    AddRow("other");
    AddRow("");
  }

  void AddRow(const std::string& title) {
    P().Playlist().PicList.AddItem(title);
    P().DataForm().ListaCale.AddItem("/m/" + title + ".mp3");
  }

  static constexpr int kOtherRow = 20;
  static constexpr int kEmptyTitleRow = 21;

  // Draws r, then (for any random row) `row`: that row is then selected in both lists, and
  // played unless `plays` is false.
  void DrawAndExpectRow(int r, int row, bool plays = true) {
    P().Main().LbFileName(0).Caption = "before";
    random.values.clear();
    random.Next(r - 1, 70);
    random.Next(row, 22);
    PlayTheBest();
    EXPECT_EQ(P().Playlist().PicList.ListIndex(), row);
    EXPECT_EQ(P().DataForm().ListaCale.ListIndex(), row);
    EXPECT_EQ(P().Main().LbFileName(0).Caption.get(),
              plays ? P().DataForm().ListaCale.List(row) : "before");
  }
};

// Chances of a draw r = 1..70: place 1 13 in 70, place 2 6, place 3 5, place 4
// 3, the rest 2 each; 60 to 70 play any row of the playlist (place 0 here).
TEST_F(PlayTheBestDraw, EachDrawPlaysItsPlaceOrARandomRow) {
  const int drawAndPlace[][2] = {{1, 3},   {5, 3},   {6, 2},  {11, 2}, {12, 1}, {24, 1},
                                 {25, 4},  {27, 4},  {28, 5}, {29, 5}, {30, 6}, {57, 19},
                                 {58, 20}, {59, 20}, {60, 0}, {70, 0}};
  for (auto [r, place] : drawAndPlace) {
    SCOPED_TRACE("r = " + std::to_string(r));
    DrawAndExpectRow(r, place > 0 ? 20 - place : kOtherRow);
  }
}

TEST_F(PlayTheBestDraw, AFailedPlaceFallsBackToARandomRow) {
  struct Case {
    const char* name;
    int r;
    int place;               // the place that r draws
    const char* placeTitle;  // what it holds now
    int randomRow;
    bool plays;  // false: stops instead
  };
  for (const Case& c :
       {Case{"empty place", 58, 20, "", 3, true},
        Case{"title no longer on the playlist", 12, 1, "gone", 5, true},
        Case{"fallback row without a title", 12, 1, "gone", kEmptyTitleRow, false},
        Case{"any row plays even without a title", 65, 0, "", kEmptyTitleRow, true}}) {
    SCOPED_TRACE(c.name);
    if (c.place > 0) P().MediaLibrary().Song(c.place - 1).Caption = c.placeTitle;
    DrawAndExpectRow(c.r, c.randomRow, c.plays);
  }
}

std::string Lines(const Strings& rows) {
  std::string bytes;
  for (const auto& row : rows) bytes += row + "\r\n";
  return bytes;
}

TEST_F(Ranking, SavesFortyLinesAndARestartBringsThemBackWithCountsOfOne) {
  SetPlaces({{"a", "7"}, {"b", "3"}, {"c", "3"}});
  SalveazaClasament();
  Strings lines = {"a", "b", "c"};
  lines.resize(40);
  EXPECT_EQ(test::ReadBytes(folder / "Data/top.data"), Lines(lines)) << "no waiting title";

  for (const char* title : {"w1", "w2", "w3"}) Library().ListaAsteptare.AddItem(title);
  SalveazaClasament();
  // The waiting list's last row is written again where the list has no row.
  lines.resize(20);
  lines.insert(lines.end(), {"w1", "w2", "w3"});
  lines.resize(40, "w3");
  ASSERT_EQ(test::ReadBytes(folder / "Data/top.data"), Lines(lines));

  Restart();
  EXPECT_EQ(Ranked(), (Entries{{"a", "1"}, {"b", "1"}, {"c", "1"}})) << "only the order survives";
  EXPECT_EQ(Waiting(), Strings(lines.begin() + 20, lines.end()));
}

// Rows the file does not have, and empty rows, are skipped whole.
TEST_F(Ranking, ARestartLoadsWhatTheFileHas) {
  test::WriteBytes(folder / "Data/top.data", "a\r\n\r\nc\r\n");
  Restart();
  EXPECT_EQ(Ranked(), (Entries{{"a", "1"}, {"", "0"}, {"c", "1"}}));
  EXPECT_TRUE(Waiting().empty());
  test::WriteBytes(folder / "Data/top.data", "a\r\n" + Lines(Strings(19, "")) + "w1\r\n\r\nw2\r\n");
  Restart();
  EXPECT_EQ(Ranked(), (Entries{{"a", "1"}}));
  EXPECT_EQ(Waiting(), (Strings{"w1", "w2"}));
}

}  // namespace
}  // namespace yarvo
