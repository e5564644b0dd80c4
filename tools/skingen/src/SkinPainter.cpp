#include "SkinPainter.h"

#include "Buttons.h"
#include "Frame.h"
#include "Panels.h"
#include "Sliders.h"
#include "Transport.h"

namespace skingen {

SkinImages DrawSkin(const Theme& theme) {
  SkinImages images;
  AddFramePieces(theme, images);
  AddPanels(theme, images);
  AddButtons(theme, images);
  AddTransport(theme, images);
  AddSliders(theme, images);
  return images;
}

}  // namespace skingen
