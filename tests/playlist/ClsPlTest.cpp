// Titles made from paths, and the list operations that keep the playlist's
// lists in step.

#include <gtest/gtest.h>

#include "core/DataForm.h"
#include "playlist/ClsPl.h"
#include "playlist/JumpForm.h"
#include "playlist/Playlist.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;

struct TitleCase {
  const char* path;
  const char* afterSlash;
  const char* title;
  friend std::ostream& operator<<(std::ostream& out, const TitleCase& c) {
    return out << '"' << c.path << '"';
  }
};

class Titles : public ::testing::TestWithParam<TitleCase> {};

TEST_P(Titles, AreTheFileNameWithoutItsLastExtension) {
  const auto& c = GetParam();
  EXPECT_EQ(GetLastBackSlash(c.path), c.afterSlash);
  EXPECT_EQ(TitleOf(c.path), c.title);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, Titles,
    ::testing::Values(TitleCase{"/music/Artist - Song.mp3", "Artist - Song.mp3", "Artist - Song"},
                      TitleCase{"song.mp3", "song.mp3", "song"},      // no separator
                      TitleCase{"/music/README", "README", ""},       // no dot: empty title
                      TitleCase{"/music/.hidden", ".hidden", ""},     // leading dot only
                      TitleCase{"/music/a.b.mp3", "a.b.mp3", "a.b"},  // the first dot stays
                      TitleCase{"/music/dir.v2/track", "track", ""},  // dots in folders don't count
                      TitleCase{"/music/", "", ""},                   // ends in the separator
                      TitleCase{"", "", ""}));

TEST(LeftOfLast, IsEmptyWithoutTheSeparator) {
  EXPECT_EQ(LeftOfLast("abc", "."), "");
  EXPECT_EQ(LeftOfLast("a.b.c", "."), "a.b");
}

class PlaylistLists : public test::ProgramFixture {
 protected:
  void SetUp() override {
    Start();
    for (const char* path : {"/m/a.mp3", "/m/b.ogg", "/m/c.avi"})
      P().DataForm().ListaCale.AddItem(path);
    ListNoChar(P().Playlist().PicList, P().DataForm().ListaCale);
  }
  Strings Titles() { return test::Rows(P().Playlist().PicList); }
  Strings Paths() { return test::Rows(P().DataForm().ListaCale); }
};

TEST_F(PlaylistLists, ListNoCharAddsTitlesWithoutClearing) {
  EXPECT_EQ(Titles(), (Strings{"a", "b", "c"}));
  ListNoChar(P().Playlist().PicList, P().DataForm().ListaCale);
  EXPECT_EQ(Titles().size(), 6u);
}

TEST_F(PlaylistLists, DroppedTitlesGoInAtTheDropRow) {
  auto& dropped = P().Playlist().L1;
  dropped.AddItem("/x/first.mp3");
  dropped.AddItem("/x/second.mp3");
  P().DataForm().AddToIndex = "1";
  ListNoCharDragDrop(P().Playlist().PicList, dropped);
  EXPECT_EQ(Titles(), (Strings{"a", "second", "first", "b", "c"}));
  P().DataForm().AddToIndex = "-5";
  dropped.Clear();
  dropped.AddItem("/x/top.mp3");
  ListNoCharDragDrop(P().Playlist().PicList, dropped);
  EXPECT_EQ(Titles().front(), "top");
}

TEST_F(PlaylistLists, StergeFisierRemovesTheSelectedRowFromBothLists) {
  SetJumpList();
  P().Playlist().PicList.Selected(1);
  StergeFisier();
  EXPECT_EQ(Titles(), (Strings{"a", "c"}));
  EXPECT_EQ(Paths(), (Strings{"/m/a.mp3", "/m/c.avi"}));
  EXPECT_EQ(P().JumpForm().Lista.ListCount(), 3) << "the jump copy waits for its next refresh";

  P().Playlist().PicList.SetListIndex(-1);
  StergeFisier();  // nothing selected: nothing happens
  EXPECT_EQ(Paths().size(), 2u);
}

TEST_F(PlaylistLists, SetJumpListCopiesTheTitlesThroughTheFile) {
  P().Playlist().PicList.AddItem("trailing   ");
  SetJumpList();
  EXPECT_EQ(test::Rows(P().JumpForm().Lista), (Strings{"a", "b", "c", "trailing"}));
  EXPECT_EQ(test::ReadBytes(folder / "Data/playlist.data"), "a\r\nb\r\nc\r\ntrailing   \r\n");
}

TEST_F(PlaylistLists, ExtractFilenameTitlesTheCurrentSong) {
  ExtractFilename("ignored", "/music/My Song.flac");
  EXPECT_EQ(P().Main().Titlu.Caption.get(), "My Song");
  EXPECT_EQ(P().Main().PiesaCurenta.Caption.get(), "My Song");
}

}  // namespace
}  // namespace yarvo
