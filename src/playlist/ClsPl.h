#pragma once
// Playlist helpers: titles made from paths, and the operations that keep the
// three playlist lists (paths, titles, the jump copy) in step.
//
// A title is the file name without its last extension. Paths split at the
// platform's separator, "/".

#include <string>

namespace yarvo {

class StringList;

// Asks for one existing file with the open dialog ("Open file"); its filter
// row follows Options.Check4. "" when the user cancelled.
std::string ShowFileDialog();

// The part of `text` behind its last "/": all of it without one, "" when it
// ends in one.
std::string GetLastBackSlash(const std::string& text);

// What stands before the last `separator` in `text`; "" when there is none.
std::string LeftOfLast(const std::string& text, const std::string& separator);

// The title of a path: LeftOfLast(GetLastBackSlash(path), ".").
std::string TitleOf(const std::string& path);

// Adds the title of every path in List2, in order, at the end of List1.
void ListNoChar(StringList& List1, StringList& List2);

// The same, but each title goes in at row DataForm.AddToIndex (0 when below 0).
void ListNoCharDragDrop(StringList& List1, StringList& List2);

// Makes the title of FullPath the text of Main.Titlu and Main.PiesaCurenta.
// FileName is not read.
void ExtractFilename(const std::string& FileName, const std::string& FullPath);

// Removes the selected row of Playlist.PicList from both playlist lists.
void StergeFisier();

// Refreshes JumpForm.Lista from Playlist.PicList, through Data/playlist.data.
void SetJumpList();

}  // namespace yarvo
