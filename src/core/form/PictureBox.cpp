#include "core/form/PictureBox.h"

#include "core/form/Form.h"
#include "core/form/Twips.h"

namespace yarvo {

PictureBox::PictureBox(Form* owner, std::string name, int index)
    : Control(owner, std::move(name), index) {
  Picture.onChange([this] {
    Drawing = nullptr;
    // An unstretched image takes the size of its picture.
    const Image* pixels = Picture.get().Pixels();
    if (Transparent && !Stretch && pixels && pixels->width > 0) {
      Width = pixels->width * kTwipsPerPixel;
      Height = pixels->height * kTwipsPerPixel;
    }
  });
}

void PictureBox::DrawingOwner::PropertyChanged() {
  if (box_.drawingChanged_) return;
  box_.drawingChanged_ = true;
  box_.Owner().changedDrawings_.push_back(&box_);
}

void PictureBox::Cls() {
  Drawing = nullptr;
  Picture = yarvo::Picture();
}

}  // namespace yarvo
