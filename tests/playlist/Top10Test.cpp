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
using Entries = std::vector<std::pair<std::string, std::string>>;  // title, count

constexpr int kOnePass = 20 * 100;  // ms: twenty steps of the ranking timer

Strings Places() {
  Strings titles;
  for (int i = 0; i < 20; ++i) titles.push_back(program().MediaLibrary().Song(i).Caption);
  return titles;
}

Strings Counts() {
  Strings counts;
  for (int i = 0; i < 20; ++i) counts.push_back(program().MediaLibrary().CountPlayed(i).Caption);
  return counts;
}

// Places 1, 2 ... hold `entries`; the rest stay empty with count "0".
void SetPlaces(const Entries& entries) {
  auto& library = program().MediaLibrary();
  for (std::size_t i = 0; i < entries.size(); ++i) {
    library.Song(static_cast<int>(i)).Caption = entries[i].first;
    library.CountPlayed(static_cast<int>(i)).Caption = entries[i].second;
  }
}

// "t1" to "tn", count "1" each: the list as a restart leaves it.
Entries AfterRestart(int n) {
  Entries entries;
  for (int i = 1; i <= n; ++i) entries.emplace_back("t" + std::to_string(i), "1");
  return entries;
}

Strings Padded(Strings front, const std::string& filler) {
  front.resize(20, filler);
  return front;
}

class Ranking : public test::ProgramFixture {
 protected:
  void SetUp() override { Start(); }

  MediaLibrary& Library() { return P().MediaLibrary(); }

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
  EXPECT_EQ(Counts()[19], "2");
  clock.Advance(100);
  EXPECT_EQ(Places()[18], "t20") << "one place per tick";
  EXPECT_EQ(P().Main().PozInTop.Caption.get(), "Position 19 in Top 20");
  clock.Advance(kOnePass - 100);
  Strings expected{"t20"};
  for (int i = 1; i <= 19; ++i) expected.push_back("t" + std::to_string(i));
  EXPECT_EQ(Places(), expected);
  EXPECT_EQ(Counts(), Padded({"2"}, "1"));
  EXPECT_EQ(P().Main().PozInTop.Caption.get(), "Position 1 in Top 20");
  EXPECT_FALSE(Library().TimerClasament.Enabled.get()) << "the pass ends at place 1";
}

struct ClimbCase {
  const char* name;
  Entries before;
  const char* played;
  Entries after;
};

