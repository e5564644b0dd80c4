#include "core/form/OptionButton.h"

namespace yarvo {

OptionButton::OptionButton(Form* owner, std::string name, std::string caption, OptionGroup& group,
                           bool value, int index)
    : Control(owner, std::move(name), index),
      Caption(std::move(caption)),
      Value(value),
      group_(group) {
  group_.Add(this);
  Value.onChange([this] {
    if (!Value) return;
    for (OptionButton* other : group_.Buttons()) {
      if (other != this) other->Value = false;
    }
    if (Click) Click();
  });
}

}  // namespace yarvo
