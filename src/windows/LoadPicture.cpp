#include "windows/LoadPicture.h"

#include <memory>

#include "core/DataForm.h"
#include "director/Program.h"
#include "settings/Options.h"

namespace yarvo {

Picture LoadPicture(const std::string& path) {
  // An image of its own, though empty, so that every load is a new picture
  // that the holder's property sees change.
  return Picture(std::make_shared<const Image>(), path);
}

std::string SkinFile(const std::string& name) {
  auto& p = program();
  return p.DataForm().ProgramPath("/Skins/" + p.Options().SkinName.Text.get() + name);
}

}  // namespace yarvo
