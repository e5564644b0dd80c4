#include "playlist/AddMedia.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/FileListBox.h"
#include "core/form/ListBox.h"
#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "platform/Desktop.h"
#include "playlist/ClsPl.h"
#include "playlist/Id3Module.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"

namespace yarvo {

namespace {

struct AddMediaState {
  bool FirstGetDirs = false;
};

bool TagTitleMode() {
  const auto& options = program().Options();
  return options.Option18.Value || options.Option19.Value;
}

// The title of a row added from the dialog; a tag that lacks artist or title
// gives way to the file name.
std::string NewRowTitle(const std::string& path) {
  if (!TagTitleMode()) return TitleOf(path);
  const std::string title = TagTitle(ReadTagNames(path));
  return title.empty() ? TitleOf(path) : title;
}

// Subfolder names of `folder` in listing order; raises when it can't be listed.
std::vector<std::string> SubfoldersOf(const std::string& folder) {
  namespace fs = std::filesystem;
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    std::error_code ignored;
    if (entry.is_directory(ignored) && !entry.is_symlink(ignored)) {
      names.push_back(entry.path().filename().string());
    }
  }
  std::sort(names.begin(), names.end(), ListingOrder);
  return names;
}

// One step of the walk: at most one file of Foldere's row 0. False once
// Foldere is empty.
bool WalkStep() {
  auto& store = program().DataForm();
  std::string folder;
  ResumeNext([&] {
    store.Foldere.Selected(0);
    folder = store.Foldere.Text();
    store.File1.Path(folder);
  });
  const std::int32_t row = [&] {
    std::int32_t value = -1;
    ResumeNext([&] { value = CLng(store.NrFisier.get()); });
    return value;
  }();
  ResumeNext([&] {
    store.File1.Selected(row);
    store.ListaCale.AddItem(folder + "/" + store.File1.Text());
  });
  // A row at or behind the last one ends the folder: a folder that lost files
  // since an unfinished walk must not hold the walk for ever.
  ResumeNext([&] {
    if (store.File1.ListCount() == 0 || row >= store.File1.ListCount() - 1) {
      store.Foldere.RemoveItem(0);
      store.NrFisier = "-1";
    }
  });
  if (store.Foldere.ListCount() == 0) return false;
  ResumeNext([&] { store.NrFisier = Str(CLng(store.NrFisier.get()) + 1.0); });
  return true;
}

// The end of every walk: all titles are rebuilt from the paths, then read
// again from the tags in a tag title mode.
void EndOfWalk() {
  auto& p = program();
  auto& picList = p.Playlist().PicList;
  ResumeNext([&] { picList.Clear(); });
  ListNoChar(picList, p.DataForm().ListaCale);
  ResumeNext([] { SetJumpList(); });
  ResumeNext([] {
    if (TagTitleMode()) FileNameToID3();
  });
}

void WalkFolders() {
  for (int step = 0; step < kWalkSteps; ++step) {
    if (!WalkStep()) break;
  }
  EndOfWalk();
}

constexpr std::array<std::string_view, 28> kDropEndings = {
    ".mp3",  ".wav", ".mpg", ".avi",  ".mov", ".wmv",  ".mpv", ".mpe", ".mpa", ".qt",
    ".ogm",  ".snd", ".rmi", ".divx", ".wma", ".mpeg", ".cda", ".mp2", ".mp1", ".mid",
    ".midi", ".vob", ".dat", ".asf",  ".m2v", ".mp4",  ".flv", ".3gp"};

// The row dropped files go in at: the row under the pointer, within the paths.
void SetDropRow(double y, int rowHeightPixels) {
  auto& p = program();
  auto& store = p.DataForm();
  std::int32_t row = 0;
  ResumeNext([&] { row = ListRowCalc(p.Playlist().PicList, y, rowHeightPixels); });
  row = std::max(row, 0);
  const int last = store.ListaCale.ListCount() - 1;
  if (row >= last) row = last;
  store.AddToIndex = std::to_string(row);
}

}  // namespace

bool& FirstGetDirs() { return program().State<AddMediaState>().FirstGetDirs; }

void AdaugaFisier() {
  auto& p = program();
  const std::string path = ShowFileDialog();
  if (path.empty()) return;
  ResumeNext([&] { p.DataForm().ListaCale.AddItem(path); });
  ResumeNext([&] { p.Playlist().PicList.AddItem(NewRowTitle(path)); });
  ResumeNext([] { SetJumpList(); });
}

void AdaugaFolder() {
  FirstGetDirs() = true;
  const std::string folder = program().desktop().BrowseForFolder("Adauga folder in playlist:");
  if (folder.empty()) return;
  ResumeNext([&] { GetDirs(folder); });
  WalkFolders();
}

void AdaugaFolderDrag(const std::string& path) {
  FirstGetDirs() = true;
  if (path.empty()) return;
  try {
    GetDirs(path);
  } catch (const std::exception&) {
    return;  // a file, or a folder that can't be read
  }
  WalkFolders();
}

void GetDirs(const std::string& currPath) {
  auto& folders = program().DataForm().Foldere;
  const std::vector<std::string> subfolders = SubfoldersOf(currPath);
  if (FirstGetDirs()) {
    folders.AddItem(currPath);
    FirstGetDirs() = false;
  }
  for (const auto& name : subfolders) {
    const std::string path = currPath + "/" + name;
    ResumeNext([&] { GetDirs(path); });
    folders.AddItem(path);
  }
}

bool IsDropMedia(const std::string& name) {
  const std::string lower = LCase(name);
  return std::any_of(kDropEndings.begin(), kDropEndings.end(),
                     [&](std::string_view ending) { return lower.ends_with(ending); });
}

int PicList_OLEDragOver(bool holdsFileList) { return holdsFileList ? 1 : 0; }

int ListRowCalc(const ListBox& pobjLB, double Y, int rowHeightPixels) {
  if (rowHeightPixels == 0) throw err::DivisionByZero();
  const std::int32_t pixels = CLng(Y / 15.0);
  const std::int32_t row = pixels / rowHeightPixels + pobjLB.TopIndex;
  return row >= pobjLB.ListCount() - 1 ? pobjLB.ListCount() - 1 : row;
}

int Playlist_PicList_OLEDragDrop(const std::vector<std::string>& files, double y,
                                 int rowHeightPixels) {
  auto& p = program();
  auto& store = p.DataForm();
  auto& dropped = p.Playlist().L1;
  ResumeNext([&] { store.Foldere.Clear(); });
  // A folder path that differs from every walked one makes the next walk
  // read its folder afresh.
  ResumeNext([&] { store.File1.Path(store.ProgramPath("/Playlists/")); });
  ResumeNext([&] { dropped.Clear(); });
  for (const auto& item : files) {
    ResumeNext([&] { AdaugaFolderDrag(item); });
    if (IsDropMedia(item)) dropped.AddItem(item);
  }
  for (int i = 0; i < dropped.ListCount(); ++i) {
    SetDropRow(y, rowHeightPixels);
    ResumeNext([&] {
      dropped.Selected(i);
      auto& paths = store.ListaCale;
      if (paths.ListCount() > 0) {
        paths.AddItem(dropped.Text(), CInt(store.AddToIndex.get()));
      } else {
        paths.AddItem(dropped.Text());
      }
    });
  }
  ListNoCharDragDrop(p.Playlist().PicList, dropped);
  return 1;
}

}  // namespace yarvo
