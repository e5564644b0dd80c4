#include "windows/modUserMenus.h"

#include <cstdlib>

#include "windows/FormMeniuri.h"

namespace yarvo {

namespace {

// The menus' colours, 0x00BBGGRR; the top bit marks a system colour.
constexpr Colour kPanel = 0x02FFFFFF;
constexpr Colour kStrip = 0xECECEC;
constexpr Colour kFrame = 0xC56A31;
constexpr Colour kSelection = 0xEED2C1;
constexpr Colour kLineLight = 0xFDFDFD;
constexpr Colour kGrayText = 0x80000011;
constexpr Colour kBlack = 0x000000;
constexpr Colour kWhite = 0xFFFFFF;

constexpr std::size_t kLongestText = 80;
// The icon strip is this wide; captions start this far to its right.
constexpr int kStripWidth = 24;
constexpr int kCaptionIndent = 30;
constexpr int kRowHeight = 22;

MenuPaint Fill(int left, int top, int right, int bottom, Colour colour) {
  MenuPaint paint;
  paint.rect = {left, top, right, bottom};
  paint.colour = colour;
  return paint;
}

MenuPaint Text(const std::string& text, const PixelRect& rect, Colour colour, bool right) {
  MenuPaint paint;
  paint.kind = MenuPaint::Kind::Text;
  paint.rect = rect;
  paint.colour = colour;
  paint.text = text;
  paint.alignRight = right;
  return paint;
}

MenuPaint Icon(MenuPaint::Kind kind, int icon, int x, int y) {
  MenuPaint paint;
  paint.kind = kind;
  paint.icon = icon;
  paint.at = {x, y};
  return paint;
}

PixelRect Shifted(PixelRect rect, int dx, int dy) {
  return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
}

void Background(std::vector<MenuPaint>& paints, MenuItemState state, const PixelRect& r) {
  const int top = r.top;
  const int right = r.right;
  if (state.disabled) {
    paints.push_back(Fill(r.left, r.top, r.right, r.bottom, kPanel));
    paints.push_back(Fill(0, top, kStripWidth, top + kRowHeight, kStrip));
  } else if (state.selected) {
    paints.push_back(Fill(r.left, r.top, r.right, r.bottom, kFrame));
    paints.push_back(Fill(1, top + 1, right - 1, top + kRowHeight - 1, kSelection));
  } else if (state.checked) {
    paints.push_back(Fill(r.left, r.top, r.right, r.bottom, kStrip));
    paints.push_back(Fill(1, top + 1, kStripWidth - 1, top + kRowHeight - 1, kFrame));
    paints.push_back(Fill(2, top + 2, kStripWidth - 2, top + kRowHeight - 2, kSelection));
    paints.push_back(Fill(kStripWidth, top, right, top + kRowHeight, kPanel));
  } else {
    paints.push_back(Fill(r.left, r.top, r.right, r.bottom, kPanel));
    paints.push_back(Fill(0, top, kStripWidth, top + kRowHeight, kStrip));
  }
}

// A disabled item's texts are embossed: white, and grey one pixel up and left.
void Texts(std::vector<MenuPaint>& paints, const clsUserMenus& item, MenuItemState state,
           const PixelRect& r) {
  auto draw = [&](const std::string& text, const PixelRect& rect, bool right) {
    paints.push_back(Text(text, rect, state.disabled ? kWhite : kBlack, right));
    if (state.disabled) paints.push_back(Text(text, Shifted(rect, -1, -1), kGrayText, right));
  };
  if (!item.umShortcut.empty()) draw(item.umShortcut + "    ", r, true);
  draw(item.umCaption, Shifted(r, kCaptionIndent, 0), false);
}

void ItemIcon(std::vector<MenuPaint>& paints, MenuItemState state, int top, int icon) {
  if (icon <= 0) return;
  if (state.disabled) {
    paints.push_back(Icon(MenuPaint::Kind::IconShadow, icon, 4, top + 3));
  } else if (state.selected) {
    paints.push_back(Icon(MenuPaint::Kind::IconShadow, icon, 5, top + 3));
    paints.push_back(Icon(MenuPaint::Kind::Icon, icon, 3, top + 2));
  } else {
    paints.push_back(Icon(MenuPaint::Kind::Icon, icon, 4, top + 3));
  }
}

// Depth first, as the items stand in the window: an item, then its items.
void Collect(FormMeniuri& form, Menu& item, int parent,
             std::vector<std::unique_ptr<clsUserMenus>>& into) {
  auto entry = std::make_unique<clsUserMenus>();
  const MenuItemText text = ReadMenuItem(item);
  entry->umMenuID = &item;
  entry->umHandle = static_cast<int>(into.size()) + 1;
  entry->umParentHandle = parent;
  entry->umCaption = text.caption;
  entry->umShortcut = text.shortcut;
  entry->umIsSeparator = item.IsSeparator();
  const int handle = entry->umHandle;
  into.push_back(std::move(entry));
  for (Menu* child : item.Items()) Collect(form, *child, handle, into);
}

}  // namespace

MenuItemText ReadMenuItem(const Menu& item) {
  std::string text = item.Caption.get().substr(0, kLongestText);
  if (text == "-") text.clear();
  const auto tab = text.find('\t');
  if (tab == std::string::npos) return {text, {}};
  return {text.substr(0, tab), text.substr(tab + 1)};
}

void InstallUserMenus(FormMeniuri& form) {
  form.userMenus_.clear();
  for (Control* control : form.Controls()) {
    auto* menu = dynamic_cast<Menu*>(control);
    if (menu && !menu->Parent()) Collect(form, *menu, 0, form.userMenus_);
  }
}

PixelSize MeasureMenuItem(const clsUserMenus& item, const TextExtent& extent) {
  if (item.umIsSeparator) return {0, 5};
  const PixelSize caption = extent(item.umCaption);
  PixelSize size{caption.width + 40, caption.height + 9};
  if (!item.umShortcut.empty()) size.width += extent(item.umShortcut).width + 30;
  return size;
}

std::vector<MenuPaint> DrawMenuItem(const clsUserMenus& item, MenuItemState state,
                                    const PixelRect& r, int icon) {
  std::vector<MenuPaint> paints;
  if (item.umIsSeparator) {
    paints.push_back(Fill(r.left, r.top, r.right, r.bottom, kPanel));
    paints.push_back(Fill(0, r.top, kStripWidth, r.top + 6, kStrip));
    paints.push_back(Fill(28, r.top + 2, r.right, r.top + 3, kGrayText));
    paints.push_back(Fill(28, r.top + 3, r.right, r.top + 4, kLineLight));
    return paints;
  }
  Background(paints, state, r);
  Texts(paints, item, state, r);
  ItemIcon(paints, state, r.top, icon);
  return paints;
}

int MenuIcon(const Menu& item) {
  const std::string& tag = item.Tag;
  char* end = nullptr;
  const long number = std::strtol(tag.c_str(), &end, 10);
  if (tag.empty() || *end != '\0' || number <= 0) return 0;
  return static_cast<int>(number);
}

}  // namespace yarvo
