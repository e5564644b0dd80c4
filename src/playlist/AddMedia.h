#pragma once
// How files come into the playlist: one file from the open dialog, a folder
// tree from the folder dialog or a drop, and files dropped on the list.
//
// A folder walk takes at most kWalkSteps files at once; folders it leaves
// unfinished stay in DataForm.Foldere, with the next row of DataForm.File1 in
// DataForm.NrFisier, and the next folder add goes on with them first. No way
// of adding looks for duplicates. Everything runs on the interface thread and
// goes on with the next statement after a run-time error.

#include <string>
#include <vector>

namespace yarvo {

class ListBox;

// The most files one folder walk adds.
inline constexpr int kWalkSteps = 5000;

// Asks for one file and adds it at the end, titled by the title mode (a tag
// title falls back to the file name title); then refreshes the Jump list.
void AdaugaFisier();

// Asks for a folder ("Adauga folder in playlist:") and walks it with all its
// subfolders. A cancelled dialog changes nothing.
void AdaugaFolder();

// Walks the folder `path` without a dialog. A path that is no readable folder
// (a file, say) leaves at once, with Foldere as it was.
void AdaugaFolderDrag(const std::string& path);

// Appends to Foldere: `currPath` itself when FirstGetDirs() is set (which it
// then clears), and for each subfolder, in listing order, everything below it
// and then the subfolder. Subfolders reached through a symbolic link are not
// followed, so a link loop cannot recurse; a subfolder that cannot be listed
// stands without what lies below it. Raises when `currPath` cannot be listed,
// before changing anything.
void GetDirs(const std::string& currPath);

// The module's flag that makes the next GetDirs add its own folder.
bool& FirstGetDirs();

// True when a dropped `name` ends, in lower case, in one of the media endings.
bool IsDropMedia(const std::string& name);

// The drag over the playlist: 1 (copy) when the data is a list of files,
// 0 (refused) otherwise.
int PicList_OLEDragOver(bool holdsFileList);

// The row of `list` under `Y` (twips from the list's top) for rows of
// `rowHeightPixels`: the visible row plus TopIndex, at most ListCount - 1, so
// -1 for an empty list. Raises DivisionByZero for a row height of 0.
int ListRowCalc(const ListBox& pobjLB, double Y, int rowHeightPixels);

// Dropped paths, in the file manager's order, at `y` twips from the top of
// Playlist.PicList. Folders are walked; media files are inserted one after
// the other at the row under the pointer (so they stand reversed) with file
// name titles, and the Jump list is left as it was. Gives the drop effect, 1.
int Playlist_PicList_OLEDragDrop(const std::vector<std::string>& files, double y,
                                 int rowHeightPixels);

}  // namespace yarvo
