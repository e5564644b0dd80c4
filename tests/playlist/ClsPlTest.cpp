// Titles made from paths, and the list operations that keep the playlist's
// lists in step. The current song's title is checked with the plays.

#include <gtest/gtest.h>

#include "core/DataForm.h"
#include "playlist/ClsPl.h"
#include "playlist/JumpForm.h"
#include "playlist/Playlist.h"
#include "support/ProgramFixture.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;

TEST(TitleOf, IsTheFileNameWithoutItsLastExtension) {
  struct Case {
    const char* path;
    const char* afterSlash;
    const char* title;
  };
  for (const Case& c : {Case{"/music/Artist - Song.mp3", "Artist - Song.mp3", "Artist - Song"},
                        Case{"song.mp3", "song.mp3", "song"},      // no separator
                        Case{"/music/README", "README", ""},       // no dot: empty title
                        Case{"/music/.hidden", ".hidden", ""},     // leading dot only
                        Case{"/music/a.b.mp3", "a.b.mp3", "a.b"},  // the first dot stays
                        Case{"/music/dir.v2/track", "track", ""},  // dots in folders don't count
                        Case{"/music/", "", ""}}) {                // ends in the separator
    EXPECT_EQ(GetLastBackSlash(c.path), c.afterSlash) << c.path;
    EXPECT_EQ(TitleOf(c.path), c.title) << c.path;
  }
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

}  // namespace
}  // namespace yarvo
