// The equalizer of the main window: eleven sliders (bands 0 to 9, the reverb
// 10) whose values are the state, pushed into the audio engine's channel on
// every move and at every start of a stream; and the on/off button.

#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "settings/Options.h"
#include "windows/Main.h"
#include "windows/Skins.h"

namespace yarvo {

namespace {

constexpr int kEqualizerSliders = 11;

// The button's picture by the equalizer's state: plain while on.
void ShowEqualizerButton(Main& main, bool on) {
  ResumeNext(
      [&] { main.ImgButton2.Picture = LoadSkinPicture(on ? "/button2.bmp" : "/button2b.bmp"); });
}

}  // namespace

void Main::BindEqualizer() {
  for (int b = 0; b < kEqualizerSliders; ++b) {
    // Referring to the engine form makes it when no song plays; the move is
    // heard from the next stream on.
    sldEQR(b).Change = [b] { program().frmBass().MoveScollEq(b); };
    sldEQR(b).Scroll = [b] { program().frmBass().MoveScollEq(b); };
  }
  ImgButton1.Click = [] { program().frmBass().NextSpectrumMode(); };
  Visualisation.DblClick = [] { program().frmBass().NextSpectrumMode(); };
  ImgButton2.Click = [this] { Main_ImgButton2_Click(); };
}

void Main::UpdateEqualizer() {
  for (int i = 0; i < kEqualizerSliders; ++i) program().frmBass().MoveScollEq(i);
}

void Main::OnOffEq() {
  ShowEqualizerButton(*this, program().Options().Option12.Value);
  UpdateEqualizer();
}

void Main::Main_ImgButton2_Click() {
  auto& options = program().Options();
  const bool on = !options.Option12.Value;
  if (on) {
    options.Option12.Value = true;
  } else {
    options.Option13.Value = true;
  }
  ShowEqualizerButton(*this, on);
  UpdateEqualizer();
}

}  // namespace yarvo
