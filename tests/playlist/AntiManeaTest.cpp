// The blocked-names check at the start of every play: a hit anywhere in what
// is known of the file closes the program, and so does a short list.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/ClsMain.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "engines/media/MciSendString.h"
#include "playlist/AntiManea.h"
#include "playlist/ClsPl.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;

const Strings kTenNames = {"Zorba Zed", "Quixo",   "Blocked One", "Vex Tarn",  "Myrrh Ola",
                           "Jindo",     "Praxo K", "Ulmo Ulmo",   "Tesh Vorn", "Kyrre"};

std::string LineFile(const Strings& rows) {
  std::string bytes;
  for (const auto& row : rows) bytes += row + "\r\n";
  return bytes;
}

const std::string kHitMessage = "Manea detectata! Yarvo Player nu poate deschide fisierul ";
const std::string kShortListMessage =
    "Lista manelisti invalida, posibil incercare de ascultare a manelelor. Yarvo Player se va "
    "inchide acum.";

// A media service that opens and plays anything: a video of no length.
class AnyMediaPlays {
 public:
  AnyMediaPlays() {
    setMciCommandHook([](std::string_view command, std::span<char> reply) {
      const std::string text = command == "status movie mode" ? "playing" : "0";
      if (!reply.empty()) {
        const std::size_t n = std::min(text.size(), reply.size() - 1);
        std::memcpy(reply.data(), text.data(), n);
        reply[n] = '\0';
      }
      return std::optional<std::uint32_t>(0);
    });
  }
  ~AnyMediaPlays() { setMciCommandHook({}); }
  AnyMediaPlays(const AnyMediaPlays&) = delete;
  AnyMediaPlays& operator=(const AnyMediaPlays&) = delete;
};

class Filter : public test::ProgramFixture {
 protected:
  void StartWith(const Strings& names) {
    test::WriteBytes(folder / "Data/mnin.data", LineFile(names));
    Start();
  }
  // One row that plays through the audio library for 30 s.
  void AddRow(const std::string& path) {
    bass.AddFile(path, 30);
    P().DataForm().ListaCale.AddItem(path);
    P().Playlist().PicList.AddItem(TitleOf(path));
  }
  void PlayRow(int row) {
    P().Playlist().PicList.SetListIndex(row);
    P().Playlist().Playlist_PicList_DblClick();
  }
  // The five parts of what is searched; the check runs as after a start.
  void Check(const std::string& path, const std::string& title, const std::string& row,
             const std::string& tagTitle, const std::string& tagArtist) {
    auto& p = P();
    p.Main().LbFileName(0).Caption = path;
    p.Main().Titlu.Caption = title;
    p.Playlist().PicList.Clear();
    p.Playlist().PicList.AddItem(row);
    p.Playlist().PicList.SetListIndex(0);
    p.MediaLibrary().Text1T.Text = tagTitle;
    p.MediaLibrary().Text2T.Text = tagArtist;
    CheckManea(path);
  }
};

struct HitCase {
  const char* where;
  const char* path;
  const char* title;
  const char* row;
  const char* tagTitle;
  const char* tagArtist;
};

class Hit : public Filter, public ::testing::WithParamInterface<HitCase> {};

TEST_P(Hit, ClosesTheProgramWithTheFullPathInTheMessage) {
  StartWith(kTenNames);
  const auto& c = GetParam();
  EXPECT_THROW(Check(c.path, c.title, c.row, c.tagTitle, c.tagArtist), ProcessEnd);
  ASSERT_FALSE(desktop.messages.empty());
  EXPECT_EQ(desktop.messages.front().prompt, kHitMessage + c.path);
  EXPECT_EQ(desktop.messages.front().title, "Yarvo Player");
  EXPECT_EQ(desktop.messages.size(), 1u) << "the first hit ends the check";
}

INSTANTIATE_TEST_SUITE_P(
    Parts, Hit,
    ::testing::Values(
        HitCase{"path", "/music/zorba zed/song.mp3", "Yarvo Player", "song", "", ""},
        HitCase{"main title", "/m/song.mp3", "         ZORBA ZED live", "song", "", ""},
        HitCase{"playlist row", "/m/song.mp3", "", "Live by Quixo", "", ""},
        HitCase{"tag title", "/m/song.mp3", "", "song", "jindo remix", ""},
        HitCase{"tag artist", "/m/song.mp3", "", "song", "Song", "kYRRE"},
        HitCase{"across path and title", "/m/zorba", "zed", "song", "", ""},
        HitCase{"across row and tag title", "/m/song.mp3", "", "song by Tesh", "Vorn", ""},
        HitCase{"inside a longer word", "/m/song.mp3", "", "superjindoband", "", ""}),
    [](const ::testing::TestParamInfo<HitCase>& hit) {
      std::string name = hit.param.where;
      for (char& ch : name) {
        if (ch == ' ') ch = '_';
      }
      return name;
    });

TEST_F(Filter, TenNamesWithoutAMatchLetTheFilePlay) {
  StartWith(kTenNames);
  AddRow("/m/Ordinary Song.mp3");
  PlayRow(0);
  EXPECT_EQ(bass.PlayingFile(), "/m/Ordinary Song.mp3");
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_EQ(P().DataForm().CuvinteCheieManele.Text.get(), "") << "empty between checks";
  clock.Advance(3000);
  EXPECT_EQ(bass.PlayingFile(), "/m/Ordinary Song.mp3");
}

