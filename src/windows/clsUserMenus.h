#pragma once
// One menu item as the hand-drawn menus know it: the caption and shortcut
// taken when the menus were installed, and the item's menu object.

#include <string>

namespace yarvo {

class Menu;

struct clsUserMenus {
  Menu* umMenuID = nullptr;  // the menu object, which carries the item's Tag
  int umHandle = 0;          // the item's identifier
  int umParentHandle = 0;    // the identifier of the menu that holds it; 0 the top
  std::string umCaption;     // the text before a tab
  std::string umShortcut;    // the text behind a tab; "" for none
  bool umIsSeparator = false;
};

}  // namespace yarvo
