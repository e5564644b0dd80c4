#include "core/form/Menu.h"

namespace yarvo {

Menu::Menu(Form* owner, std::string name, std::string caption, Menu* parent)
    : Control(owner, std::move(name)), Caption(std::move(caption)), parent_(parent) {
  if (parent_) parent_->items_.push_back(this);
}

}  // namespace yarvo
