#pragma once
// A control that shows a picture: images, picture boxes, frames, buttons.

#include <cstdint>

#include "core/form/Control.h"

namespace yarvo {

class PictureBox : public Control {
 public:
  PictureBox(Form* owner, std::string name, int index = -1)
      : Control(owner, std::move(name), index) {}

  Property<yarvo::Picture> Picture;
  StringField Caption;  // frames and buttons carry one
  // A control that the media service draws video into asks the host for a
  // native window of its own; hWnd names it (0 while it has none).
  bool NativeSurface = false;
  std::uintptr_t hWnd = 0;
};

}  // namespace yarvo
