// Files coming into the playlist: the open dialog, the folder walk with its
// step limit and carry-over, and files dropped on the list.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/DataForm.h"
#include "core/form/FileListBox.h"
#include "core/form/RuntimeError.h"
#include "playlist/AddMedia.h"
#include "playlist/ClsPl.h"
#include "playlist/JumpForm.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;

// An ID3v1 block with the given title and artist, other fields blank.
std::string TagBlock(const std::string& title, const std::string& artist) {
  auto field = [](std::string text, std::size_t size) {
    text.resize(size, ' ');
    return text;
  };
  return "TAG" + field(title, 30) + field(artist, 30) + field("", 30) + field("", 4) +
         field("", 30) + std::string(1, '\0');
}

class AddMedia : public test::ProgramFixture {
 protected:
  void SetUp() override { Start(); }

  std::string Media(const std::string& relative, const std::string& bytes = "x") {
    const std::string path = folder / ("media/" + relative);
    test::WriteBytes(path, bytes);
    return path;
  }
  void AddFolder(const std::string& path) {
    desktop.folderAnswers.push_back(path);
    AdaugaFolder();
  }
  Strings Paths() { return test::Rows(P().DataForm().ListaCale); }
  Strings Titles() { return test::Rows(P().Playlist().PicList); }
  Strings JumpList() { return test::Rows(P().JumpForm().Lista); }
  std::string Root() { return folder / "media"; }
};

TEST_F(AddMedia, AFolderTreeComesInSubfoldersFirstThenTheFolderAndFilesByName) {
  for (const char* file : {"r2.mp3", "R1.MP3", "a/x/x1.mp3", "a/a1.wav", "b/b1.avi", "b/B0.mp3"}) {
    Media(file);
  }
  const std::string root = Root();
  AddFolder(root);
  EXPECT_EQ(desktop.folderTitles, Strings{"Adauga folder in playlist:"});
  EXPECT_EQ(Paths(), (Strings{root + "/R1.MP3", root + "/r2.mp3", root + "/a/x/x1.mp3",
                              root + "/a/a1.wav", root + "/b/B0.mp3", root + "/b/b1.avi"}));
  EXPECT_EQ(Titles(), (Strings{"R1", "r2", "x1", "a1", "B0", "b1"}));
  EXPECT_EQ(JumpList(), Titles()) << "the Jump list is refreshed";
}

TEST_F(AddMedia, A5001stFileWaitsForTheNextFolderAdd) {
  for (int i = 0; i < 3000; ++i) Media("tree/" + std::to_string(10000 + i) + ".mp3");
  for (int i = 0; i < 2001; ++i) Media("tree/sub/" + std::to_string(20000 + i) + ".wav");
  std::filesystem::create_directories(folder / "empty");
  P().DataForm().ListaCale.AddItem("/old/first.mp3");

  AddFolder(Root() + "/tree");
  EXPECT_EQ(P().DataForm().ListaCale.ListCount(), 5001) << "the old row and 5000 new ones";
  EXPECT_EQ(P().Playlist().PicList.ListCount(), 5001) << "the list shows every path";
  EXPECT_EQ(Paths().back(), Root() + "/tree/sub/21999.wav");
  EXPECT_EQ(test::Rows(P().DataForm().Foldere), Strings{Root() + "/tree/sub"});

  AddFolder(folder / "empty");
  EXPECT_EQ(P().DataForm().ListaCale.ListCount(), 5002);
  EXPECT_EQ(Paths().back(), Root() + "/tree/sub/22000.wav");
  EXPECT_EQ(Titles().back(), "22000");
  EXPECT_EQ(P().DataForm().Foldere.ListCount(), 0);
}

TEST_F(AddMedia, AFolderThatLostFilesSinceAnUnfinishedWalkEndsInsteadOfHoldingTheWalk) {
  Media("shrunk/only.mp3");
  std::filesystem::create_directories(folder / "empty");
  P().DataForm().Foldere.AddItem(Root() + "/shrunk");
  P().DataForm().NrFisier = "4000";  // left by a walk when the folder was larger
  AddFolder(folder / "empty");
  EXPECT_EQ(P().DataForm().Foldere.ListCount(), 0);
  EXPECT_TRUE(Paths().empty());
}

