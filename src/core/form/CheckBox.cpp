#include "core/form/CheckBox.h"

namespace yarvo {

CheckBox::CheckBox(Form* owner, std::string name, std::string caption, int value, int index)
    : Control(owner, std::move(name), index), Caption(std::move(caption)), Value(value) {
  Value.onChange([this] {
    if (Click) Click();
  });
}

}  // namespace yarvo
