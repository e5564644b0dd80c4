#pragma once
// The hand-drawn menus: collecting the items of the menu window, and how
// one item is measured and drawn. Drawing is a list of fills, texts and
// icons in pixels that the window host paints; it has no look of its own
// beyond what is here, and none from the skin.

#include <functional>
#include <string>
#include <vector>

#include "core/form/Picture.h"

namespace yarvo {

class FormMeniuri;
class Menu;
struct clsUserMenus;

// Collects the items of every menu of `form` into its user menus, in window
// order, with the captions they have now; hidden items too.
void InstallUserMenus(FormMeniuri& form);

// The text of one item: caption and shortcut split at a tab, the whole cut to
// 80 characters.
struct MenuItemText {
  std::string caption;
  std::string shortcut;
};
MenuItemText ReadMenuItem(const Menu& item);

struct PixelRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

struct PixelSize {
  int width = 0;
  int height = 0;
};

// The size of a text in the menus' font, in pixels.
using TextExtent = std::function<PixelSize(const std::string& text)>;

// A separator is 5 pixels high; an item is its caption's height and 9, and
// as wide as its caption and 40, with the shortcut and 30 more.
PixelSize MeasureMenuItem(const clsUserMenus& item, const TextExtent& extent);

// The state bits of an item being drawn.
struct MenuItemState {
  bool selected = false;
  bool disabled = false;
  bool checked = false;
};

// One step of drawing an item, in pixels of the menu.
struct MenuPaint {
  enum class Kind {
    Fill,        // `rect` in `colour`
    Text,        // `text` in `rect`, `colour`; right aligned when `alignRight`
    Icon,        // the picture of `icon` with its top left corner at `at`
    IconShadow,  // the same picture as a flat grey shadow
  };
  Kind kind = Kind::Fill;
  PixelRect rect;
  Colour colour = 0;
  std::string text;
  bool alignRight = false;
  int icon = 0;
  PixelSize at;
};

// The drawing of `item` in `rect`, with the picture number `icon` (0 for
// none).
std::vector<MenuPaint> DrawMenuItem(const clsUserMenus& item, MenuItemState state,
                                    const PixelRect& rect, int icon);

// The picture number an item's Tag names: 0 when it holds no number above 0.
int MenuIcon(const Menu& item);

}  // namespace yarvo
