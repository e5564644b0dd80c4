#include "windows/MiniForm.h"

#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "settings/KeyShortcut.h"
#include "windows/Main.h"

namespace yarvo {

MiniForm::MiniForm() : Form("MiniForm") {
  Caption = "Yarvo Player";
  Move(2000, 1200, 6105, 1485);
  LabelVideo.Move(2985, 30, 1815, 195);
  TSec.Move(2160, 480, 735, 255);
  TotalTime.Move(3135, 480, 495, 210);
  StarePlayer.Move(3840, 480, 915, 255);
  Titlu.Move(2040, 810, 2775, 255);
  Visualisation.Move(75, 405, 1815, 615);
  Volum.Move(360, 1080, 1455, 255);
  SliderMoveMultimedia(0).Move(1920, 1080, 3015, 255);
  KeyFocus.Visible = false;
  Load = [this] { MiniForm_Form_Load(); };
  KeyDown = [](int& keyCode, int) { HandleShortcutKey(keyCode); };
  // The main window's bar drives the engine.
  Volum.Change = [this] {
    auto& main = program().Main();
    main.Volum.value = static_cast<double>(Volum.value);
    main.VolumChange();
  };
  Timer1.Tick = [this] { MiniForm_Timer1_Timer(); };
}

void MiniForm::MiniForm_Form_Load() { KeyFocus.Left = -2000; }

void MiniForm::MiniForm_Timer1_Timer() {
  auto& main = program().Main();
  ResumeNext([&] { TSec.Caption = main.TSec.Caption.get(); });
  ResumeNext([&] { TotalTime.Caption = main.TotalTime.Caption.get(); });
  ResumeNext([&] { StarePlayer.Caption = main.StarePlayer.Caption.get(); });
  ResumeNext([&] { Titlu.Caption = main.Titlu.Caption.get(); });
  ResumeNext([&] { LabelVideo.Caption = main.LabelVideo.Caption.get(); });
  ResumeNext([&] { Volum.value = static_cast<double>(main.Volum.value); });
  ResumeNext([&] {
    SliderMoveMultimedia(0).max = main.SliderMoveMultimedia(0).max.get();
    SliderMoveMultimedia(0).value = static_cast<double>(main.SliderMoveMultimedia(0).value);
  });
}

}  // namespace yarvo
