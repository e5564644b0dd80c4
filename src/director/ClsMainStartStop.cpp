// Loading the program's state at start, and saving it at the end.

#include <dirent.h>

#include <filesystem>
#include <string_view>

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "platform/ProcessControl.h"
#include "playlist/ClsPl.h"
#include "playlist/DataClass.h"
#include "playlist/Id3Module.h"
#include "playlist/JumpForm.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "playlist/Top10.h"
#include "settings/KeyShortcut.h"
#include "settings/Options.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"
#include "windows/Snap.h"
#include "windows/modSysTray.h"

namespace yarvo {

namespace {

bool TagTitleMode() {
  auto& options = program().Options();
  return options.Option18.Value || options.Option19.Value;
}

// The entry of `folder` whose name is `name`, as the file system spells it:
// the exact name when it exists, else the one entry that differs only in the
// case of its letters. "" when there is none.
std::string EntryAsStored(const std::string& folder, const std::string& name) {
  std::error_code error;
  if (std::filesystem::exists(std::filesystem::path(folder.empty() ? "/" : folder) / name, error))
    return name;
  DIR* dir = ::opendir(folder.empty() ? "/" : folder.c_str());
  if (!dir) return {};
  std::string found;
  while (const dirent* entry = ::readdir(dir)) {
    const std::string candidate = entry->d_name;
    if (candidate.size() == name.size() &&
        std::equal(candidate.begin(), candidate.end(), name.begin(), [](char a, char b) {
          return std::tolower(static_cast<unsigned char>(a)) ==
                 std::tolower(static_cast<unsigned char>(b));
        })) {
      found = candidate;
      break;
    }
  }
  ::closedir(dir);
  return found;
}

}  // namespace

// A path comes back with each component as the file system holds it, and ""
// when any component does not exist. A relative path is taken from the
// current folder.
std::string ClsMain::ExpandLongPath(const std::string& path) {
  if (path.empty()) return {};
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path, error);
  if (error) return {};
  std::string result;
  for (const auto& part : absolute.relative_path()) {
    if (part.empty()) continue;  // a trailing separator
    const std::string stored = EntryAsStored(result, part.string());
    if (stored.empty()) return {};
    result += "/" + stored;
  }
  return result.empty() ? "/" : result;
}

void ClsMain::LoadYarvo() {
  auto& p = program();
  ResumeNext([&] { IncarcaSetari(); });
  LoadPlaylist();
  ResumeNext([] { LoadKeyboardData(); });
  auto& main = p.Main();
  ResumeNext([&] {
    if (main.Left < 0) main.Left = 500;
  });
  ResumeNext([&] {
    if (main.Top < 0) main.Top = 500;
  });
  const std::string commandLine = p.process().CommandLine();
  if (commandLine.empty()) return;
  std::string path;
  ResumeNext([&] { path = ExpandLongPath(commandLine); });
  ResumeNext([&] { p.DataForm().FullScreenStat = "False"; });
  ResumeNext([&] { main.LbFileName(0).Caption = path; });
  ResumeNext([&] { p.DataForm().FromPlaylist = "False"; });
  ResumeNext([&] { Play(); });
  ResumeNext([&] { ExtractFilename(path, path); });
}

// The playlist files, in the order that lets a tag title mode take the
// titles from id3.data first.
void ClsMain::LoadPlaylist() {
  auto& p = program();
  auto& store = p.DataForm();
  auto& options = p.Options();
  auto& picList = p.Playlist().PicList;
  ResumeNext([&] { IncarcaData(store.ProgramPath("/Data/plst.data"), store.ListaCale); });
  ResumeNext([&] {
    if (options.Option15.Value) ListNoChar(picList, store.ListaCale);
  });
  ResumeNext([&] {
    if (TagTitleMode()) IncarcaData(store.ProgramPath("/Data/id3.data"), picList);
  });
  ResumeNext([] { SetJumpList(); });
  ResumeNext([] {
    if (TagTitleMode()) FileNameToID3();
  });
}

void ClsMain::CloseYarvo() {
  auto& p = program();
  auto& store = p.DataForm();
  ResumeNext([] { RemoveTrayIcon(kPlayerTrayIcon); });
  ResumeNext([] { SalveazaClasament(); });
  ResumeNext([&] { SalveazaSetari(); });
  ResumeNext([] { SaveKeyboardData(); });
  ResumeNext([&] { SalveazaData(store.ProgramPath("/Data/plst.data"), store.ListaCale); });
  ResumeNext([&] {
    if (TagTitleMode()) SalveazaData(store.ProgramPath("/Data/id3.data"), p.Playlist().PicList);
  });
  ResumeNext([&] { SStop(); });
  ResumeNext([&] { SalveazaData(store.ProgramPath("/Data/playlist.data"), p.JumpForm().Lista); });
  ResumeNext([&] {
    UnSnapForm(p.Main());
    UnSnapForm(p.Playlist());
    UnSnapForm(p.MediaLibrary());
    if (MiniForm* mini = p.LoadedMiniForm()) UnSnapForm(*mini);
  });
  ResumeNext([&] { p.Main().FixWindows.Enabled = false; });
  ResumeNext([&] { p.Main().Hide(); });
  ResumeNext([&] { p.Playlist().Hide(); });
  ResumeNext([&] { p.UnloadfrmBass(); });
  Program::End();
}

}  // namespace yarvo
