// The main window's hover looks. The window tells no "mouse left", so each
// element, as the pointer moves over it, puts its own hover picture up and
// its neighbours' resting pictures back; the bare window and the panel reset
// everything, and FixImages sweeps what is left once a second.

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/Main.h"
#include "windows/TitleBar.h"

namespace yarvo {

// The picture a small button shows at rest: button 2 by the equalizer's
// state, buttons 4 to 6 by whether their window shows.
const Property<yarvo::Picture>& Main::RestingPicture(int button) {
  auto& p = program();
  auto& store = p.DataForm();
  switch (button) {
    case 2:
      return p.Options().Option12.Value ? store.ImgButton2 : store.ImgButton2b;
    case 4:
      return p.Playlist().Visible ? store.ImgButton4 : store.ImgButton4b;
    case 5:
      return p.MediaLibrary().Visible ? store.ImgButton5 : store.ImgButton5b;
    case 6:
      return p.Options().Visible ? store.ImgButton6 : store.ImgButton6b;
    case 1:
      return store.ImgButton1;
    default:
      return store.ImgButton3;
  }
}

PictureBox& Main::SmallButton(int button) {
  PictureBox* buttons[] = {&ImgButton1, &ImgButton2, &ImgButton3,
                           &ImgButton4, &ImgButton5, &ImgButton6};
  return *buttons[button - 1];
}

// A small button under the pointer lights, and the other two of its group
// of three rest.
void Main::HoverSmallButton(int button) {
  auto& store = program().DataForm();
  const Property<yarvo::Picture>* hovers[] = {&store.ImgButton1Hover, &store.ImgButton2Hover,
                                              &store.ImgButton3Hover, &store.ImgButton4Hover,
                                              &store.ImgButton5Hover, &store.ImgButton6Hover};
  const int first = button <= 3 ? 1 : 4;
  for (int other = first; other < first + 3; ++other) {
    Put(SmallButton(other), other == button ? *hovers[other - 1] : RestingPicture(other));
  }
}

void Main::RestSmallButtons() {
  for (int button = 1; button <= 6; ++button) Put(SmallButton(button), RestingPicture(button));
}

TitleBar Main::Bar() {
  return {{&Meniu1, &Meniu2, &Meniu3}, {&Label1, &Label3, &Label4}, MinimizeButton, CloseButton};
}

void Main::HoverMenuPlate(int plate) {
  QuietenFullScreen();
  LightMenuPlate(Bar(), plate);
}

void Main::BindHover() {
  auto& store = program().DataForm();
  BindTitleBarHover(Bar(), [this](int plate) { HoverMenuPlate(plate); });
  auto infoLit = [this, &store] {
    Put(Image3, store.ImgButtonFocus);
    Put(Image4, store.ImgButton);
  };
  auto playlistLit = [this, &store] {
    Put(Image4, store.ImgButtonFocus);
    Put(Image3, store.ImgButton);
  };
  OnHover(Image3, infoLit);
  OnHover(InfoLabel, infoLit);
  OnHover(Image4, playlistLit);
  OnHover(PlaylistLabel, playlistLit);
  OnHover(RightFrame, [this, &store] {
    Put(Image3, store.ImgButton);
    Put(Image4, store.ImgButton);
  });
  for (int button : {2, 3, 4, 5})
    OnHover(SmallButton(button), [this, button] { HoverSmallButton(button); });
  OnHover(Image1, [this] { RestSmallButtons(); });
  MouseMove = [this, &store](const MouseEvent&) {
    WakeFullScreen(false);
    MousePointer = 0;
    Put(MinimizeButton, store.MinimizeNormal);
    Put(CloseButton, store.CloseNormal);
    Put(Image3, store.ImgButton);
    Put(Image4, store.ImgButton);
  };
  for (Control* edge : {static_cast<Control*>(&ImgRight), static_cast<Control*>(&ImgBottomRight),
                        static_cast<Control*>(&Logo)})
    OnHover(*edge, [this] { MousePointer = 0; });
}

}  // namespace yarvo
