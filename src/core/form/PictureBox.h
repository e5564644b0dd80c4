#pragma once
// A control that shows a picture: images, picture boxes, frames, buttons.

#include "core/form/Control.h"

namespace yarvo {

class PictureBox : public Control {
 public:
  PictureBox(Form* owner, std::string name, int index = -1)
      : Control(owner, std::move(name), index) {}

  Property<yarvo::Picture> Picture;
  StringField Caption;                // frames and buttons carry one
};

}  // namespace yarvo
