// The media service's clock, seek and volume: polled by Main's timers.

#include <cmath>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/media/MCore.h"
#include "playlist/MediaLibrary.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

double FramesPerSecond() {
  const double fps = CDbl(program().MediaLibrary().LbFramesPerSecond(0).Caption.get());
  if (fps == 0) throw err::DivisionByZero();
  return fps;
}

}  // namespace

void ClsMain::TimerMixF() {
  auto& p = program();
  auto& main = p.Main();
  ResumeNext([&] { main.LbCurrPos(0).Caption = std::to_string(MciPosition(mciAlias)); });
  ResumeNext([&] {
    p.MediaLibrary().LbCurrentTime(0).Caption =
        Str(CDbl(main.LbCurrPos(0).Caption.get()) / FramesPerSecond());
  });
  // While the user holds the seek bar, thumb, percent and the end are left alone.
  if (main.StartMoveSlider.Caption != "False") return;
  int percent = -1;
  ResumeNext([&] { percent = MciPercent(mciAlias); });
  ResumeNext([&] {
    if (percent != -1) {
      main.SliderMoveMultimedia(0).value =
          static_cast<int>(CDbl(main.LbCurrPos(0).Caption.get()) / (2 * FramesPerSecond()));
    }
  });
  ResumeNext([&] { main.LbProgress(0).Caption = std::to_string(percent) + " %"; });
  ResumeNext([&] { main.LbStatus(0).Caption = MciStatusMode(mciAlias); });
  ResumeNext([&] {
    if (main.LbStatus(0).Caption == "stopped") EndOfSong();
  });
}

// One step of the seek bar is two seconds of the media.
void ClsMain::SliderMultimediaChange() {
  auto& main = program().Main();
  const double position = 2 * FramesPerSecond() * main.SliderMoveMultimedia(0).value;
  ShowMciResult(MciSeekPlay(mciAlias, static_cast<std::int32_t>(std::lround(position))));
}

void ClsMain::ChangeVolume() {
  const auto volume = static_cast<std::int32_t>(std::lround(program().Main().Volum.value * 1.0));
  ShowMciResult(MciSetVolume(mciAlias, "all", volume));
}

}  // namespace yarvo
