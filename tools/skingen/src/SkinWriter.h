#pragma once
// Writes a skin folder: skin.ini and every picture, bitmaps as 24-bit BMP and
// the two panels as JPEG of quality 95.

#include <QString>

#include "SkinImages.h"
#include "Theme.h"

namespace skingen {

// The 17 lines of skin.ini, each ending in a line feed.
QString SkinIni(const Theme& theme);

// Saves `image` in the format its file name asks for. False when it fails.
bool SaveImage(const QImage& image, const QString& path);

// Writes everything into `folder`, creating it. Returns the first failure,
// or an empty string.
QString WriteSkin(const Theme& theme, const SkinImages& images, const QString& folder);

}  // namespace skingen
