// The main window's frame: the drag from its pictures and labels, the menu
// bar, the resize grip and the close button.

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "platform/Desktop.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"
#include "windows/Resize.h"

namespace yarvo {

namespace {

// A popup of the menu bar; a window in full screen leaves it first.
void PopUpFromBar(Main& main, Menu FormMeniuri::*menu, int x) {
  auto& p = program();
  if (p.DataForm().FullScreenStat == "True") ClsMain().SwitchToFullScreen();
  p.desktop().PopupMenu(main, p.FormMeniuri().*menu, x, 300);
}

}  // namespace

void Main::BindFrame() {
  auto move = [this](const MouseEvent&) { FormMove(*this); };
  MouseDown = move;
  for (Control* handle : {static_cast<Control*>(&ImgTopLeft),
                          static_cast<Control*>(&ImgTopCenter),
                          static_cast<Control*>(&ImgTopRight),
                          static_cast<Control*>(&ImgLeft),
                          static_cast<Control*>(&ImgRight),
                          static_cast<Control*>(&ImgBottomLeft),
                          static_cast<Control*>(&ImgBottomCenter),
                          static_cast<Control*>(&ImgBottomRight),
                          static_cast<Control*>(&Logo),
                          static_cast<Control*>(&RightFrame),
                          static_cast<Control*>(&Image1),
                          static_cast<Control*>(&Visualisation),
                          static_cast<Control*>(&TSec),
                          static_cast<Control*>(&TotalTime),
                          static_cast<Control*>(&StarePlayer),
                          static_cast<Control*>(&labBitRate),
                          static_cast<Control*>(&Titlu),
                          static_cast<Control*>(&InfoIDTag),
                          static_cast<Control*>(&LabelVideo),
                          static_cast<Control*>(&MultimediaInfoLabel),
                          static_cast<Control*>(&labSize),
                          static_cast<Control*>(&labLength),
                          static_cast<Control*>(&labLayer),
                          static_cast<Control*>(&labFreqChan)})
    handle->MouseDown = move;

  for (auto [plate, caption, menu, x] :
       {std::tuple{&Meniu1, &Label1, &FormMeniuri::MainMenu1, 250},
        std::tuple{&Meniu2, &Label3, &FormMeniuri::MainMenu2, 1100},
        std::tuple{&Meniu3, &Label4, &FormMeniuri::MainMenu3, 2050}}) {
    auto popUp = [this, menu = menu, x = x](const MouseEvent&) { PopUpFromBar(*this, menu, x); };
    plate->MouseUp = popUp;
    caption->MouseUp = popUp;
  }

  ResizeArea.MouseMove = [this](const MouseEvent& e) {
    MousePointer = 8;
    if (e.button != MouseButton::Left) return;
    SizeFromCorner(*this);
    ResumeNext([this] {
      if (CDbl(LbActualCx(0).Caption.get()) <= 1) return;
      auto& store = program().DataForm();
      store.VideoSizeHeight2 = Str(Height.get());
      store.VideoSizeWidth2 = Str(Width.get());
    });
  };

  CloseButton.Click = [] {
    ClsMain director;
    if (program().DataForm().FullScreenStat == "False") {
      director.CloseYarvo();
    } else {
      director.SwitchToFullScreen();
    }
  };
}

}  // namespace yarvo
