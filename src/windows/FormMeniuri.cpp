#include "windows/FormMeniuri.h"

#include <string>
#include <utility>

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/FormPreset.h"
#include "platform/Desktop.h"
#include "playlist/AddMedia.h"
#include "playlist/ClsPl.h"
#include "playlist/JumpForm.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"
#include "windows/Skins.h"
#include "windows/modUserMenus.h"

namespace yarvo {

namespace {

// The icon numbers the items show, by the items' names.
void Tag(std::initializer_list<std::pair<Menu*, int>> tags) {
  for (auto [item, number] : tags) item->Tag = std::to_string(number);
}

void Check(std::initializer_list<Menu*> on, std::initializer_list<Menu*> off) {
  for (Menu* item : on) item->Checked = true;
  for (Menu* item : off) item->Checked = false;
}

void ClearPlaylist() {
  auto& p = program();
  p.Playlist().PicList.Clear();
  p.DataForm().ListaCale.Clear();
  SetJumpList();
}

// The help that ships with the program stands in for its web pages.
void OpenHelp() {
  auto& p = program();
  p.desktop().OpenWebPage("file://" + p.DataForm().ProgramPath("/readme.txt"));
}

}  // namespace

FormMeniuri::FormMeniuri() : Form("FormMeniuri") {
  Caption = "Yarvo Player";
  SetTags();
  BindPlaylistMenu();
  BindMainMenus();
  BindPlaylistWindowMenus();
  BindOtherMenus();
  Load = [this] { FormMeniuri_Form_Load(); };
}

void FormMeniuri::FormMeniuri_Form_Load() {
  OpenCdMenu.Visible = false;
  MediaLibraryMenu.Visible = false;
  SysTrayMenu.Visible = false;  // shown while the tray pops it up
  auto& p = program();
  for (Control* control : Controls()) {
    const auto* item = dynamic_cast<const Menu*>(control);
    const int icon = item ? MenuIcon(*item) : 0;
    if (icon == 0 || Icons.contains(icon)) continue;
    ResumeNext([&] {
      Icons[icon] = p.desktop().LoadPicture(
          p.DataForm().ProgramPath("/Icons/menu-" + std::to_string(icon) + ".png"));
    });
  }
  SetMenuStuff();
}

void FormMeniuri::SetTags() {
  Tag({{&MeniuPlayPl, 16},
       {&MenuInfo, 18},
       {&MeniuProgrameaza, 1},
       {&JumpToFileMenu, 5},
       {&MeniuOptiuni, 4},
       {&MeniuMelodie, 21},
       {&MeniuAleatoriu, 27},
       {&MeniuLaRand, 26},
       {&MeniuPreferinte, 28},
       {&MeniuAdaugaFolder, 10},
       {&MeniuAdaugaFisier, 12},
       {&MeniuStergeFisier, 14},
       {&MeniuStergeLista, 6},
       {&MeniuAfisareClasament, 19}});
  Tag({{&MainOpenFile, 16},
       {&OpenCdMenu, 7},
       {&FileInfoMenu, 18},
       {&MainCloseYarvo, 23},
       {&MainMenuSettings, 4},
       {&ChangeSkinMenu, 21},
       {&LanguageMenu, 23},
       {&KeyboardShortcutsMenu, 8},
       {&FileAssociationMenu, 7},
       {&ShowPlaylistMenu, 12},
       {&ShowTop20Menu, 19},
       {&ID3InfoMenu, 18},
       {&EqualizerMenu, 2},
       {&MainMenuHelp, 17},
       {&ReportBugsMenu, 17},
       {&LastVersionMenu, 17},
       {&AboutYarvoMenu, 18}});
  Tag({{&NewPlaylistMenu, 20},
       {&MenuOpenPlaylist, 11},
       {&MenuSavePlaylist, 1},
       {&SearchInPlMenu, 5},
       {&MenuAddFile, 12},
       {&MenuAddFolder, 10},
       {&MenuClearPlaylist, 6},
       {&PlaylistSettingsMenu, 4},
       {&PlaybackModeMenu, 21},
       {&ShuffleOnMenu, 27},
       {&ShuffleOfMenu, 26},
       {&PlayTheBestMenu, 28}});
  Tag({{&LoadPreset, 11},
       {&SavePreset, 1},
       {&DeletePreset, 14},
       {&VideoSettingsMenu, 13},
       {&VideoSizeMenu, 21},
       {&SysTrayPlay, 16},
       {&SysTrayPause, 24},
       {&SysTrayStop, 25},
       {&SysTrayBack, 1},
       {&SysTrayNext, 11},
       {&SysTrayOpen, 16},
       {&SysTrayJump, 5},
       {&SysTrayClose, 23}});
}

void FormMeniuri::SetMenuStuff() {
  auto& options = program().Options();
  if (options.Option1.Value) {
    Check({&MeniuLaRand, &ShuffleOfMenu},
          {&MeniuAleatoriu, &MeniuPreferinte, &ShuffleOnMenu, &PlayTheBestMenu});
  }
  if (options.Option2.Value) {
    Check({&MeniuAleatoriu, &ShuffleOnMenu},
          {&MeniuLaRand, &MeniuPreferinte, &ShuffleOfMenu, &PlayTheBestMenu});
  }
  if (options.Option3.Value) {
    Check({&MeniuPreferinte, &PlayTheBestMenu},
          {&MeniuLaRand, &MeniuAleatoriu, &ShuffleOnMenu, &ShuffleOfMenu});
  }
  if (options.Option14.Value) Check({&StretchMenu}, {&OriginalSizeMenu, &OriginalSize2Menu});
  if (options.Option16.Value) Check({&OriginalSizeMenu}, {&StretchMenu, &OriginalSize2Menu});
  if (options.Option17.Value) Check({&OriginalSize2Menu}, {&StretchMenu, &OriginalSizeMenu});
  InstallUserMenus(*this);
}

const clsUserMenus* FormMeniuri::UserMenuOf(const Menu& item) const {
  for (const auto& entry : userMenus_) {
    if (entry->umMenuID == &item) return entry.get();
  }
  return nullptr;
}

void FormMeniuri::BindPlaylistMenu() {
  MeniuPlayPl.Click = [] { ClsMain().Play(); };
  MeniuProgrameaza.Click = [] {
    auto& p = program();
    p.DataForm().ListaProgramate.AddItem(p.Playlist().PicList.Text());
  };
  JumpToFileMenu.Click = [] { program().JumpForm().Show(); };
  // The order modes: the option, and the check moves with it.
  auto order = [this](OptionButton Options::*option) {
    return [this, option] {
      (program().Options().*option).Value = true;
      SetMenuStuff();
    };
  };
  MeniuAleatoriu.Click = order(&Options::Option2);
  MeniuLaRand.Click = order(&Options::Option1);
  MeniuPreferinte.Click = order(&Options::Option3);
  ShuffleOnMenu.Click = order(&Options::Option2);
  ShuffleOfMenu.Click = order(&Options::Option1);
  PlayTheBestMenu.Click = order(&Options::Option3);
  MeniuAdaugaFolder.Click = [] { AdaugaFolder(); };
  MeniuAdaugaFisier.Click = [] { AdaugaFisier(); };
  MeniuStergeFisier.Click = [] { StergeFisier(); };
  MeniuStergeLista.Click = [] { ClearPlaylist(); };
}

void FormMeniuri::BindMainMenus() {
  MainOpenFile.Click = [] { ClsMain().OpenAndPlayFile(); };
  MainCloseYarvo.Click = [] { ClsMain().CloseYarvo(); };
  ShowPlaylistMenu.Click = [] {
    auto& p = program();
    auto& playlist = p.Playlist();
    playlist.Visible = !playlist.Visible;
    p.DataForm().PlaylistON = playlist.Visible ? "1" : "0";
  };
  // The equalizer shows in the full layout: the mini window gives way to
  // the small one, which the switch makes full.
  EqualizerMenu.Click = [] {
    auto& p = program();
    if (MiniForm* mini = p.LoadedMiniForm(); mini && mini->Visible) {
      p.DataForm().MainMode = "Small";
      ShowMainForm();
    }
    ClsMain().SwitchMainMode();
  };
  FullMiniMenu.Click = [] {
    if (program().DataForm().MiniMode == "True") {
      ShowMainForm();
    } else {
      ShowMiniForm();
    }
  };
  MainMenuHelp.Click = [] { OpenHelp(); };
  ReportBugsMenu.Click = [] { OpenHelp(); };
}

void FormMeniuri::BindPlaylistWindowMenus() {
  NewPlaylistMenu.Click = [] { ClearPlaylist(); };
  SearchInPlMenu.Click = [] { program().JumpForm().Show(); };
  MenuAddFile.Click = [] { AdaugaFisier(); };
  MenuAddFolder.Click = [] { AdaugaFolder(); };
  MenuClearPlaylist.Click = [] { ClearPlaylist(); };
}

void FormMeniuri::BindOtherMenus() {
  LoadPreset.Click = [] { yarvo::LoadPreset(); };
  SavePreset.Click = [] { yarvo::SavePreset(); };
  DeletePreset.Click = [] { yarvo::DeletePreset(); };
  StretchMenu.Click = [] { program().Options().Option14.Value = true; };
  OriginalSizeMenu.Click = [] { program().Options().Option16.Value = true; };
  OriginalSize2Menu.Click = [] { program().Options().Option17.Value = true; };
  SysTrayPlay.Click = [] { ClsMain().Play(); };
  SysTrayPause.Click = [] { ClsMain().Pause(); };
  SysTrayStop.Click = [] {
    ClsMain().SStop();
    ShowIdlePicture();
  };
  SysTrayBack.Click = [] { ClsMain().PlayPrevious(); };
  SysTrayNext.Click = [] { ClsMain().PlayNext(); };
  SysTrayOpen.Click = [] { ClsMain().OpenAndPlayFile(); };
  SysTrayJump.Click = [] { program().JumpForm().Show(); };
  SysTrayClose.Click = [] {
    auto& p = program();
    p.Main().WindowState = WindowState::Normal;
    p.Main().Show();
    p.Playlist().Show();
    ClsMain().CloseYarvo();
  };
}

}  // namespace yarvo
