#include "playlist/JumpForm.h"

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "playlist/CBoyerMoore.h"
#include "playlist/Playlist.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr int kUp = 38;
constexpr int kDown = 40;
constexpr std::size_t kPatternCharacters = 50;
// The search waits for two ticks without typing; an empty pattern lets the
// timer run to its own stop.
constexpr std::int16_t kSearchTick = 2;
constexpr std::int16_t kStopTick = 20;
constexpr std::int16_t kAfterStop = 3;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// Byte offset of character `index` (0-based) of `text`, or its size.
std::size_t CharacterOffset(const std::string& text, std::size_t index) {
  std::size_t at = 0;
  for (std::size_t seen = 0; at < text.size() && seen < index; ++seen) {
    ++at;
    while (at < text.size() && IsContinuation(text[at])) ++at;
  }
  return at;
}

}  // namespace

std::string MidCharacters(const std::string& text, std::size_t first, std::size_t count) {
  const std::size_t from = CharacterOffset(text, first - 1);
  const std::size_t to = from + CharacterOffset(text.substr(from), count);
  return text.substr(from, to - from);
}

JumpForm::JumpForm() : Form("JumpForm") {
  Caption = "Search";
  Move(3000, 3000, 4800, 4200);
  Cautare.Move(120, 120, 4440, 315);
  Rezultate.Move(120, 540, 4440, 2900);
  for (Control* hidden : {static_cast<Control*>(&RealSearch), static_cast<Control*>(&ClearText),
                          static_cast<Control*>(&Lista), static_cast<Control*>(&lstFoundWords)}) {
    hidden->Visible = false;
  }
  Command1.Caption = "Jump";
  Command1.Move(2040, 3540, 1215, 375);
  Command2.Caption = "Cancel";
  Command2.Move(3345, 3540, 1215, 375);

  Cautare.Change = [this] { JumpForm_Cautare_Change(); };
  Cautare.KeyDown = [this](int& keyCode, int shift) { JumpForm_Cautare_KeyDown(keyCode, shift); };
  Cautare.Click = [this] { JumpForm_Cautare_Click(); };
  Actualizare.Tick = [this] { JumpForm_Actualizare_Timer(); };
  Rezultate.KeyDown = [this](int& keyCode, int shift) {
    JumpForm_Rezultate_KeyDown(keyCode, shift);
  };
  Rezultate.DblClick = [this] { JumpForm_Rezultate_DblClick(); };
  Command1.Click = [this] { JumpForm_Command1_Click(); };
  Command2.Click = [this] { JumpForm_Command2_Click(); };
  Activate = [this] { JumpForm_Form_Activate(); };
  // Keys that reach the window with no control focused are the text box's,
  // where every activation puts the focus.
  KeyDown = [this](int& keyCode, int shift) { JumpForm_Cautare_KeyDown(keyCode, shift); };
}

void JumpForm::JumpForm_Cautare_Change() {
  ResumeNext([&] { RealSearch.SetText(MidCharacters(Cautare.Text, 2, kPatternCharacters)); });
  ResumeNext([&] { Rezultate.Clear(); });
  ticks_ = 0;
  ResumeNext([&] { Actualizare.Enabled = true; });
}

void JumpForm::JumpForm_Actualizare_Timer() {
  ++ticks_;
  if (ticks_ == kSearchTick && !RealSearch.Text.get().empty()) {
    ResumeNext([&] { Search(); });
    ResumeNext([&] { Lista.Selected(0); });
    ResumeNext([&] { Rezultate.Selected(0); });
    ticks_ = 0;
    Actualizare.Enabled = false;
  }
  if (ticks_ == kStopTick) {
    ticks_ = kAfterStop;
    Actualizare.Enabled = false;
  }
}

// One fresh matcher per title; a title that holds the pattern twice stands
// twice in the results.
void JumpForm::Search() {
  const std::string pattern = RealSearch.Text;
  ResumeNext([&] { lstFoundWords.Clear(); });
  for (int row = 0; row < Lista.ListCount(); ++row) {
    ResumeNext([&] {
      Lista.Selected(row);
      const std::string& title = Lista.Text();  // the walk does not change Lista
      CBoyerMoore search;
      search.CaseSensitive(false);
      search.FindText(pattern);
      search.Text(title);
      search.Reset();
      std::int32_t start = 0;
      std::int32_t length = 0;
      while (search.FindNext(start, length)) Rezultate.AddItem(title);
    });
  }
}

void JumpForm::JumpForm_Cautare_KeyDown(int& keyCode, int /*shift*/) {
  if (keyCode == kEscape) {
    Hide();
    return;
  }
  if (Rezultate.ListCount() == 0) return;
  const int row = Rezultate.ListIndex();
  ResumeNext([&] {
    if (keyCode == kEnter) {
      PlaySelected();
    } else if (keyCode == kDown && row < Rezultate.ListCount() - 1) {
      Rezultate.Selected(row + 1);
    } else if (keyCode == kUp && row > 0) {
      Rezultate.Selected(row - 1);
    }
  });
}

void JumpForm::JumpForm_Rezultate_KeyDown(int& keyCode, int /*shift*/) {
  if (keyCode == kEnter && Rezultate.ListIndex() >= 0) PlaySelected();
}

void JumpForm::JumpForm_Rezultate_DblClick() {
  if (Rezultate.ListIndex() >= 0) PlaySelected();
}

void JumpForm::JumpForm_Command1_Click() {
  if (Rezultate.ListIndex() >= 0) PlaySelected();
}

void JumpForm::JumpForm_Command2_Click() { Hide(); }

void JumpForm::JumpForm_Cautare_Click() { Cautare.Text = ""; }

void JumpForm::JumpForm_Form_Activate() {
  Cautare.Text = "";
  Cautare.SetFocus();
}

void JumpForm::PlaySelected() {
  auto& p = program();
  auto& store = p.DataForm();
  auto& playlist = p.Playlist();
  auto& picList = playlist.PicList;
  ResumeNext([&] {
    if (p.Main().StarePlayer.Caption == "Paused") ClsMain().SStop();
  });
  store.FromPlaylist = "True";
  // The title is the link: the first row that bears it is the one that plays.
  ResumeNext([&] { picList.SetText(Rezultate.Text()); });
  ResumeNext([&] { store.ListaCale.SetListIndex(picList.ListIndex()); });
  store.SongNumber = std::to_string(picList.ListIndex());
  ResumeNext([&] { playlist.ScrollBar.max = picList.ListCount() - 30; });
  ResumeNext([&] { playlist.ScrollBar.value = picList.TopIndex; });
  picList.SetFocus();
  Hide();
  ResumeNext([] { ClsMain().Play(); });
  Cautare.Text = "";
}

}  // namespace yarvo
