#include "core/form/Label.h"

namespace yarvo {

Label::Label(Form* owner, std::string name, std::string caption, int index)
    : Control(owner, std::move(name), index), Caption(std::move(caption)) {
  Caption.onChange([this] {
    if (Change) Change();
  });
}

}  // namespace yarvo
