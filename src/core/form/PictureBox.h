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
  // The native window that shows this control, for the media service to
  // draw video into; set by the host, 0 while it has none.
  std::uintptr_t hWnd = 0;
};

}  // namespace yarvo
