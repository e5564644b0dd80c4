#pragma once
// The hidden window that owns every popup menu of the program. The other
// windows pop its menus up; the items' actions live here. The menus are
// drawn by hand (modUserMenus): SetMenuStuff sets the check marks from the
// options and takes the captions the drawing uses.

#include <map>
#include <memory>
#include <vector>

#include "core/form/Form.h"
#include "core/form/Menu.h"
#include "windows/clsUserMenus.h"

namespace yarvo {

class FormMeniuri : public Form {
 public:
  FormMeniuri();

  Menu MeniuPlaylist{this, "MeniuPlaylist", "Playlist"};
  Menu MeniuPlayPl{this, "MeniuPlayPl", "Play", &MeniuPlaylist};
  Menu MenuInfo{this, "MenuInfo", "Informations", &MeniuPlaylist};
  Menu MeniuProgrameaza{this, "MeniuProgrameaza", "Set as next (schedule)", &MeniuPlaylist};
  Menu JumpToFileMenu{this, "JumpToFileMenu", "Jump to file", &MeniuPlaylist};
  Menu Separator1{this, "Separator1", "-", &MeniuPlaylist};
  Menu MeniuOptiuni{this, "MeniuOptiuni", "Options", &MeniuPlaylist};
  Menu MeniuMelodie{this, "MeniuMelodie", "Playback mode", &MeniuPlaylist};
  Menu MeniuAleatoriu{this, "MeniuAleatoriu", "Shuffle on", &MeniuMelodie};
  Menu MeniuLaRand{this, "MeniuLaRand", "Shuffle off", &MeniuMelodie};
  Menu MeniuPreferinte{this, "MeniuPreferinte", "Play the best", &MeniuMelodie};
  Menu Separator4{this, "Separator4", "-", &MeniuPlaylist};
  Menu MeniuAdaugaFolder{this, "MeniuAdaugaFolder", "Add folder to playlist", &MeniuPlaylist};
  Menu MeniuAdaugaFisier{this, "MeniuAdaugaFisier", "Add file to playlist", &MeniuPlaylist};
  Menu MeniuStergeFisier{this, "MeniuStergeFisier", "Delete selected", &MeniuPlaylist};
  Menu MeniuStergeLista{this, "MeniuStergeLista", "Delete all", &MeniuPlaylist};
  Menu Separator2{this, "Separator2", "-", &MeniuPlaylist};
  Menu MeniuAfisareClasament{this, "MeniuAfisareClasament", "Top 20", &MeniuPlaylist};
  Menu Separator3{this, "Separator3", "-", &MeniuPlaylist};

  Menu MainMenu1{this, "MainMenu1", "MainMenu1"};
  Menu MainOpenFile{this, "MainOpenFile", "Play file", &MainMenu1};
  Menu OpenCdMenu{this, "OpenCdMenu", "Open CD / Dvd", &MainMenu1};
  Menu Separator5{this, "Separator5", "-", &MainMenu1};
  Menu FileInfoMenu{this, "FileInfoMenu", "File info", &MainMenu1};
  Menu Separator12{this, "Separator12", "-", &MainMenu1};
  Menu MainCloseYarvo{this, "MainCloseYarvo", "Close Yarvo Player", &MainMenu1};

  Menu MainMenu2{this, "MainMenu2", "MainMenu2"};
  Menu MainMenuSettings{this, "MainMenuSettings", "Settings", &MainMenu2};
  Menu ChangeSkinMenu{this, "ChangeSkinMenu", "Change skin", &MainMenu2};
  Menu LanguageMenu{this, "LanguageMenu", "Set language", &MainMenu2};
  Menu KeyboardShortcutsMenu{this, "KeyboardShortcutsMenu", "Keyboard shortcuts", &MainMenu2};
  Menu FileAssociationMenu{this, "FileAssociationMenu", "File association", &MainMenu2};
  Menu ShowMenu{this, "ShowMenu", "Show / hide", &MainMenu2};
  Menu ShowPlaylistMenu{this, "ShowPlaylistMenu", "Playlist", &ShowMenu};
  Menu MediaLibraryMenu{this, "MediaLibraryMenu", "Media Library", &ShowMenu};
  Menu ShowTop20Menu{this, "ShowTop20Menu", "Top 20", &ShowMenu};
  Menu ID3InfoMenu{this, "ID3InfoMenu", "ID3 info", &ShowMenu};
  Menu EqualizerMenu{this, "EqualizerMenu", "Equalizer", &ShowMenu};
  Menu Separator9{this, "Separator9", "-", &MainMenu2};
  Menu FullMiniMenu{this, "FullMiniMenu", "Full / Mini mode", &MainMenu2};

  Menu MainMenu3{this, "MainMenu3", "MainMenu3"};
  Menu MainMenuHelp{this, "MainMenuHelp", "Support", &MainMenu3};
  Menu ReportBugsMenu{this, "ReportBugsMenu", "Report bugs", &MainMenu3};
  Menu LastVersionMenu{this, "LastVersionMenu", "Last version available", &MainMenu3};
  Menu Separator8{this, "Separator8", "-", &MainMenu3};
  Menu AboutYarvoMenu{this, "AboutYarvoMenu", "About Yarvo Player", &MainMenu3};

