#pragma once
// A control that shows a picture: images, picture boxes, frames, buttons.

#include <cstdint>
#include <memory>

#include "core/form/Control.h"

namespace yarvo {

// A picture box is opaque: its back colour fills it under the picture. An
// image (Transparent) shows only its picture, which is stretched over it or,
// unstretched, sizes it.
class PictureBox : public Control {
 public:
  PictureBox(Form* owner, std::string name, int index = -1);

  Property<yarvo::Picture> Picture;
  Property<bool> Transparent{false};
  Property<bool> Stretch{false};

 private:
  // Tells the form of a new drawing apart from the box's other changes
  // (Form::Changes::drawings), so that a frame need not repaint the box.
  class DrawingOwner final : public PropertyOwner {
   public:
    explicit DrawingOwner(PictureBox& box) : box_(box) {}
    void PropertyChanged() override;

   private:
    PictureBox& box_;
  };
  DrawingOwner drawingOwner_{*this};
  bool drawingChanged_ = false;
  friend class Form;

 public:
  // A picture drawn on the surface at (0, 0) by the program, over Picture:
  // gone when Picture changes or the surface is cleared.
  Property<std::shared_ptr<const IndexedImage>> Drawing{drawingOwner_};
  StringField Caption;  // frames and buttons carry one

  // Clears what the program drew, and the picture.
  void Cls();
  // A control that the media service draws video into asks the host for a
  // native window of its own; hWnd names it (0 while it has none).
  bool NativeSurface = false;
  std::uintptr_t hWnd = 0;
};

}  // namespace yarvo
