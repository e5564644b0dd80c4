#pragma once
// Every file a skin folder holds, with the size the player's layout gives it.

#include <QSize>
#include <QString>
#include <vector>

namespace skingen {

struct SkinFile {
  QString name;
  QSize size;
  // The axis the player stretches or tiles the picture along, if any.
  enum class Stretch { None, Horizontal, Vertical } stretch = Stretch::None;
};

std::vector<SkinFile> SkinManifest();

}  // namespace skingen
