// The program's use of tags: the tag page, and playlist titles made from
// tags in the two tag title modes.

#include <gtest/gtest.h>

#include "core/DataForm.h"
#include "playlist/ClsPl.h"
#include "playlist/Id3Module.h"
#include "playlist/JumpForm.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;

class TagTitles : public test::ProgramFixture {
 protected:
  void SetUp() override { Start(); }

  // A file of audio-like bytes with a tag whose fields are given as bytes.
  std::string Tagged(const std::string& name, const std::string& artist, const std::string& title,
                     std::uint8_t genre = 0) {
    Id3Tag tag;
    tag.Artist = artist;
    tag.Title = title;
    tag.Genre = genre;
    const auto bytes = id3TagBytes(tag);
    const std::string path = folder / name;
    test::WriteBytes(path, std::string(1000, 'x') + std::string(bytes.begin(), bytes.end()));
    return path;
  }

  void Playlist(const Strings& paths) {
    for (const auto& path : paths) P().DataForm().ListaCale.AddItem(path);
    ListNoChar(P().Playlist().PicList, P().DataForm().ListaCale);
  }
  Strings Titles() { return test::Rows(P().Playlist().PicList); }
};

TEST_F(TagTitles, ArtistThenTitleOrTheReverseAndFileNamesWhereTheTagGivesNothing) {
  P().Options().TagCodePage.SetText("cp1250");
  Playlist({Tagged("one.mp3", "Abba", "Waterloo"), folder / "notag.mp3",
            Tagged("two.mp3", "", "Only Title"),
            // Padding goes by pairs of blanks, and a zero byte ends the text.
            Tagged("z.mp3", "Band", std::string("Title") + std::string(25, '\0')),
            Tagged("b.mp3", "Band", "Elevenchars" + std::string(19, ' ')),
            // "Ţară" in Windows-1250, the chosen code page.
            Tagged("c.mp3", "\336ar\343", "Cantec")});
  P().Options().Option18.Value = true;  // runs FileNameToID3, as a click does
  EXPECT_EQ(Titles(), (Strings{"Abba - Waterloo", "notag", "two", "Band - Title",
                               "Band - Elevenchars ", "Ţară - Cantec"}));
  P().Options().Option19.Value = true;
  EXPECT_EQ(Titles(), (Strings{"Waterloo - Abba", "notag", "two", "Title - Band",
                               "Elevenchars  - Band", "Cantec - Ţară"}));
  EXPECT_EQ(test::Rows(P().JumpForm().Lista), Titles()) << "the jump list follows";

  // The last row's names stay on the tag page; the record behind them is blanked.
  auto& library = P().MediaLibrary();
  EXPECT_EQ(library.Text2T.Text.get(), "Ţară" + std::string(26, ' '));
  EXPECT_EQ(library.Text1T.Text.get(), "Cantec" + std::string(24, ' '));
  EXPECT_EQ(library.ID3Path.Caption.get(), folder / "c.mp3");
  P().DataForm().ListaCale.AddItem(folder / "notag.mp3");
  P().Playlist().PicList.AddItem("notag");
  P().Options().Option18.Value = true;
  EXPECT_EQ(library.Text2T.Text.get(), std::string(30, ' ')) << "the last file has no tag";
}

TEST_F(TagTitles, ARowWhoseTagRepeatsTheTitleJustGivenKeepsItsText) {
  Playlist({Tagged("a.mp3", "Alfa", "Same"), Tagged("b.mp3", "Beta", "Same"),
            Tagged("c.mp3", "Gama", "Diff")});
  P().Options().Option18.Value = true;
  EXPECT_EQ(Titles(), (Strings{"Alfa - Same", "b", "Gama - Diff"}));
}

// At start in a tag title mode the rows come from id3.data and are then
// retitled by row number: a row the file lacks is inserted, so that a missing
// or short id3.data fills up while the tags allow, row by row.
TEST_F(TagTitles, AtStartTheTagsFillTheRowsThatId3DataLacks) {
  const Strings paths = {Tagged("a.mp3", "Alfa", "Ones"), Tagged("b.mp3", "Beta", "Twos"),
                         folder / "untagged.mp3", Tagged("d.mp3", "Dora", "Four")};
  std::string plst;
  for (const auto& path : paths) plst += path + "\r\n";
  test::WriteBytes(folder / "Data/plst.data", plst);
  const std::string artistFirst = test::SettingsWith({{56, "main"}, {57, "False"}, {58, "True"}});

  Restart(artistFirst);
  // The untagged third row gives no title, so the fourth lies beyond the end.
  EXPECT_EQ(Titles(), (Strings{"Alfa - Ones", "Beta - Twos"}));
  EXPECT_EQ(test::Rows(P().JumpForm().Lista), Titles());

  test::WriteBytes(folder / "Data/id3.data", "old one\r\n");
  Restart(artistFirst);
  EXPECT_EQ(Titles(), (Strings{"Alfa - Ones", "Beta - Twos"}));

  test::WriteBytes(folder / "Data/id3.data", "old one\r\nold two\r\nold three\r\n");
  Restart(artistFirst);
  EXPECT_EQ(Titles(), (Strings{"Alfa - Ones", "Beta - Twos", "old three", "Dora - Four"}));
}

TEST_F(TagTitles, TheTagPageShowsATagAndTheRecordIsBlankedBehindIt) {
  const std::string path = Tagged("a.mp3", "Artist", "Song", 17);
  ShowId3Tag(path);
  auto& library = P().MediaLibrary();
  EXPECT_EQ(library.Text2T.Text.get(), "Artist" + std::string(24, ' '));
  EXPECT_EQ(library.Combo1T.Text(), "Rock");
  EXPECT_EQ(library.ID3Path.Caption.get(), path);
  ShowId3Tag(folder / "notag.mp3");
  EXPECT_EQ(library.Text2T.Text.get(), std::string(30, ' '))
      << "a file without a tag shows blank fields";
  EXPECT_EQ(library.Combo1T.Text(), "Rock") << "but the genre of the last tag read";
}

}  // namespace
}  // namespace yarvo
