#pragma once
// The program's use of ID3v1 tags: the one tag record every reader goes
// through, the tag page of the media library, and titles made from tags.

#include <string>

#include "playlist/CodePage.h"
#include "playlist/Id3Tag.h"

namespace yarvo {

// The one tag record of the program. A file without a tag leaves it as it
// was, so each reader blanks what it has taken.
Id3Tag& TheId3Tag();

// The code page of tag text, as chosen in Options.
CodePage TagCodePage();

// Fills the record from the file if it has a tag; names the file in
// MediaLibrary.ID3Path in every case.
void ReadId3Tag(const std::string& FileName);
// Writes `Tag` into the file; a file that cannot be written stays as it was.
void WriteId3Tag(const std::string& FileName, const Id3Tag& Tag);
// Reads the file's tag into the tag page of MediaLibrary.
void ShowId3Tag(const std::string& FileName);

// Artist and title as a tag gives them to a display title: ended at the
// first zero byte, pairs of blanks removed. Reads the file's tag and blanks
// the two fields in the record.
struct TagNames {
  std::string artist;
  std::string title;
};
TagNames ReadTagNames(const std::string& path);

// "Artist - Title" or "Title - Artist" by the tag title mode; "" when either
// is empty.
std::string TagTitle(const TagNames& names);

// Retitles the whole playlist from the tags (in a tag title mode).
void FileNameToID3();

}  // namespace yarvo
