#include "playlist/Id3Module.h"

#include "core/DataForm.h"
#include "core/Program.h"
#include "core/form/RuntimeError.h"
#include "playlist/ClsPl.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"

namespace yarvo {

namespace {

struct TagRecord {
  Id3Tag tag;
};

// The tag record's text fields go through text boxes that end a text at its
// first zero byte; then pairs of blanks go.
std::string ThroughTextBox(TextBox& box, const std::string& text) {
  box.SetText(text);
  return box.Text;
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

TagNames ReadTagNames(const std::string& path) { return ReadTagNames(path, TagCodePage()); }

TagNames ReadTagNames(const std::string& path, CodePage page) {
  auto& library = program().MediaLibrary();
  ReadId3Tag(path);
  auto& tag = TheId3Tag();
  TagNames names;
  names.artist = removeBlankPairs(ThroughTextBox(library.Text2T, fieldText(tag.Artist, page)));
  names.title = removeBlankPairs(ThroughTextBox(library.Text1T, fieldText(tag.Title, page)));
  tag.Artist = "";
  tag.Title = "";
  return names;
}

std::string TagTitle(const TagNames& names) {
  if (names.artist.empty() || names.title.empty()) return {};
  return program().Options().Option18.Value ? names.artist + " - " + names.title
                                            : names.title + " - " + names.artist;
}

void FileNameToID3() {
  auto& p = program();
  auto& picList = p.Playlist().PicList;
  auto& paths = p.DataForm().ListaCale;
  picList.Visible = false;  // no repaint row by row
  std::string lastTitle;
  const CodePage page = TagCodePage();
  for (int row = 0; row < paths.ListCount(); ++row) {
    ResumeNext([&] {
      paths.Selected(row);
      const TagNames names = ReadTagNames(paths.Text(), page);
      // A row whose tag repeats the title of the row retitled just before it
      // keeps its own text.
      if (names.artist.empty() || names.title.empty() || names.title == lastTitle) return;
      picList.SetList(row, TagTitle(names));  // the row's text replaced in place
      lastTitle = names.title;
    });
  }
  picList.Visible = true;
  SetJumpList();
}

}  // namespace yarvo
