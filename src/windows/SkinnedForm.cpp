#include "windows/SkinnedForm.h"

#include "core/form/RuntimeError.h"

namespace yarvo {

void MakeImage(PictureBox& image, bool stretch) {
  image.Transparent = true;
  image.Stretch = stretch;
}

SkinnedForm::SkinnedForm(std::string name) : Form(std::move(name)) {
  for (PictureBox* corner : {&ImgTopLeft, &ImgTopRight, &ImgBottomLeft, &ImgBottomRight})
    MakeImage(*corner, false);
  for (PictureBox* edge : {&ImgTopCenter, &ImgLeft, &ImgRight, &ImgBottomCenter})
    MakeImage(*edge, true);
  ImgTopLeft.Move(0, 0, 1500, 285);
  ImgTopCenter.Move(1440, 0, 3690, 285);
  ImgTopRight.Move(4920, 0, 1500, 285);
  ImgLeft.Move(0, 280, 165, 3675);
  ImgRight.Move(6360, 120, 165, 3675);
  ImgBottomLeft.Move(0, 3720, 1500, 165);
  ImgBottomCenter.Move(1440, 3720, 3690, 165);
  ImgBottomRight.Move(5040, 3720, 1500, 165);
}

void SkinnedForm::AnchorFrame() {
  const int w = Width;
  const int h = Height;
  ResumeNext([&] { ImgLeft.Height = h - 300; });
  ResumeNext([&] { ImgRight.Height = h - 300; });
  ResumeNext([&] { ImgRight.Left = w - 180; });
  ResumeNext([&] { ImgTopCenter.Width = w - 2800; });
  ResumeNext([&] { ImgTopRight.Left = w - 1500; });
  for (PictureBox* bottom : {&ImgBottomLeft, &ImgBottomCenter, &ImgBottomRight})
    ResumeNext([&] { bottom->Top = h - 180; });
  ResumeNext([&] { ImgBottomCenter.Width = w - 2800; });
  ResumeNext([&] { ImgBottomRight.Left = w - 1500; });
}

}  // namespace yarvo
