#pragma once
// A borderless window that paints its own frame from the skin's eight edge
// pictures: the player windows, the playlist and the media library. The
// pictures are the bottom layer of the window; the edges follow its size.

#include <string>

#include "core/form/Form.h"
#include "core/form/PictureBox.h"

namespace yarvo {

class SkinnedForm : public Form {
 public:
  explicit SkinnedForm(std::string name);

  PictureBox ImgTopLeft{this, "ImgTopLeft"}, ImgTopCenter{this, "ImgTopCenter"},
      ImgTopRight{this, "ImgTopRight"}, ImgLeft{this, "ImgLeft"}, ImgRight{this, "ImgRight"},
      ImgBottomLeft{this, "ImgBottomLeft"}, ImgBottomCenter{this, "ImgBottomCenter"},
      ImgBottomRight{this, "ImgBottomRight"};

  // Moves the edges to the window's size; a step that fails is skipped.
  void AnchorFrame();
};

// Makes `image` an image control: it shows only its picture, stretched over
// it or at its own size.
void MakeImage(PictureBox& image, bool stretch);

}  // namespace yarvo
