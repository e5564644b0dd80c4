#pragma once
// The title bar that Main and the mini window share: three menu plates with
// their captions, and the minimize and close buttons. The windows tell no
// "mouse left", so each element, as the pointer moves over it, puts its own
// hover picture up and its neighbours' resting pictures back.

#include <array>
#include <functional>

#include "core/form/Label.h"
#include "core/form/PictureBox.h"
#include "core/form/Property.h"

namespace yarvo {

// Shows `picture` on `box`; a picture that cannot be shown leaves the box
// as it was.
void Put(PictureBox& box, const Property<Picture>& picture);

struct TitleBar {
  std::array<PictureBox*, 3> plates;
  std::array<Label*, 3> captions;
  PictureBox& minimize;
  PictureBox& close;
};

// Lights plate `plate` (0 to 2) and rests the others; -1 rests all three.
void LightMenuPlate(const TitleBar& bar, int plate);

// Runs `look` whenever the pointer moves over `control`.
void OnHover(Control& control, std::function<void()> look);

// The plates and their captions call `hoverPlate` with the plate's number;
// the two buttons light themselves and rest the other.
void BindTitleBarHover(const TitleBar& bar, const std::function<void(int plate)>& hoverPlate);

}  // namespace yarvo