// The same folder added twice stands twice.
TEST_F(AddMedia, TheWalkTakesThePatternsEndingsDottedOrNotAndNothingLonger) {
  for (const char* file : {"xrmi", "movie3gp", "clip.M2V", "song.rmi", "a.mpe", ".mp3", "a.mpeg",
                           "tune.ogg", "b.mp3.txt", "mp3", "a.m4a"}) {
    Media(std::string("odd/") + file);
  }
  AddFolder(Root() + "/odd");
  AddFolder(Root() + "/odd");
  Strings expected;
  for (int pass = 0; pass < 2; ++pass) {
    for (const char* file : {".mp3", "a.mpe", "a.mpeg", "clip.M2V", "movie3gp", "song.rmi", "xrmi"})
      expected.push_back(Root() + "/odd/" + file);
  }
  EXPECT_EQ(Paths(), expected);
}

TEST_F(AddMedia, CancelledDialogsChangeNothing) {
  AdaugaFolder();
  AdaugaFisier();
  EXPECT_TRUE(Paths().empty());
  EXPECT_EQ(P().DataForm().Foldere.ListCount(), 0);
  EXPECT_EQ(desktop.fileRequests.size(), 1u);
}

TEST_F(AddMedia, AFileFromTheDialogIsTitledByTheTitleMode) {
  const std::string tagged = Media("tagged.mp3", std::string(300, '\0') + TagBlock("Song", "Band"));
  const std::string halfTag = Media("half.mp3", std::string(300, '\0') + TagBlock("Only", ""));
  struct Case {
    OptionButton* mode;
    const char* taggedTitle;
  };
  auto& options = P().Options();
  for (const Case& c : {Case{&options.Option15, "tagged"}, Case{&options.Option18, "Band - Song"},
                        Case{&options.Option19, "Song - Band"}}) {
    SCOPED_TRACE(c.mode->Name());
    P().DataForm().ListaCale.Clear();
    P().Playlist().PicList.Clear();
    c.mode->Value = true;
    desktop.fileAnswers = {tagged, halfTag};
    AdaugaFisier();
    AdaugaFisier();
    EXPECT_EQ(Paths(), (Strings{tagged, halfTag}));
    EXPECT_EQ(Titles(), (Strings{c.taggedTitle, "half"})) << "a tag without an artist gives way";
    EXPECT_EQ(JumpList(), Titles());
  }
}

TEST_F(AddMedia, AWalkInATagTitleModeRetitlesFromTheTags) {
  P().Options().Option18.Value = true;
  Media("tags/1.mp3", std::string(200, '\0') + TagBlock("Song", "Band"));
  Media("tags/2.mp3", "no tag");
  AddFolder(Root() + "/tags");
  EXPECT_EQ(Titles(), (Strings{"Band - Song", "2"}));
}

TEST_F(AddMedia, AFileGivenAsAFolderLeavesTheWorkListAsItWas) {
  const std::string file = Media("lone.mp3");
  P().DataForm().Foldere.AddItem("/left/over");
  AdaugaFolderDrag(file);
  AdaugaFolderDrag(folder / "no such folder");
  EXPECT_EQ(test::Rows(P().DataForm().Foldere), Strings{"/left/over"});
  EXPECT_TRUE(Paths().empty());
}

TEST(ListingOrder, FoldsCaseFirstAndKeepsATotalOrder) {
  Strings names{"b", "B", "a10", "A2", "a1"};
  std::sort(names.begin(), names.end(), ListingOrder);
  EXPECT_EQ(names, (Strings{"a1", "a10", "A2", "B", "b"}));
}

// Drops on a playlist of three rows "a", "b", "c"; rows 13 pixels high.
class Drop : public AddMedia {
 protected:
  static constexpr int kRow = 13;
  void SetUp() override {
    AddMedia::SetUp();
    for (const char* path : {"/m/a.mp3", "/m/b.mp3", "/m/c.mp3"})
      P().DataForm().ListaCale.AddItem(path);
    ListNoChar(P().Playlist().PicList, P().DataForm().ListaCale);
    SetJumpList();
  }
  void DropAt(const Strings& files, double y) {
    EXPECT_EQ(Playlist_PicList_OLEDragDrop(files, y, kRow), 1);
  }
};

