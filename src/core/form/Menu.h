#pragma once
// A menu, or one item of it. The program's menus are controls of one hidden
// window; a menu holds its items in order, and an item that holds items of its
// own is a submenu. An item whose caption is "-" is a separator.

#include <string>
#include <vector>

#include "core/form/Control.h"

namespace yarvo {

class Menu : public Control {
 public:
  // A top-level menu when `parent` is null, else the last item of `parent`.
  Menu(Form* owner, std::string name, std::string caption, Menu* parent = nullptr);

  // The text shown; a tab separates the caption from a shortcut shown at
  // the right.
  StringField Caption;
  Property<bool> Checked{false};
  // The number of the item's picture in the menus' icon list, as text;
  // "" or "0" for none.
  StringField Tag;

  Menu* Parent() const { return parent_; }
  const std::vector<Menu*>& Items() const { return items_; }
  bool IsSeparator() const { return Caption.get() == "-"; }

 private:
  Menu* parent_;
  std::vector<Menu*> items_;
};

}  // namespace yarvo
