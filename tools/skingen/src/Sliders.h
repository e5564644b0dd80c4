#pragma once
// The slider pieces: grooves, end caps and thumbs of the horizontal bars
// (seek, volume) and the vertical ones (equalizer, playlist).

#include "SkinImages.h"
#include "Theme.h"

namespace skingen {

void AddSliders(const Theme& theme, SkinImages& images);

}  // namespace skingen
