// The engine form's part of the visualisation: its timer and the mode
// switches. The drawing is modSpectrum's.

#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "engines/Visualisation.h"
#include "engines/frmBass.h"
#include "settings/Options.h"
#include "windows/Main.h"

namespace yarvo {

void frmBass::tmrSpectrum_Timer() {
  auto& p = program();
  if (p.Options().Option4.Value) {
    // No frames while no one can see them or the song stands still: the
    // timer waits for the surface and the sound.
    if (!SpectrumSurfaceSeen() || !ChannelSounds()) {
      modSpectrum().parked = true;
      tmrSpectrum.Enabled = false;
      return;
    }
    UpdateSpectrum();
    return;
  }
  tmrSpectrum.Enabled = false;
  ResumeNext([&] { p.Main().Visualisation.Cls(); });
}

void frmBass::ChangeSpectrumMode() {
  auto& options = program().Options();
  auto& state = modSpectrum();
  if (options.Option9.Value) state.specMode = 0;
  if (options.Option8.Value) state.specMode = 1;
  if (options.Option10.Value) state.specMode = 2;
  if (options.Option11.Value) state.specMode = 3;
  state.specBuf.fill(0);
}

void frmBass::NextSpectrumMode() {
  auto& options = program().Options();
  auto& state = modSpectrum();
  state.specMode = (state.specMode + 1) % 4;
  state.specBuf.fill(0);
  switch (state.specMode) {
    case 0:
      options.Option9.Value = true;
      break;
    case 1:
      options.Option8.Value = true;
      break;
    case 2:
      options.Option10.Value = true;
      break;
    default:
      options.Option11.Value = true;
      break;
  }
}

}  // namespace yarvo
