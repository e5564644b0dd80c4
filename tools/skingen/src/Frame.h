#pragma once
// The window frame: the rim and title bar cut into the eight frame pieces,
// the menu-bar plates and the two title-bar buttons.

#include <QImage>

#include "SkinImages.h"
#include "Theme.h"

namespace skingen {

// A bare window of `size`: body, rounded rim and title bar, as the frame
// pieces put together draw it.
QImage WindowBody(const Theme& theme, QSize size);

void AddFramePieces(const Theme& theme, SkinImages& images);

}  // namespace skingen
