#pragma once
// Pictures from the skin's files.
//
// For now a picture records the file it came from and has no pixels: the
// program knows which file a control shows, and the host draws nothing for
// it. The skin loader's decoder takes this place; callers stay as they are.

#include <string>

#include "core/form/Picture.h"

namespace yarvo {

// The picture of the file at `path`.
Picture LoadPicture(const std::string& path);

// The file `name` (beginning with "/") of the current skin's folder:
// <program folder>/Skins/<Options.SkinName>/name.
std::string SkinFile(const std::string& name);

}  // namespace yarvo
