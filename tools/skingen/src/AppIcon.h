#pragma once
// The application icon: a graphite tile with the orange play disc of the
// skins. Each size is drawn on its own pixel grid, with less detail and
// heavier edges as it shrinks.

#include <QImage>

namespace skingen {

QImage DrawAppIcon(int size);

}  // namespace skingen
