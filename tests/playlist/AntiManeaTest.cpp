// The blocked-names check at the start of every play: a hit anywhere in what
// is known of the file closes the program, and so does a short list.

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <vector>

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
      if (!reply.empty()) std::snprintf(reply.data(), reply.size(), "%s", text.c_str());
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
    Restart();  // a fresh program for each case of a loop
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

TEST_F(Filter, AHitAnywhereClosesTheProgramWithTheFullPathInTheMessage) {
  struct Case {
    const char* where;
    const char* path;
    const char* title;
    const char* row;
    const char* tagTitle;
    const char* tagArtist;
  };
  for (const Case& c :
       {Case{"path", "/music/zorba zed/song.mp3", "Yarvo Player", "song", "", ""},
        Case{"main title", "/m/song.mp3", "         ZORBA ZED live", "song", "", ""},
        Case{"playlist row", "/m/song.mp3", "", "Live by Quixo", "", ""},
        Case{"tag title", "/m/song.mp3", "", "song", "jindo remix", ""},
        Case{"tag artist", "/m/song.mp3", "", "song", "Song", "kYRRE"},
        Case{"across path and title", "/m/zorba", "zed", "song", "", ""},
        Case{"across row and tag title", "/m/song.mp3", "", "song by Tesh", "Vorn", ""},
        Case{"inside a longer word", "/m/song.mp3", "", "superjindoband", "", ""}}) {
    SCOPED_TRACE(c.where);
    desktop.messages.clear();
    StartWith(kTenNames);
    EXPECT_THROW(Check(c.path, c.title, c.row, c.tagTitle, c.tagArtist), ProcessEnd);
    ASSERT_EQ(desktop.messages.size(), 1u) << "the first hit ends the check";
    EXPECT_EQ(desktop.messages[0].prompt, kHitMessage + c.path);
    EXPECT_EQ(desktop.messages[0].title, "Yarvo Player");
  }
}

TEST_F(Filter, AHitOnTheAudioRouteStopsThePlayAndKeepsTheRow) {
  StartWith(kTenNames);
  AddRow("/m/Vex Tarn - Hit.mp3");
  EXPECT_THROW(PlayRow(0), ProcessEnd);
  EXPECT_EQ(bass.PlayingFile(), "");
  ASSERT_EQ(desktop.messages.size(), 1u);
  EXPECT_EQ(desktop.messages[0].prompt, kHitMessage + "/m/Vex Tarn - Hit.mp3");
  EXPECT_EQ(test::ReadBytes(folder / "Data/plst.data"), LineFile({"/m/Vex Tarn - Hit.mp3"}))
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

TEST_F(Filter, AnEmptyRowInTheListMakesEveryFileAHit) {
  Strings names = kTenNames;
  names[3] = "";
  StartWith(names);
  EXPECT_THROW(Check("/m/anything.mp3", "", "anything", "", ""), ProcessEnd);
  ASSERT_EQ(desktop.messages.size(), 1u);
  EXPECT_EQ(desktop.messages[0].prompt, kHitMessage + "/m/anything.mp3");
}

TEST_F(Filter, TheShippedListHasTenCleanRowsAndLetsOrdinaryMusicPlay) {
  const std::string bytes = test::ReadBytes(YARVO_SHIPPED_DATA "/Data/mnin.data");
  ASSERT_TRUE(bytes.ends_with("\r\n"));
  for (std::size_t start = 0, end = 0; start < bytes.size(); start = end + 2) {
    end = bytes.find("\r\n", start);
    const std::string row = bytes.substr(start, end - start);
    EXPECT_EQ(row.find_first_of("\r\n"), std::string::npos) << "a lone CR or LF ends a row";
    // An empty row would block every file; the reader would cut a trailing blank.
    EXPECT_FALSE(row.empty() || row.back() == ' ') << '"' << row << '"';
  }
  test::WriteBytes(folder / "Data/mnin.data", bytes);
  Start();
  ASSERT_GE(P().DataForm().ListaManelisti.ListCount(), 10);
  for (const char* path : {"/home/ana/Music/Queen - Bohemian Rhapsody.mp3",
                           "/home/ana/Muzica/Phoenix - Andrii Popa.mp3",
                           "/home/ana/Muzica/Maria Tanase - Ciuleandra.wma",
                           "/home/ana/Muzica/Dan Spataru - Drumurile noastre.mp3"}) {
    SCOPED_TRACE(path);
    EXPECT_NO_THROW(Check(path, TitleOf(path), TitleOf(path), TitleOf(path), "Various Artists"));
  }
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_EQ(P().DataForm().CuvinteCheieManele.Text.get(), "") << "empty between checks";
}

}  // namespace
}  // namespace yarvo