TEST_F(Filter, AHitOnTheAudioRouteStopsThePlayAndKeepsTheRow) {
  StartWith(kTenNames);
  AddRow("/m/ok.mp3");
  AddRow("/m/Vex Tarn - Hit.mp3");
  EXPECT_THROW(PlayRow(1), ProcessEnd);
  EXPECT_EQ(bass.PlayingFile(), "");
  ASSERT_EQ(desktop.messages.size(), 1u);
  EXPECT_EQ(desktop.messages[0].prompt, kHitMessage + "/m/Vex Tarn - Hit.mp3");
  EXPECT_EQ(test::ReadBytes(folder / "Data/plst.data"),
            LineFile({"/m/ok.mp3", "/m/Vex Tarn - Hit.mp3"}))
      << "the stores are saved on the way out, the row with them";
}

TEST_F(Filter, AHitOnTheMediaRouteClosesTheProgramToo) {
  StartWith(kTenNames);
  const std::string video = folder / "Praxo K clip.avi";
  const AnyMediaPlays service;
  P().DataForm().ListaCale.AddItem(video);
  P().Playlist().PicList.AddItem(TitleOf(video));
  EXPECT_THROW(PlayRow(0), ProcessEnd);
  ASSERT_FALSE(desktop.messages.empty());
  EXPECT_EQ(desktop.messages.back().prompt, kHitMessage + video);
}

TEST_F(Filter, NineNamesCloseTheProgramAfterTheFileHasStarted) {
  StartWith(Strings(kTenNames.begin(), kTenNames.begin() + 9));
  AddRow("/m/Ordinary Song.mp3");
  EXPECT_THROW(PlayRow(0), ProcessEnd);
  ASSERT_EQ(desktop.messages.size(), 1u);
  EXPECT_EQ(desktop.messages[0].prompt, kShortListMessage);
  EXPECT_EQ(bass.PlayingFile(), "");
  EXPECT_GE(bass.Calls("BASS_ChannelPlay"), 1) << "the file had started";
}

TEST_F(Filter, AMissingListClosesTheProgramAtTheFirstPlay) {
  std::filesystem::remove(folder / "Data/mnin.data");
  Start();
  AddRow("/m/Ordinary Song.mp3");
  EXPECT_THROW(PlayRow(0), ProcessEnd);
  ASSERT_EQ(desktop.messages.size(), 1u);
  EXPECT_EQ(desktop.messages[0].prompt, kShortListMessage);
}

TEST_F(Filter, AnEmptyRowInTheListMakesEveryFileAHit) {
  Strings names = kTenNames;
  names[3] = "";
  StartWith(names);
  EXPECT_THROW(Check("/m/anything.mp3", "", "anything", "", ""), ProcessEnd);
  ASSERT_EQ(desktop.messages.size(), 1u);
  EXPECT_EQ(desktop.messages[0].prompt, kHitMessage + "/m/anything.mp3");
}

TEST(ShippedList, HasTenNonEmptyRowsEndedByCrLf) {
  const std::string bytes = test::ReadBytes(YARVO_SHIPPED_DATA "/Data/mnin.data");
  ASSERT_FALSE(bytes.empty());
  ASSERT_EQ(bytes.substr(bytes.size() - 2), "\r\n");
  int rows = 0;
  std::size_t start = 0;
  while (start < bytes.size()) {
    const std::size_t end = bytes.find("\r\n", start);
    ASSERT_NE(end, std::string::npos) << "every row ends in CR LF";
    const std::string row = bytes.substr(start, end - start);
    EXPECT_FALSE(row.empty()) << "an empty row would block every file";
    EXPECT_EQ(row.find('\n'), std::string::npos);
    EXPECT_NE(row.back(), ' ') << "the reader would cut the blank";
    ++rows;
    start = end + 2;
  }
  EXPECT_GE(rows, 10);
}

TEST_F(Filter, TheShippedListLetsOrdinaryMusicPlay) {
  test::WriteBytes(folder / "Data/mnin.data",
                   test::ReadBytes(YARVO_SHIPPED_DATA "/Data/mnin.data"));
  Start();
  ASSERT_GE(P().DataForm().ListaManelisti.ListCount(), 10);
  const Strings ordinary = {"/home/ana/Music/Queen - Bohemian Rhapsody.mp3",
                            "/home/ana/Music/Eagles/Hotel California.mp3",
                            "/home/ana/Muzica/Phoenix - Andrii Popa.mp3",
                            "/home/ana/Muzica/Maria Tanase - Ciuleandra.wma",
                            "/home/ana/Muzica/Holograf - Sa nu-mi spui adio.mp3",
                            "/home/ana/Muzica/Dan Spataru - Drumurile noastre.mp3"};
  for (const auto& path : ordinary) {
    SCOPED_TRACE(path);
    EXPECT_NO_THROW(Check(path, TitleOf(path), TitleOf(path), TitleOf(path), "Various Artists"));
  }
  EXPECT_TRUE(desktop.messages.empty());
}

}  // namespace
}  // namespace yarvo
