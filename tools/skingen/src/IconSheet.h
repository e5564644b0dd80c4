#pragma once
// A preview of the icons folder: the menu icons in a menu drawn as the
// player draws its menus (white panel, grey strip, blue selection), and the
// application icon at every size on a light and a dark ground.

#include <QImage>
#include <QString>

namespace skingen {

// A null image when the folder holds no icons.
QImage IconSheet(const QString& iconFolder);

}  // namespace skingen