TEST_F(Ranking, OnePassOrdersByCountAndKeepsEqualCountsInTheirOrder) {
  const std::vector<ClimbCase> cases = {
      {"10 stands above 9, as numbers",
       {{"nine", "9"}, {"ten", "9"}},
       "ten",
       {{"ten", "10"}, {"nine", "9"}}},
      {"equal counts do not pass",
       {{"a", "2"}, {"b", "1"}, {"c", "1"}},
       "c",
       {{"a", "2"}, {"c", "2"}, {"b", "1"}}},
      {"a new title takes the first empty place", {{"a", "1"}}, "z", {{"a", "1"}, {"z", "1"}}},
      {"the top song only counts", {{"a", "1"}, {"b", "1"}}, "a", {{"a", "2"}, {"b", "1"}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    SetPlaces(Entries(20, {"", "0"}));
    SetPlaces(c.before);
    CountPlay(c.played);
    clock.Advance(kOnePass);
    Strings titles;
    Strings counts;
    for (const auto& [title, count] : c.after) {
      titles.push_back(title);
      counts.push_back(count);
    }
    EXPECT_EQ(Places(), Padded(titles, ""));
    EXPECT_EQ(Counts(), Padded(counts, "0"));
  }
}

TEST_F(Ranking, APlayDuringAClimbStartsThePassAgainFromTheBottom) {
  SetPlaces(AfterRestart(20));
  CountPlay("t20");
  clock.Advance(kOnePass / 2);  // t20 has reached place 10; t19 is now at place 20
  ASSERT_EQ(Places()[19], "t19");
  CountPlay("t19");
  clock.Advance(kOnePass);
  EXPECT_EQ(Places()[0], "t20");
  EXPECT_EQ(Places()[10], "t19") << "it climbs up to the equal count of t20's old place";
  EXPECT_FALSE(Library().TimerClasament.Enabled.get());
}

TEST_F(Ranking, TheTwentyFirstSongWaitsAndThePositionTextSaysSo) {
  for (int i = 1; i <= 21; ++i) CountPlay("s" + std::to_string(i));
  clock.Advance(kOnePass);
  Strings first20;
  for (int i = 1; i <= 20; ++i) first20.push_back("s" + std::to_string(i));
  EXPECT_EQ(Places(), first20);
  EXPECT_EQ(Counts(), Padded({}, "1"));
  EXPECT_EQ(test::Rows(Library().ListaAsteptare), Strings{"s21"});

  struct Case {
    const char* current;
    const char* english;
    const char* romanian;
  };
  for (const Case& c : {Case{"s3", "Position 3 in Top 20", "Locul 3 in clasament"},
                        Case{"s21", "Not in Top 20", "Nu se afla in Top 20"},
                        Case{"never played", "Not in Top 20", "Nu se afla in clasament"}}) {
    SCOPED_TRACE(c.current);
    EXPECT_EQ(PositionText(c.current, false), c.english);
    EXPECT_EQ(PositionText(c.current, true), c.romanian);
  }
}

TEST_F(Ranking, AnEmptyCurrentTitleMatchesNoEmptyPlace) {
  SetPlaces(AfterRestart(3));
  EXPECT_EQ(PositionText("", false), "Not in Top 20");
  EXPECT_EQ(PositionText("", true), "Nu se afla in clasament");
}

TEST_F(Ranking, TheTwentiethWaitingTitlePushesTheOldestOut) {
  SetPlaces(AfterRestart(20));
  const Strings places = Places();
  Strings waiting;
  for (int i = 1; i <= 19; ++i) {
    CountPlay("w" + std::to_string(i));
    waiting.push_back("w" + std::to_string(i));
  }
  EXPECT_EQ(test::Rows(Library().ListaAsteptare), waiting);
  CountPlay("w20");
  waiting.erase(waiting.begin());
  waiting.push_back("w20");
  EXPECT_EQ(test::Rows(Library().ListaAsteptare), waiting);
  EXPECT_EQ(Places(), places) << "waiting songs leave the list alone";
  EXPECT_EQ(Counts(), Padded({}, "1"));
}

TEST_F(Ranking, AWaitingSongPlayedAgainTakesPlaceTwentyAndTheOldOneIsLost) {
  SetPlaces(AfterRestart(20));
  CountPlay("w");
  CountPlay("other");
  CountPlay("w");
  EXPECT_EQ(Places()[19], "w");
  EXPECT_EQ(Counts()[19], "2");
  EXPECT_EQ(test::Rows(Library().ListaAsteptare), Strings{"other"});
  clock.Advance(kOnePass);
  EXPECT_EQ(Places()[0], "w");
  for (const auto& title : Places()) EXPECT_NE(title, "t20");
  EXPECT_EQ(test::Rows(Library().ListaAsteptare), Strings{"other"}) << "t20 does not wait";
}

TEST_F(Ranking, AnEmptyTitleIsNotCounted) {
  for (int filled : {3, 20}) {
    SCOPED_TRACE(filled);
    SetPlaces(AfterRestart(filled));
    const Strings places = Places();
    const Strings counts = Counts();
    CountPlay("");
    EXPECT_EQ(Places(), places);
    EXPECT_EQ(Counts(), counts) << "empty places keep count 0";
    EXPECT_EQ(Library().ListaAsteptare.ListCount(), 0);
    EXPECT_FALSE(Library().TimerClasament.Enabled.get());
  }
}

// Which place each draw r = 1..70 plays; 0 is "any row of the playlist".
// Chances: place 1 13 in 70, place 2 6, place 3 5, place 4 3, the rest 2 each.
constexpr int kPlaceOfDraw[70] = {
    3,  3,  3,  3,  3,                                           // 1-5
    2,  2,  2,  2,  2,  2,                                       // 6-11
    1,  1,  1,  1,  1,  1,  1,  1,  1,  1,  1,  1,  1,           // 12-24
    4,  4,  4,                                                   // 25-27
    5,  5,  6,  6,  7,  7,  8,  8,  9,  9,  10, 10, 11, 11, 12,  // 28-42
    12, 13, 13, 14, 14, 15, 15, 16, 16, 17, 17, 18, 18,          // 43-55
    19, 19, 20, 20,                                              // 56-59
    0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,                   // 60-70
};

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

  static int RowOfPlace(int place) { return 20 - place; }
  static constexpr int kOtherRow = 20;
  static constexpr int kEmptyTitleRow = 21;
  static constexpr int kRows = 22;

  // Draws r, then (for any random row) `row`.
  void Draw(int r, int row) {
    random.values.clear();
    random.Next(r - 1, 70);
    random.Next(row, kRows);
    PlayTheBest();
  }

  int PicRow() { return P().Playlist().PicList.ListIndex(); }
  int PathRow() { return P().DataForm().ListaCale.ListIndex(); }
  std::string Played() { return P().Main().LbFileName(0).Caption; }
};

TEST_F(PlayTheBestDraw, EveryDrawPlaysItsPlaceOrARandomRow) {
  for (int r = 1; r <= 70; ++r) {
    SCOPED_TRACE("r = " + std::to_string(r));
    const int place = kPlaceOfDraw[r - 1];
    const int row = place > 0 ? RowOfPlace(place) : kOtherRow;
    Draw(r, kOtherRow);
    EXPECT_EQ(PicRow(), row);
    EXPECT_EQ(PathRow(), row);
    EXPECT_EQ(Played(), P().DataForm().ListaCale.List(row));
  }
}

struct FailedDraw {
  const char* name;
  int r;
  int place;               // the place that r draws, 0 for any row
  const char* placeTitle;  // what that place holds now
  int randomRow;
  bool plays;  // false: stops instead
};

TEST_F(PlayTheBestDraw, AFailedPlaceFallsBackToARandomRow) {
  const std::vector<FailedDraw> cases = {
      {"empty place", 58, 20, "", 3, true},
      {"title no longer on the playlist", 12, 1, "gone", 5, true},
      {"fallback row without a title", 12, 1, "gone", kEmptyTitleRow, false},
      {"any row plays even without a title", 65, 0, "", kEmptyTitleRow, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    if (c.place > 0) P().MediaLibrary().Song(c.place - 1).Caption = c.placeTitle;
    P().Main().LbFileName(0).Caption = "before";
    Draw(c.r, c.randomRow);
    EXPECT_EQ(PicRow(), c.randomRow);
    EXPECT_EQ(PathRow(), c.randomRow);
    EXPECT_EQ(Played(), c.plays ? P().DataForm().ListaCale.List(c.randomRow) : "before");
  }
}

TEST_F(PlayTheBestDraw, AnEmptyPlaylistStops) {
  P().Playlist().PicList.Clear();
  P().DataForm().ListaCale.Clear();
  P().Main().LbFileName(0).Caption = "before";
  Draw(12, 0);
  EXPECT_EQ(PicRow(), -1);
  EXPECT_EQ(Played(), "before");
}

// One run of the program in a shared folder: a restart is a second Session.
class Session : public test::ProgramFixture {
 public:
  explicit Session(const std::string& programFolder) {
    process.programFolder = programFolder;
    Start();
  }
  void TestBody() override {}
};

class RankingFile : public ::testing::Test {
 protected:
  RankingFile() { std::filesystem::create_directories(dir.Path() / "Data"); }
  std::string TopFile() const { return dir / "Data/top.data"; }
  std::string Folder() const { return dir.Path().string(); }

  test::TempDir dir;
};

std::string Lines(const Strings& rows) {
  std::string bytes;
  for (const auto& row : rows) bytes += row + "\r\n";
  return bytes;
}

TEST_F(RankingFile, SavesFortyLinesAndComesBackWithCountsOfOne) {
  {
    Session first(Folder());
    SetPlaces({{"a", "7"}, {"b", "3"}, {"c", "3"}});
    for (const char* title : {"w1", "w2", "w3"})
      program().MediaLibrary().ListaAsteptare.AddItem(title);
    SalveazaClasament();
  }
  Strings expected = Padded({"a", "b", "c"}, "");
  const Strings waiting = Padded({"w1", "w2", "w3"}, "w3");
  expected.insert(expected.end(), waiting.begin(), waiting.end());
  ASSERT_EQ(test::ReadBytes(TopFile()), Lines(expected));

  Session second(Folder());  // its start-up loads the file
  EXPECT_EQ(Places(), Padded({"a", "b", "c"}, ""));
  EXPECT_EQ(Counts(), Padded({"1", "1", "1"}, "0")) << "only the order survives";
  EXPECT_EQ(test::Rows(program().MediaLibrary().ListaAsteptare), waiting);
}

TEST_F(RankingFile, AnEmptyWaitingListIsSavedAsEmptyLines) {
  Session run(Folder());
  SetPlaces({{"a", "1"}});
  SalveazaClasament();
  EXPECT_EQ(test::ReadBytes(TopFile()), Lines(Padded({"a"}, "")) + Lines(Strings(20, "")));
}

struct LoadCase {
  const char* name;
  const char* bytes;  // nullptr: no file
  Strings places;
  Strings waiting;
};

TEST_F(RankingFile, LoadFillsWhatTheFileHas) {
  const std::vector<LoadCase> cases = {
      {"no file", nullptr, {}, {}},
      {"short file", "a\r\nb\r\n", {"a", "b"}, {}},
      {"empty place between", "a\r\n\r\nc\r\n", {"a", "", "c"}, {}},
      {"waiting rows, empty ones skipped",
       "a\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"
       "w1\r\n\r\nw2\r\n",
       {"a"},
       {"w1", "w2"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::filesystem::remove(TopFile());
    if (c.bytes) test::WriteBytes(TopFile(), c.bytes);
    Session run(Folder());
    Strings counts;
    for (const auto& title : Padded(c.places, "")) counts.push_back(title.empty() ? "0" : "1");
    EXPECT_EQ(Places(), Padded(c.places, ""));
    EXPECT_EQ(Counts(), counts);
    EXPECT_EQ(test::Rows(program().MediaLibrary().ListaAsteptare), c.waiting);
  }
}

}  // namespace
}  // namespace yarvo
