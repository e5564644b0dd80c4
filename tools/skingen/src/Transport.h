#pragma once
// The transport cluster: the plate with previous, play, pause, stop and next
// at rest, and each button's hover and pressed picture.

#include "SkinImages.h"
#include "Theme.h"

namespace skingen {

void AddTransport(const Theme& theme, SkinImages& images);

}  // namespace skingen