// Only media endings are taken, in any case, and titled by the file name: a
// tag title mode does not reach dropped rows.
TEST_F(Drop, FilesOnRowZeroStandReversedBeforeTheOldFirstRow) {
  P().Options().Option19.Value = true;
  const std::string tagged = Media("t.mp3", std::string(200, '\0') + TagBlock("Song", "Band"));
  // Through the list, as the host's drop arrives.
  auto& list = P().Playlist().PicList;
  ASSERT_TRUE(list.AcceptsFiles);
  ASSERT_TRUE(list.FilesDropped);
  EXPECT_EQ(PicList_OLEDragOver(true), 1);
  EXPECT_EQ(PicList_OLEDragOver(false), 0);
  list.FilesDropped(
      {"/d/1.mp3", "/d/notes.txt", "/d/song.ogg", "/d/LOUD.MP3", "/d/Clip.Divx", tagged}, 0);
  EXPECT_EQ(Titles(), (Strings{"t", "Clip", "LOUD", "1", "a", "b", "c"}));
  EXPECT_EQ(Paths(), (Strings{tagged, "/d/Clip.Divx", "/d/LOUD.MP3", "/d/1.mp3", "/m/a.mp3",
                              "/m/b.mp3", "/m/c.mp3"}));
  EXPECT_EQ(JumpList(), (Strings{"a", "b", "c"})) << "a drop leaves the Jump list alone";
}

TEST_F(Drop, OneFileGoesInAtTheRowUnderThePointerCountedFromTheFirstRowShown) {
  DropAt({"/d/low.mp3"}, 100000);  // below the last row: before the last row
  EXPECT_EQ(Titles(), (Strings{"a", "b", "low", "c"}));
  P().Playlist().PicList.Height = 2 * kRow * 15;  // two rows shown: the list can scroll
  P().Playlist().PicList.TopIndex = 1;
  DropAt({"/d/mid.mp3"}, kRow * 15);  // the second row shown
  EXPECT_EQ(Titles(), (Strings{"a", "b", "mid", "low", "c"}));
}

TEST_F(Drop, AFolderAndAFileTogether) {
  Media("dropped/x.wav");
  Media("dropped/y.mp3");
  DropAt({Root() + "/dropped", "/d/f.mp3"}, 0);
  EXPECT_EQ(Paths(), (Strings{"/d/f.mp3", "/m/a.mp3", "/m/b.mp3", "/m/c.mp3",
                              Root() + "/dropped/x.wav", Root() + "/dropped/y.mp3"}));
  EXPECT_EQ(Titles(), (Strings{"f", "a", "b", "c", "x", "y"}));
}

// Alone on an empty playlist a file leaves the drop row at -1.
TEST_F(Drop, OneFileOnAnEmptyPlaylist) {
  P().DataForm().ListaCale.Clear();
  P().Playlist().PicList.Clear();
  DropAt({"/d/1.mp3"}, 500);
  EXPECT_EQ(Paths(), Strings{"/d/1.mp3"});
  EXPECT_EQ(Titles(), Strings{"1"});
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(AddMedia, TheRowUnderThePointerIsTheShownRowPlusTopIndexAtMostTheLast) {
  auto& list = P().Playlist().PicList;
  EXPECT_EQ(list.RowHeight(), 13) << "8 points";
  EXPECT_EQ(ListRowCalc(list, 500, 13), -1) << "an empty list";
  EXPECT_THROW(ListRowCalc(list, 500, 0), RuntimeError);
  for (int i = 0; i < 10; ++i) list.AddItem(std::to_string(i));
  list.Height = 5 * 13 * 15;  // five rows shown
  struct Case {
    double y;  // twips, rounded to whole pixels first
    int top;
    int row;
  };
  for (const Case& c : {Case{187, 0, 0} /* 12.47 px */, Case{188, 0, 1} /* 12.53 px */,
                        Case{195, 2, 3}, Case{1950, 0, 9}}) {
    list.TopIndex = c.top;
    EXPECT_EQ(ListRowCalc(list, c.y, 13), c.row) << c.y << " at top " << c.top;
  }
}

}  // namespace
}  // namespace yarvo
