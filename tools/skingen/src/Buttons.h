#pragma once
// The six small buttons of the main panel (plain, hover and second state)
// and the two caption plates of the right column.

#include "SkinImages.h"
#include "Theme.h"

namespace skingen {

void AddButtons(const Theme& theme, SkinImages& images);

}  // namespace skingen
