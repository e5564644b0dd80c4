// Main's clocks: the media service's time text, the scrolling title, and the
// media progress tick.

#include <algorithm>
#include <vector>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/TimeText.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Top10.h"
#include "settings/Options.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {

namespace {

constexpr std::size_t kTitleRing = 50;

// The characters of UTF-8 text, each as its bytes, so the ring never cuts a
// letter in two.
std::vector<std::string> Characters(const std::string& text) {
  std::vector<std::string> characters;
  for (std::size_t i = 0; i < text.size();) {
    std::size_t length = 1;
    while (i + length < text.size() &&
           (static_cast<unsigned char>(text[i + length]) & 0xC0) == 0x80)
      ++length;
    characters.push_back(text.substr(i, length));
    i += length;
  }
  return characters;
}

}  // namespace

void Main::Main_TimerMisc_Timer() { ClsMain().TimerMixF(); }

void Main::Main_TimeCounter_Timer() {
  auto& p = program();
  ResumeNext([&] {
    const auto seconds = static_cast<long>(CDbl(p.MediaLibrary().LbCurrentTime(0).Caption.get()));
    TSec.Caption = TwoDigitMinutes(seconds);
  });
  ResumeNext([&] {
    LabelVideo.Caption = LbActualCx(0).Caption != "-1"
                             ? Titlu.Caption.get() + "  " + TSec.Caption.get()
                             : std::string("YARVO PLAYER");
  });
  ResumeNext([&] {
    if (p.frmBass().BassON != "True") StarePlayer.Caption = LbStatus(0).Caption.get();
  });
  RotateTagLine();
}

// The media service's files show the tag line the audio engine shows: while
// the file plays ("playing" from the media service, "Playing" left by the
// audio engine), the artist, album, year and ranking take turns.
void Main::RotateTagLine() {
  const std::string& status = LbStatus(0).Caption;
  if (status != "Playing" && status != "playing") return;
  auto& p = program();
  auto& library = p.MediaLibrary();
  tagTick = tagTick + 1;
  ResumeNext([&] {
    switch (tagTick.get()) {
      case 1:
        InfoIDTag.Caption = "Artist: " + library.Text2T.Text.get();
        break;
      case 4:
        InfoIDTag.Caption = "Album: " + library.Text3T.Text.get();
        break;
      case 8:
        InfoIDTag.Caption = "Year: " + library.Text4T.Text.get();
        break;
      case 12:
        ShowTopPosition();
        InfoIDTag.Caption = PozInTop.Caption.get();
        break;
      case 15:
        tagTick = 0;
        break;
      default:
        break;
    }
  });
}

// The title runs round as a ring of 50 characters: a longer title loses its
// tail at the first step, and the blanks Play puts in front make the gap.
void Main::Main_ScrollTextTimer_Timer() {
  auto ring = Characters(Titlu.Caption);
  ring.resize(kTitleRing, " ");
  std::rotate(ring.begin(), ring.begin() + 1, ring.end());
  std::string text;
  for (const auto& character : ring) text += character;
  Titlu.Caption = text;
  auto& p = program();
  ResumeNext([&] {
    if (p.Options().Check1.Value != 1) return;
    if (WindowState == yarvo::WindowState::Minimized) {
      Caption = Titlu.Caption.get();
    } else if (MiniForm* mini = p.LoadedMiniForm();
               mini && mini->WindowState == yarvo::WindowState::Minimized) {
      mini->Caption = mini->Titlu.Caption.get();
    }
  });
}

}  // namespace yarvo
