// Main's timers that keep the windows in step: FixWindows brings back what a
// minimize took away and keeps the playlist and the library with the player
// window; FixImages sweeps away hover pictures the pointer left behind.

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "engines/Visualisation.h"
#include "engines/frmBass.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {

namespace {

bool Minimized(const Form& form) { return form.WindowState == WindowState::Minimized; }

void PutPlates(PictureBox& a, PictureBox& b, PictureBox& c, const Picture& plate) {
  for (PictureBox* box : {&a, &b, &c}) ResumeNext([&] { box->Picture = plate; });
}

}  // namespace

void Main::Main_FixWindows_Timer() {
  auto& p = program();
  auto& store = p.DataForm();
  auto& playlist = p.Playlist();
  if (store.PlaylistON == "1") {
    Form* player = this;
    if (store.MiniMode == "True") {
      ResumeNext([&] { player = &p.MiniForm(); });
    }
    if (!Minimized(*player)) {
      ResumeNext([&] { playlist.Show(); });
      ResumeNext([&] { player->Caption = "Yarvo Player"; });
      ResumeNext([&] { playlist.ScrollTimer.Enabled = true; });
      ResumeNext([&] { FixImages.Enabled = true; });
      // A parked spectrum is started again below, when it has something to
      // show.
      ResumeNext([&] {
        if (p.frmBass().BassON == "True" && !modSpectrum().parked)
          p.frmBass().tmrSpectrum.Enabled = true;
      });
    } else {
      ResumeNext([&] { playlist.Hide(); });
    }
  }
  ResumeNext([&] {
    if (!Minimized(*this)) {
      if (store.MediaOn == "1") p.MediaLibrary().Show();
    } else {
      p.MediaLibrary().Hide();
    }
  });
  ResumeNext([] { ResumeParkedSpectrum(); });
}

void Main::Main_FixImages_Timer() {
  auto& p = program();
  auto& store = p.DataForm();
  if (store.MiniMode != "True") {
    PutPlates(Meniu1, Meniu2, Meniu3, store.MeniuNormal);
    ResumeNext([&] { MinimizeButton.Picture = store.MinimizeNormal.get(); });
    ResumeNext([&] { CloseButton.Picture = store.CloseNormal.get(); });
  } else if (MiniForm* mini = p.LoadedMiniForm()) {
    PutPlates(mini->Meniu1, mini->Meniu2, mini->Meniu3, store.MeniuNormal);
    ResumeNext([&] { mini->MinimizeButton.Picture = store.MinimizeNormal.get(); });
    ResumeNext([&] { mini->CloseButton.Picture = store.CloseNormal.get(); });
  }
  auto& playlist = p.Playlist();
  PutPlates(playlist.Meniu1, playlist.Meniu2, playlist.Meniu3, store.MeniuNormal);
  ResumeNext([&] { playlist.CloseButton.Picture = store.CloseNormal.get(); });
  ResumeNext([&] { Image3.Picture = store.ImgButton.get(); });
  ResumeNext([&] { Image4.Picture = store.ImgButton.get(); });
}

}  // namespace yarvo
