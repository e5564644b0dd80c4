#include "core/ClsMain.h"

#include "core/DataForm.h"
#include "core/Program.h"
#include "core/form/RuntimeError.h"
#include "playlist/ClsPl.h"
#include "playlist/DataClass.h"
#include "playlist/JumpForm.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

bool TagTitleMode(Options& options) { return options.Option18.Value || options.Option19.Value; }

}  // namespace

void ClsMain::LoadYarvo() {
  auto& p = program();
  LoadPlaylist();
  // Keep Main on the screen; each edge by itself, and only left and top.
  auto& main = p.Main();
  ResumeNext([&] {
    if (main.Left < 0) main.Left = 500;
  });
  ResumeNext([&] {
    if (main.Top < 0) main.Top = 500;
  });
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
    if (TagTitleMode(options)) IncarcaData(store.ProgramPath("/Data/id3.data"), picList);
  });
  ResumeNext([&] { SetJumpList(); });
}

void ClsMain::CloseYarvo() {
  auto& p = program();
  auto& store = p.DataForm();
  ResumeNext([&] { SalveazaData(store.ProgramPath("/Data/plst.data"), store.ListaCale); });
  ResumeNext([&] {
    if (TagTitleMode(p.Options())) {
      SalveazaData(store.ProgramPath("/Data/id3.data"), p.Playlist().PicList);
    }
  });
  ResumeNext([&] {
    SalveazaData(store.ProgramPath("/Data/playlist.data"), p.JumpForm().Lista);
  });
  ResumeNext([&] { p.Main().FixWindows.Enabled = false; });
  ResumeNext([&] { p.Main().Hide(); });
  ResumeNext([&] { p.Playlist().Hide(); });
  Program::End();
}

}  // namespace yarvo
