#include "playlist/Id3Module.h"

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "playlist/ClsPl.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"

namespace yarvo {

namespace {

struct TagRecord {
  Id3Tag tag;
};

// The title and artist a tag gives to a title pass through the tag page's
// text boxes, which end a text at its first zero byte.
void ShowTitleAndArtist(const Id3Tag& tag, CodePage page) {
  auto& library = program().MediaLibrary();
  library.Text2T.SetText(fieldText(tag.Artist, page));
  library.Text1T.SetText(fieldText(tag.Title, page));
}

// Artist and title of the record, blanked there behind the copy.
TagNames TakeTagNames(Id3Tag& tag, CodePage page) {
  TagNames names{tagTitleText(tag.Artist, page), tagTitleText(tag.Title, page)};
  tag.Artist = "";
  tag.Title = "";
  return names;
}

}  // namespace

Id3Tag& TheId3Tag() { return program().State<TagRecord>().tag; }

CodePage TagCodePage() {
  const auto page = codePageFromName(program().Options().TagCodePage.Text());
  return page.value_or(CodePage::Latin1);
}

void ReadId3Tag(const std::string& FileName) {
  ResumeNext([&] { readId3TagFile(FileName, TheId3Tag()); });
  program().MediaLibrary().ID3Path.Caption = FileName;
}

void WriteId3Tag(const std::string& FileName, const Id3Tag& Tag) {
  ResumeNext([&] { writeId3TagFile(FileName, Tag); });
}

void ShowId3Tag(const std::string& FileName) {
  auto& library = program().MediaLibrary();
  ReadId3Tag(FileName);
  auto& tag = TheId3Tag();
  const CodePage page = TagCodePage();
  library.Text1T.SetText(fieldText(tag.Title, page));
  tag.Title = "";
  library.Text2T.SetText(fieldText(tag.Artist, page));
  tag.Artist = "";
  library.Text3T.SetText(fieldText(tag.Album, page));
  tag.Album = "";
  library.Text4T.SetText(fieldText(tag.Year, page));
  tag.Year = "";
  library.Text5T.SetText(fieldText(tag.Comment, page));
  tag.Comment = "";
  // A genre the list does not hold leaves the choice where it was.
  ResumeNext([&] { library.Combo1T.SetListIndex(tag.Genre); });
}

TagNames ReadTagNames(const std::string& path) {
  const CodePage page = TagCodePage();
  ReadId3Tag(path);
  auto& tag = TheId3Tag();
  ShowTitleAndArtist(tag, page);
  return TakeTagNames(tag, page);
}

std::string TagTitle(const TagNames& names) {
  if (names.artist.empty() || names.title.empty()) return {};
  const bool artistFirst = program().Options().Option18.Value;
  const std::string& first = artistFirst ? names.artist : names.title;
  const std::string& second = artistFirst ? names.title : names.artist;
  std::string title;
  title.reserve(first.size() + 3 + second.size());
  return title.append(first).append(" - ").append(second);
}

void FileNameToID3() {
  auto& p = program();
  auto& picList = p.Playlist().PicList;
  auto& paths = p.DataForm().ListaCale;
  auto& tag = TheId3Tag();
  const CodePage page = TagCodePage();
  picList.Visible = false;  // no repaint row by row
  std::string lastTitle;
  // Only the last row's names stay in the text boxes, so they are filled
  // once, behind the loop.
  Id3Tag lastRead;
  for (int row = 0; row < paths.ListCount(); ++row) {
    ResumeNext([&] {
      paths.Selected(row);
      ReadId3Tag(paths.Text());
      lastRead.Artist = tag.Artist;
      lastRead.Title = tag.Title;
      const TagNames names = TakeTagNames(tag, page);
      // A row whose tag repeats the title of the row retitled just before it
      // keeps its own text.
      if (names.artist.empty() || names.title.empty() || names.title == lastTitle) return;
      // The title takes the row's place: a row the titles lack (id3.data
      // shorter than the playlist) is inserted, which at the end appends, and
      // a row further on is dropped.
      ResumeNext([&] {
        if (row < picList.ListCount()) {
          picList.SetList(row, TagTitle(names));
        } else {
          picList.AddItem(TagTitle(names), row);
        }
      });
      lastTitle = names.title;
    });
  }
  if (paths.ListCount() > 0) ShowTitleAndArtist(lastRead, page);
  picList.Visible = true;
  SetJumpList();
}

}  // namespace yarvo
