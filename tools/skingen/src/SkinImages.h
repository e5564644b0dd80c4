#pragma once
// The pictures of one skin, by file name.

#include <QImage>
#include <QString>
#include <map>

namespace skingen {

using SkinImages = std::map<QString, QImage>;

}  // namespace skingen
