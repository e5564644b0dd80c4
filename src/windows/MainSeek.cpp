// The seek bar and the volume bar of Main. While the user holds the seek
// bar, the engines' timers leave its thumb alone; an audio file follows the
// thumb live, a media-service file seeks when the bar is let go.

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/BassApi.h"
#include "engines/frmBass.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {

namespace {

constexpr double kBytesPerSliderStep = 100000;

void SeekAudioToThumb() {
  auto& p = program();
  auto& engine = p.frmBass();
  const auto bytes =
      static_cast<QWORD>(p.Main().SliderMoveMultimedia(0).value * kBytesPerSliderStep);
  p.bass().BASS_ChannelSetPosition(static_cast<DWORD>(CLng(engine.Chan.get())), bytes,
                                   BASS_POS_BYTE);
}

bool InMiniMode() { return program().DataForm().MiniMode == "True"; }

}  // namespace

void Main::ScrollbarFocus() {
  auto& p = program();
  ResumeNext([&] {
    if (p.frmBass().BassON == "False") {
      if (p.DataForm().FullScreenStat == "True") FullScreenSec.Caption = "0";
      StartMoveSlider.Caption = "True";
    } else {
      p.frmBass().Scrolling = "True";
    }
  });
}

void Main::ScrollbarScroll() {
  auto& p = program();
  ResumeNext([&] {
    if (p.frmBass().BassON != "True") return;
    p.frmBass().Scrolling = "True";
    SeekAudioToThumb();
    p.frmBass().Scrolling = "False";
  });
}

void Main::ScrollbarLostFocus() {
  ScrollbarScroll();
  StartMoveSlider.Caption = "False";
  ResumeNext([] { program().frmBass().Scrolling = "False"; });
  FocusKeys();
}

void Main::VolumFocus() {
  if (program().DataForm().FullScreenStat == "True") FullScreenSec.Caption = "0";
  FocusKeys();
}

void Main::FocusVolume() {
  if (InMiniMode()) {
    ResumeNext([] { program().MiniForm().Volum.SetFocus(); });
  } else {
    Volum.SetFocus();
  }
}

void Main::FocusKeys() {
  if (InMiniMode()) {
    ResumeNext([] { program().MiniForm().KeyFocus.SetFocus(); });
  } else {
    KeyFocus.SetFocus();
  }
}

}  // namespace yarvo