  Menu PlaylistMenu1{this, "PlaylistMenu1", "PlaylistMenu1"};
  Menu NewPlaylistMenu{this, "NewPlaylistMenu", "New playlist (clear)", &PlaylistMenu1};
  Menu MenuOpenPlaylist{this, "MenuOpenPlaylist", "Open playlist", &PlaylistMenu1};
  Menu MenuSavePlaylist{this, "MenuSavePlaylist", "Save Playlist", &PlaylistMenu1};
  Menu Separator6{this, "Separator6", "-", &PlaylistMenu1};
  Menu SearchInPlMenu{this, "SearchInPlMenu", "Search in playlist", &PlaylistMenu1};
  Menu Separator10{this, "Separator10", "-", &PlaylistMenu1};
  Menu MenuAddFile{this, "MenuAddFile", "Add file", &PlaylistMenu1};
  Menu MenuAddFolder{this, "MenuAddFolder", "Add folder", &PlaylistMenu1};
  Menu MenuClearPlaylist{this, "MenuClearPlaylist", "Clear Playlist", &PlaylistMenu1};

  Menu PlaylistMenu2{this, "PlaylistMenu2", "PlaylistMenu2"};
  Menu PlaylistSettingsMenu{this, "PlaylistSettingsMenu", "Playlist settings", &PlaylistMenu2};
  Menu PlaybackModeMenu{this, "PlaybackModeMenu", "Playback mode", &PlaylistMenu2};
  Menu ShuffleOnMenu{this, "ShuffleOnMenu", "Shuffle on", &PlaybackModeMenu};
  Menu ShuffleOfMenu{this, "ShuffleOfMenu", "Shuffle off", &PlaybackModeMenu};
  Menu PlayTheBestMenu{this, "PlayTheBestMenu", "Play the best", &PlaybackModeMenu};
  Menu Separator7{this, "Separator7", "-", &PlaylistMenu2};

  Menu PresetMenu{this, "PresetMenu", "Presets"};
  Menu LoadPreset{this, "LoadPreset", "Load", &PresetMenu};
  Menu SavePreset{this, "SavePreset", "Save", &PresetMenu};
  Menu DeletePreset{this, "DeletePreset", "Delete", &PresetMenu};

  Menu VideoMenu{this, "VideoMenu", "Video"};
  Menu VideoSettingsMenu{this, "VideoSettingsMenu", "Video settings", &VideoMenu};
  Menu VideoSizeMenu{this, "VideoSizeMenu", "Video size", &VideoMenu};
  Menu StretchMenu{this, "StretchMenu", "Stretch to window", &VideoSizeMenu};
  Menu OriginalSizeMenu{this, "OriginalSizeMenu", "Original size", &VideoSizeMenu};
  Menu OriginalSize2Menu{this, "OriginalSize2Menu", "Original size x 2", &VideoSizeMenu};

  Menu SysTrayMenu{this, "SysTrayMenu", "System Tray"};
  Menu SysTrayPlay{this, "SysTrayPlay", "Play", &SysTrayMenu};
  Menu SysTrayPause{this, "SysTrayPause", "Pause", &SysTrayMenu};
  Menu SysTrayStop{this, "SysTrayStop", "Stop", &SysTrayMenu};
  Menu SysTrayBack{this, "SysTrayBack", "Back", &SysTrayMenu};
  Menu SysTrayNext{this, "SysTrayNext", "Next", &SysTrayMenu};
  Menu Separator11{this, "Separator11", "-", &SysTrayMenu};
  Menu SysTrayOpen{this, "SysTrayOpen", "Open file", &SysTrayMenu};
  Menu SysTrayJump{this, "SysTrayJump", "Jump", &SysTrayMenu};
  Menu Separator13{this, "Separator13", "-", &SysTrayMenu};
  Menu SysTrayClose{this, "SysTrayClose", "Close", &SysTrayMenu};

  // The 16 by 16 pictures of the items, by the number in an item's Tag.
  std::map<int, yarvo::Picture> Icons;

  // Sets the check marks from the options, then takes the items' captions
  // for drawing (InstallUserMenus).
  void SetMenuStuff();

  // What InstallUserMenus collected: one entry per item, in window order,
  // and the entry of a menu object.
  const std::vector<std::unique_ptr<clsUserMenus>>& UserMenus() const { return userMenus_; }
  const clsUserMenus* UserMenuOf(const Menu& item) const;

 private:
  friend void InstallUserMenus(FormMeniuri& form);

  void FormMeniuri_Form_Load();
  void SetTags();
  void BindPlaylistMenu();
  void BindMainMenus();
  void BindPlaylistWindowMenus();
  void BindOtherMenus();

  std::vector<std::unique_ptr<clsUserMenus>> userMenus_;
};

}  // namespace yarvo
