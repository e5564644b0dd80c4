#include "settings/Options.h"

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "core/form/Twips.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "playlist/ClsPl.h"
#include "playlist/DataClass.h"
#include "playlist/Id3Module.h"
#include "playlist/Playlist.h"
#include "settings/KeyShortcut.h"
#include "windows/Main.h"
#include "windows/Skins.h"
#include "windows/modSysTray.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace yarvo {

namespace {

constexpr const char* kAudioTypes[] = {"mp3", "wav", "wma", "cda", "midi", "mid",
                                       "mpa", "ac3", "ogg", "snd", "rmi"};
constexpr const char* kVideoTypes[] = {"mpg", "avi", "mov", "wmv",  "mp2", "mpeg",
                                       "mpe", "asf", "dat", "divx", "m2v", "vob",
                                       "mpv", "qt",  "ogm", "mp4",  "flv", "3gp"};

void TickAll(ListBox& list, bool ticked) {
  for (int row = 0; row < list.ListCount(); ++row) list.SetTicked(row, ticked);
}

// The row under a press in a list: a press below the last row leaves the
// list's own row.
int RowAt(ListBox& list, double y) {
  const int row = list.TopIndex + static_cast<int>(y / kTwipsPerPixel) / list.RowHeight();
  if (row >= 0 && row < list.ListCount()) list.SetListIndex(row);
  return list.ListIndex();
}

}  // namespace

Options::Options() : Form("Options") {
  Caption = "Yarvo Player - Options";
  Move(1500, 1500, 8835, 5895);
  for (int size = 8; size <= 18; ++size) PlaylistFontSize.AddItem(std::to_string(size));
  PlaylistFontSize.SetListIndex(0);
  for (const char* type : kAudioTypes) TpfAudio.AddItem(type);
  for (const char* type : kVideoTypes) TpfVideo.AddItem(type);
  LanguageSelector.AddItem("English");
  LanguageSelector.AddItem("Romana");
  for (const char* page : {"latin1", "cp1250", "cp1251"}) TagCodePage.AddItem(page);
  TagCodePage.SetListIndex(0);
  for (Control* hidden : {static_cast<Control*>(&Fr), static_cast<Control*>(&FAudio),
                          static_cast<Control*>(&FVideo)}) {
    hidden->Visible = false;
  }

  Option15.Click = [] {
    auto& p = program();
    ResumeNext([&] { p.Playlist().PicList.Clear(); });
    ResumeNext([&] { ListNoChar(p.Playlist().PicList, p.DataForm().ListaCale); });
    ResumeNext([] { SetJumpList(); });
  };
  Option18.Click = [] { ResumeNext([] { FileNameToID3(); }); };
  Option19.Click = [] { ResumeNext([] { FileNameToID3(); }); };
  for (OptionButton* mode : {&Option8, &Option9, &Option10, &Option11}) {
    mode->Click = [] { program().frmBass().ChangeSpectrumMode(); };
  }
  Option12.Click = [] { program().Main().OnOffEq(); };
  for (OptionButton* size : {&Option14, &Option16, &Option17})
    size->Click = [] { program().Main().VideoSizeModeChanged(); };
  Option13.Click = [] { program().Main().OnOffEq(); };
  Check17.Click = [this] { ResumeNext([this] { TickAll(TpfAudio, Check17.Value == 1); }); };
  Check18.Click = [this] { ResumeNext([this] { TickAll(TpfVideo, Check18.Value == 1); }); };
  Check7.Click = [this] {
    if (Check7.Value == 1) {
      AddPlayerTrayIcon();
    } else {
      RemoveTrayIcon(kPlayerTrayIcon);
    }
  };
  Check8.Click = [this] {
    auto& playlist = program().Playlist();
    const bool standard = Check8.Value == 1;
    playlist.ScrollBar.Visible = !standard;
    playlist.FrameScroll.Visible = !standard;
  };
  PlaylistFontSize.Click = [this] {
    ResumeNext(
        [this] { program().Playlist().PicList.FontSize = 8 + PlaylistFontSize.ListIndex(); });
  };
  Check3.Click = [this] { program().Playlist().PicList.FontBold = Check3.Value == 1; };
  SkinSelector.MouseDown = [this](const MouseEvent& e) {
    pressedSkin_ = RowAt(SkinSelector, e.y);
    TickAll(SkinSelector, false);
  };
  SkinSelector.MouseUp = [this](const MouseEvent&) { ChooseSkin(); };
  BindShortcutBoxes(*this);
  Load = [this] { Options_Form_Load(); };
}

void Options::Options_Form_Load() {
  ResumeNext([this] { GetSubDirs(program().DataForm().ProgramPath("/Skins")); });
}

// Depth first: a folder's subfolders come before it.
void Options::GetSubDirs(const std::string& currPath) {
  std::error_code error;
  std::vector<std::filesystem::path> folders;
  for (const auto& entry : std::filesystem::directory_iterator(currPath, error)) {
    if (entry.is_directory(error)) folders.push_back(entry.path());
  }
  if (error) throw err::PathNotFound();
  std::sort(folders.begin(), folders.end());
  for (const auto& folder : folders) {
    ResumeNext([&] { GetSubDirs(folder.string()); });
    SkinSelector.AddItem(folder.filename().string());
  }
}

// The row pressed becomes the skin: its name, its skin.ini, and the skin
// applied to the windows at once.
void Options::ChooseSkin() {
  ResumeNext([this] { SkinSelector.SetTicked(pressedSkin_, true); });
  ResumeNext([this] {
    SkinSelector.SetListIndex(pressedSkin_);
    SkinName.SetText(SkinSelector.Text());
  });
  auto& store = program().DataForm();
  store.SkinSettings.Clear();
  store.SkinValues.Clear();
  IncarcaData(store.ProgramPath("/Skins/" + SkinName.Text.get() + "/skin.ini"), store.SkinSettings);
  ApplySkin();
}

}  // namespace yarvo
