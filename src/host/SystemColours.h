#pragma once
// The program's colour values as Qt colours: 0x00BBGGRR, or a system colour
// when the top bit is set. The system colours are the classic desktop's
// fixed values, so that a window looks the same on every desktop theme.

#include <QColor>

#include "core/form/Picture.h"

namespace yarvo {

QColor ToQColor(Colour colour);

}  // namespace yarvo
