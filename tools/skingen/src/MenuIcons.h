#pragma once
// The 16 by 16 menu icons, one set: 1 px outlines in one ink, 2 px strokes
// for every line symbol, light from the top left, a 1 px margin, and the
// orange of the skins for what acts.

#include <QImage>
#include <map>

namespace skingen {

// Icon number (the menu items' Tag) to picture, transparent background.
std::map<int, QImage> DrawMenuIcons();

}  // namespace skingen
