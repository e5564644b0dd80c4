#include "settings/KeyShortcut.h"

#include <array>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "playlist/DataClass.h"
#include "playlist/JumpForm.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

constexpr int kActions = 10;
constexpr const char* kKeyboardFile = "/Data/keyboard.data";
constexpr double kVolumeStep = 10.0;

// The engine form is asked only when it exists: making it just to read its
// flag would start the audio library for nothing, and a new one is off.
bool BassOn() {
  for (Form* form : program().LoadedForms()) {
    if (auto* bass = dynamic_cast<frmBass*>(form)) return bass->BassON.get() == "True";
  }
  return false;
}

void MinimizeMain() {
  auto& p = program();
  auto& store = p.DataForm();
  if (store.FullScreenStat.get() != "False") return;
  ResumeNext([&] { p.Main().WindowState = WindowState::Minimized; });
  ResumeNext([&] { store.PlaylistON = p.Playlist().Visible.get() ? "1" : "0"; });
  ResumeNext([&] {
    if (p.Options().Check1.Value == 1) {
      p.Main().Caption = p.Main().Titlu.Caption.get();
    } else {
      p.Main().Caption = "Yarvo Player        ";
    }
  });
  ResumeNext([&] { p.Playlist().Hide(); });
}

void CloseFromKey() {
  if (program().DataForm().FullScreenStat.get() == "False") ClsMain().CloseYarvo();
}

// The slider keeps the value within its limits; the engine that plays is
// told the value the slider took.
void StepVolume(double step) {
  auto& volume = program().Main().Volum;
  ResumeNext([&] { volume.value = volume.value + step; });
  ResumeNext([] {
    if (BassOn()) {
      program().frmBass().VolumBass();
    } else {
      ClsMain().ChangeVolume();
    }
  });
}

// Action i of the keyboard page; the index is the row of the page.
using Action = void (*)();
constexpr std::array<Action, kActions> kActionTable = {
    [] { program().JumpForm().Show(); },
    [] { ClsMain().Play(); },
    [] { ClsMain().Pause(); },
    [] { ClsMain().SStop(); },
    [] { ClsMain().PlayNext(); },
    [] { ClsMain().PlayPrevious(); },
    MinimizeMain,
    CloseFromKey,
    [] { StepVolume(kVolumeStep); },
    [] { StepVolume(-kVolumeStep); },
};

// Bytes of the first UTF-8 character of `text`; 0 for an empty text.
std::size_t FirstCharacterLength(const std::string& text) {
  std::size_t length = text.empty() ? 0 : 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
    ++length;
  }
  return length;
}

}  // namespace

void HandleShortcutKey(int& KeyCode) {
  auto& options = program().Options();
  for (int i = 0; i < kActions; ++i) {
    ResumeNext([&] {
      if (CDbl(options.AsciBox(i).Text.get()) == KeyCode)
        kActionTable[static_cast<std::size_t>(i)]();
    });
  }
}

void LoadKeyboardData() {
  auto& p = program();
  auto& rows = p.DataForm().KeyboardSettings;
  auto& options = p.Options();
  ResumeNext([&] { rows.Clear(); });
  ResumeNext([&] { IncarcaData(p.DataForm().ProgramPath(kKeyboardFile), rows); });
  for (int row = 0; row < kActions; ++row) {
    ResumeNext([&] {
      rows.Selected(row);
      options.AsciBox(row).Text = rows.Text();
    });
  }
  for (int row = kActions; row < rows.ListCount(); ++row) {
    ResumeNext([&] {
      rows.Selected(row);
      options.AsciText(row - kActions).Text = rows.Text();
    });
  }
}

void SaveKeyboardData() {
  auto& p = program();
  auto& rows = p.DataForm().KeyboardSettings;
  auto& options = p.Options();
  ResumeNext([&] { rows.Clear(); });
  for (int i = 0; i < kActions; ++i) {
    ResumeNext([&] { rows.AddItem(options.AsciBox(i).Text.get()); });
  }
  for (int i = 0; i < kActions; ++i) {
    ResumeNext([&] { rows.AddItem(options.AsciText(i).Text.get()); });
  }
  ResumeNext([&] { SalveazaData(p.DataForm().ProgramPath(kKeyboardFile), rows); });
}

void Options_AsciBox_Click(int Index) {
  auto& box = program().Options().AsciBox(Index);
  ResumeNext([&] { box.SelStart = 0; });
  ResumeNext([&] { box.SelLength = 0; });
}

void Options_AsciBox_KeyUp(int Index, int& KeyCode, int /*Shift*/) {
  auto& options = program().Options();
  std::string selected;
  ResumeNext([&] {
    auto& box = options.AsciBox(Index);
    box.SelStart = 0;
    box.SelLength = box.Text.get().empty() ? 0 : 1;
    selected = box.Text.get().substr(0, FirstCharacterLength(box.Text.get()));
  });
  ResumeNext([&] { options.AsciText(Index).Text = selected; });
  ResumeNext([&] { options.AsciBox(Index).Text = std::to_string(KeyCode); });
}

void BindShortcutBoxes(Options& options) {
  for (int i = 0; i < options.AsciBox.Count(); ++i) {
    options.AsciBox(i).Click = [i] { Options_AsciBox_Click(i); };
    options.AsciBox(i).KeyUp = [i](int& keyCode, int shift) {
      Options_AsciBox_KeyUp(i, keyCode, shift);
    };
  }
}

}  // namespace yarvo
