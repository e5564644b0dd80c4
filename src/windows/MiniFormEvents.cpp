// The mini window's input. Its bars drive nothing themselves: each event
// puts the bar's value on Main's bar of the same name and runs Main's
// handler. The frame drags the window, the menu bar pops up Main's menus,
// and the plates light under the pointer as on Main.

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "platform/Desktop.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"
#include "windows/Resize.h"
#include "windows/TitleBar.h"

namespace yarvo {

void MiniForm::BindBars() {
  auto& seek = SliderMoveMultimedia(0);
  // Each handler reaches Main through the program: this window may be gone
  // and made again, Main stays.
  auto toMain = [this](void (Main::*handler)()) {
    return [this, handler] {
      auto& main = program().Main();
      main.SliderMoveMultimedia(0).value = static_cast<double>(SliderMoveMultimedia(0).value);
      (main.*handler)();
    };
  };
  seek.GotFocus = toMain(&Main::ScrollbarFocus);
  seek.Scroll = toMain(&Main::ScrollbarScroll);
  auto volumeToMain = [this](void (Main::*handler)()) {
    return [this, handler] {
      auto& main = program().Main();
      main.Volum.value = static_cast<double>(Volum.value);
      (main.*handler)();
    };
  };
  Volum.Change = volumeToMain(&Main::VolumChange);
  Volum.Scroll = volumeToMain(&Main::VolumChange);
  Volum.GotFocus = volumeToMain(&Main::VolumFocus);
  seek.LostFocus = [this, lost = toMain(&Main::ScrollbarLostFocus)] {
    lost();
    if (Volum.Scroll) Volum.Scroll();
  };
}

void MiniForm::BindFrame() {
  auto move = [this](const MouseEvent&) { FormMove(*this); };
  MouseDown = move;
  for (Control* handle :
       {static_cast<Control*>(&ImgTopLeft), static_cast<Control*>(&ImgTopCenter),
        static_cast<Control*>(&ImgTopRight), static_cast<Control*>(&ImgLeft),
        static_cast<Control*>(&ImgRight), static_cast<Control*>(&ImgBottomLeft),
        static_cast<Control*>(&ImgBottomCenter), static_cast<Control*>(&ImgBottomRight),
        static_cast<Control*>(&Image1), static_cast<Control*>(&Visualisation),
        static_cast<Control*>(&TSec), static_cast<Control*>(&TotalTime),
        static_cast<Control*>(&StarePlayer), static_cast<Control*>(&Titlu),
        static_cast<Control*>(&LabelVideo), static_cast<Control*>(&ImagineVolum)})
    handle->MouseDown = move;

  for (auto [plate, caption, menu, x] :
       {std::tuple{&Meniu1, &Label1, &FormMeniuri::MainMenu1, 250},
        std::tuple{&Meniu2, &Label3, &FormMeniuri::MainMenu2, 1100},
        std::tuple{&Meniu3, &Label4, &FormMeniuri::MainMenu3, 2050}}) {
    auto popUp = [this, menu = menu, x = x](const MouseEvent&) {
      auto& p = program();
      p.desktop().PopupMenu(*this, p.FormMeniuri().*menu, x, 300);
    };
    plate->MouseUp = popUp;
    caption->MouseUp = popUp;
  }

  // The title band leaves mini mode for the full layout.
  for (Control* title :
       {static_cast<Control*>(&LabelVideo), static_cast<Control*>(&ImgTopCenter)}) {
    title->DblClick = [] {
      program().DataForm().MainMode = "Full";
      ClsMain().ChangeMainMode();
      ShowMainForm();
    };
  }
  Visualisation.DblClick = [] { program().frmBass().NextSpectrumMode(); };
  CloseButton.Click = [this] { MiniForm_CloseButton_Click(); };
  MinimizeButton.Click = [this] { MiniForm_MinimizeButton_Click(); };
  QueryUnload = [this] { MiniForm_CloseButton_Click(); };
}

TitleBar MiniForm::Bar() {
  return {{&Meniu1, &Meniu2, &Meniu3}, {&Label1, &Label3, &Label4}, MinimizeButton, CloseButton};
}

void MiniForm::HoverMenuPlate(int plate) { LightMenuPlate(Bar(), plate); }

void MiniForm::BindHover() {
  BindTitleBarHover(Bar(), [this](int plate) { HoverMenuPlate(plate); });
  auto rest = [this] { HoverMenuPlate(-1); };
  MouseMove = [rest](const MouseEvent&) { rest(); };
  for (Control* calm :
       {static_cast<Control*>(&Image1), static_cast<Control*>(&ImgTopLeft),
        static_cast<Control*>(&ImgTopCenter), static_cast<Control*>(&ImgTopRight),
        static_cast<Control*>(&ImgLeft), static_cast<Control*>(&ImgRight),
        static_cast<Control*>(&ImgBottomLeft), static_cast<Control*>(&ImgBottomCenter),
        static_cast<Control*>(&ImgBottomRight)})
    OnHover(*calm, rest);
}

}  // namespace yarvo
