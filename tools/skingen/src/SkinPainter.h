#pragma once
// Draws every picture of one skin.

#include "SkinImages.h"
#include "Theme.h"

namespace skingen {

SkinImages DrawSkin(const Theme& theme);

}  // namespace skingen
