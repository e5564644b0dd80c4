#include "windows/Butoane.h"

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "settings/Options.h"
#include "windows/Main.h"
#include "windows/Skins.h"

namespace yarvo {

Butoane::Butoane(Form* owner, std::string name)
    : Control(owner, name),
      OnlyOnLoad(owner, name + ".OnlyOnLoad", 500, true),
      FocusTimer(owner, name + ".FocusTimer", 1000, false) {
  OnlyOnLoad.Tick = [this] { OnlyOnLoad_Timer(); };
  FocusTimer.Tick = [this] { FocusTimer_Timer(); };
  FocusTimer.Quiet = true;
  FocusTimer.Enabled = true;  // from the control's creation on
  MouseDown = [this](const MouseEvent& e) {
    pressed_ = ButtonAt(e.x, e.y);
    Press(pressed_);
  };
  DblClick = [this] { Press(pressed_); };
  MouseUp = [this](const MouseEvent&) {
    if (pressed_ != Button::None) Hide(*LookOf(pressed_).pressed);
  };
  MouseMove = [this](const MouseEvent& e) {
    const Button under = ButtonAt(e.x, e.y);
    if (under != Button::None) {
      const Look look = LookOf(under);
      Show(*look.hover, look);
    }
  };
}

Butoane::Button Butoane::ButtonAt(double x, double y) const {
  if (PauzaButon.Contains(x, y)) return Button::Pause;
  if (BackButon.Contains(x, y)) return Button::Back;
  if (PlayButon.Contains(x, y)) return Button::Play;
  if (NextButon.Contains(x, y)) return Button::Next;
  if (StopButon.Contains(x, y)) return Button::Stop;
  return Button::None;
}

Butoane::Look Butoane::LookOf(Button button) {
  switch (button) {
    case Button::Pause:
      return {&PauzaFocus, &PauzaPressed, 210, 1};
    case Button::Back:
      return {&BackFocus, &BackPressed, 1, 190};
    case Button::Play:
      return {&PlayFocus, &PlayPressed, 260, 240};
    case Button::Next:
      return {&NextFocus, &NextPressed, 770, 180};
    default:
      return {&StopFocus, &StopPressed, 240, 720};
  }
}

void Butoane::Show(ButoaneImage& image, const Look& look) {
  image.Left = look.left;
  image.Top = look.top;
}

void Butoane::Press(Button button) {
  if (button == Button::None) return;
  ClsMain director;
  const Look look = LookOf(button);
  switch (button) {
    case Button::Pause:
      director.Pause();
      break;
    case Button::Back:
      director.PlayPrevious();
      break;
    case Button::Next:
      director.PlayNext();
      break;
    case Button::Play: {
      const std::string state = program().Main().StarePlayer.Caption;
      if (state == "Playing") {
        director.Pause();
        return;  // and no pressed look
      }
      if (state.empty()) {
        director.OpenAndPlayFile();
      } else {
        director.Play();
      }
      break;
    }
    default:
      director.SStop();
      Show(*look.pressed, look);
      ShowIdlePicture();
      return;
  }
  Show(*look.pressed, look);
}

void Butoane::FocusTimer_Timer() {
  for (ButoaneImage* hover : {&PauzaFocus, &BackFocus, &NextFocus, &StopFocus, &PlayFocus})
    ResumeNext([&] { Hide(*hover); });
  ResumeNext([&] {
    const std::string& skin = program().Options().SkinName.Text;
    if (skinChecked_ != skin) OnlyOnLoad.Enabled = true;
    skinChecked_ = skin;
  });
}

// The skin's pictures, once the program knows its folder.
void Butoane::OnlyOnLoad_Timer() {
  ResumeNext([&] {
    if (program().DataForm().CaleYarvoPlayer.Text().empty()) return;
    auto load = [](Property<yarvo::Picture>& target, const char* name) {
      ResumeNext([&] { target = LoadSkinPicture(name); });
    };
    load(Background, "/controls-background.bmp");
    load(PauzaFocus.Picture, "/pause-hover.bmp");
    load(StopFocus.Picture, "/stop-hover.bmp");
    load(NextFocus.Picture, "/next-hover.bmp");
    load(BackFocus.Picture, "/back-hover.bmp");
    load(PlayFocus.Picture, "/play-hover.bmp");
    load(PauzaPressed.Picture, "/pause-mousedown.bmp");
    load(StopPressed.Picture, "/stop-mousedown.bmp");
    load(NextPressed.Picture, "/next-mousedown.bmp");
    load(BackPressed.Picture, "/back-mousedown.bmp");
    load(PlayPressed.Picture, "/play-mousedown.bmp");
    OnlyOnLoad.Enabled = false;
  });
}

}  // namespace yarvo
