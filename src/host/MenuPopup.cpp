#include "host/MenuPopup.h"

#include <QEventLoop>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

#include "core/form/Menu.h"
#include "host/PicturePainter.h"
#include "host/SystemColours.h"
#include "platform/qt/QtEvents.h"
#include "windows/FormMeniuri.h"
#include "windows/modUserMenus.h"

namespace yarvo {

namespace {

// The menus' own border around the items, one pixel on each side.
constexpr int kBorder = 1;
constexpr int kArrowSpace = 12;

QFont MenuFont() {
  QFont font("DejaVu Sans");
  font.setPixelSize(11);
  return font;
}

QString Q(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool Choosable(const Menu& item) { return item.Enabled && !item.IsSeparator(); }

// The icon's opaque pixels as a flat grey shadow.
QImage Shadow(const QImage& icon) {
  QImage shadow = icon.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < shadow.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(shadow.scanLine(y));
    for (int x = 0; x < shadow.width(); ++x)
      row[x] = qRgba(128, 128, 128, qAlpha(row[x]) > 96 ? 255 : 0);
  }
  return shadow;
}

void Paint(QPainter& p, const MenuPaint& step, const FormMeniuri& menus) {
  const QRect rect(step.rect.left, step.rect.top, step.rect.right - step.rect.left,
                   step.rect.bottom - step.rect.top);
  switch (step.kind) {
    case MenuPaint::Kind::Fill:
      p.fillRect(rect, ToQColor(step.colour));
      break;
    case MenuPaint::Kind::Text:
      p.setPen(ToQColor(step.colour));
      p.drawText(rect,
                 (step.alignRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter |
                     Qt::TextSingleLine,
                 Q(step.text));
      break;
    case MenuPaint::Kind::Icon:
    case MenuPaint::Kind::IconShadow: {
      const auto found = menus.Icons.find(step.icon);
      if (found == menus.Icons.end() || !found->second.Pixels()) break;
      const QImage icon = ToQImage(*found->second.Pixels());
      p.drawImage(step.at.width, step.at.height,
                  step.kind == MenuPaint::Kind::Icon ? icon : Shadow(icon));
      break;
    }
  }
}

}  // namespace

MenuPopup::MenuPopup(FormMeniuri& menus, Menu& menu, MenuPopup* parent)
    : QWidget(nullptr, Qt::Popup | Qt::FramelessWindowHint),
      menus_(menus),
      menu_(menu),
      parent_(parent) {
  setAttribute(Qt::WA_DeleteOnClose, false);
  setMouseTracking(true);
  setFont(MenuFont());
  LayOut();
}

Menu* MenuPopup::Choose(FormMeniuri& menus, Menu& menu, QPoint at) {
  MenuPopup root(menus, menu, nullptr);
  if (root.rows_.empty()) return nullptr;
  root.move(at);
  root.show();
  QEventLoop loop;
  // The program may end while its menu is open.
  while (!root.done_ && !QtEvents::Ending()) loop.processEvents(QEventLoop::WaitForMoreEvents);
  return root.chosen_;
}

void MenuPopup::LayOut() {
  const QFontMetrics metrics(font());
  const TextExtent extent = [&](const std::string& text) {
    const QRect box = metrics.boundingRect(Q(text));
    return PixelSize{metrics.horizontalAdvance(Q(text)), std::max(box.height(), metrics.height())};
  };
  int y = kBorder;
  width_ = 0;
  for (Menu* item : menu_.Items()) {
    if (!item->Visible) continue;
    const clsUserMenus* entry = menus_.UserMenuOf(*item);
    if (!entry) continue;
    const PixelSize size = MeasureMenuItem(*entry, extent);
    rows_.push_back({item, y, size.height});
    width_ = std::max(width_, size.width + (item->Items().empty() ? 0 : kArrowSpace));
    y += size.height;
  }
  resize(width_ + 2 * kBorder, y + kBorder);
}

void MenuPopup::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setFont(font());
  p.fillRect(rect(), ToQColor(0x02FFFFFF));
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Row& row = rows_[i];
    const clsUserMenus* entry = menus_.UserMenuOf(*row.item);
    if (!entry) continue;
    const MenuItemState state{static_cast<int>(i) == selected_ && !row.item->IsSeparator(),
                              !row.item->Enabled, row.item->Checked};
    p.save();
    p.translate(kBorder, 0);
    p.setClipRect(0, row.top, width_, row.height);
    for (const MenuPaint& step : DrawMenuItem(
             *entry, state, {0, row.top, width_, row.top + row.height}, MenuIcon(*row.item)))
      Paint(p, step, menus_);
    if (!row.item->Items().empty()) {
      // A submenu's arrow at the right end of its item.
      const int mid = row.top + row.height / 2;
      const QPolygon arrow(
          {QPoint(width_ - 10, mid - 4), QPoint(width_ - 6, mid), QPoint(width_ - 10, mid + 4)});
      p.setPen(Qt::NoPen);
      p.setBrush(ToQColor(row.item->Enabled ? 0x000000 : 0x80000011));
      p.setRenderHint(QPainter::Antialiasing);
      p.drawPolygon(arrow);
    }
    p.restore();
  }
  p.setPen(ToQColor(0x80000010));
  p.setBrush(Qt::NoBrush);
  p.drawRect(rect().adjusted(0, 0, -1, -1));
}

int MenuPopup::RowAt(QPoint local) const {
  if (!rect().contains(local)) return -1;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (local.y() >= rows_[i].top && local.y() < rows_[i].top + rows_[i].height)
      return static_cast<int>(i);
  }
  return -1;
}

MenuPopup* MenuPopup::PopupAt(QPoint global) {
  for (MenuPopup* popup = this; popup; popup = popup->parent_) {
    if (popup->geometry().contains(global)) return popup;
  }
  return nullptr;
}

void MenuPopup::Select(int row) {
  if (row == selected_) return;
  selected_ = row;
  update();
}

void MenuPopup::OpenSubmenu(bool selectFirst) {
  if (selected_ < 0) return;
  Menu* item = rows_[static_cast<std::size_t>(selected_)].item;
  if (item->Items().empty() || !item->Enabled) return;
  if (child_ && &child_->menu_ == item) return;
  CloseSubmenu();
  child_ = new MenuPopup(menus_, *item, this);
  const Row& row = rows_[static_cast<std::size_t>(selected_)];
  QPoint at = mapToGlobal(QPoint(width() - 3, row.top - kBorder));
  // Kept on the screen: to the left of this menu where the right runs out.
  if (const QScreen* screen = QGuiApplication::screenAt(at)) {
    const QRect area = screen->availableGeometry();
    if (at.x() + child_->width() > area.right()) at.setX(x() - child_->width() + 3);
    at.setY(std::min(at.y(), area.bottom() - child_->height()));
  }
  child_->move(at);
  child_->show();
  if (selectFirst) child_->Step(1);
}

void MenuPopup::CloseSubmenu() {
  if (!child_) return;
  MenuPopup* child = child_;
  child_ = nullptr;
  child->CloseSubmenu();
  child->finishing_ = true;
  child->close();
  child->deleteLater();
}

// The next choosable row up or down, round the ends.
void MenuPopup::Step(int direction) {
  const int count = static_cast<int>(rows_.size());
  for (int i = 1; i <= count; ++i) {
    const int row =
        ((selected_ < 0 ? (direction > 0 ? -1 : count) : selected_) + direction * i + count) %
        count;
    if (!rows_[static_cast<std::size_t>(row)].item->IsSeparator()) {
      Select(row);
      return;
    }
  }
}

void MenuPopup::Activate(int row) {
  if (row < 0) return;
  Menu* item = rows_[static_cast<std::size_t>(row)].item;
  if (!Choosable(*item)) return;
  Select(row);
  if (!item->Items().empty()) {
    OpenSubmenu(true);
    return;
  }
  Root().Finish(item);
}

MenuPopup& MenuPopup::Root() { return parent_ ? parent_->Root() : *this; }

void MenuPopup::Finish(Menu* chosen) {
  if (done_) return;
  chosen_ = chosen;
  done_ = true;
  CloseSubmenu();
  finishing_ = true;
  close();
}

void MenuPopup::mouseMoveEvent(QMouseEvent* event) {
  const QPoint global = event->globalPosition().toPoint();
  MenuPopup* popup = PopupAt(global);
  if (!popup) {
    if (!child_) Select(-1);
    return;
  }
  const int row = popup->RowAt(popup->mapFromGlobal(global));
  if (popup != this) {
    // Back over a parent: its other items close this level.
    if (row >= 0 && row != popup->selected_) {
      popup->Select(row);
      popup->CloseSubmenu();
      popup->OpenSubmenu(false);
    }
    return;
  }
  Select(row);
  if (row >= 0 && !(child_ && &child_->menu_ == rows_[static_cast<std::size_t>(row)].item))
    CloseSubmenu();
  OpenSubmenu(false);
}

void MenuPopup::mousePressEvent(QMouseEvent* event) {
  // A press outside every menu of the chain closes them all.
  if (!PopupAt(event->globalPosition().toPoint())) Root().Finish(nullptr);
}

void MenuPopup::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint global = event->globalPosition().toPoint();
  MenuPopup* popup = PopupAt(global);
  if (!popup) return;
  const int row = popup->RowAt(popup->mapFromGlobal(global));
  if (row >= 0 && !popup->rows_[static_cast<std::size_t>(row)].item->Items().empty())
    return;  // a submenu's item opens it on hover
  popup->Activate(row);
}

void MenuPopup::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Down:
      Step(1);
      break;
    case Qt::Key_Up:
      Step(-1);
      break;
    case Qt::Key_Right:
      OpenSubmenu(true);
      break;
    case Qt::Key_Left:
      if (parent_) parent_->CloseSubmenu();
      break;
    case Qt::Key_Escape:
      if (parent_) {
        parent_->CloseSubmenu();
      } else {
        Finish(nullptr);
      }
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      Activate(selected_);
      break;
    default:
      break;
  }
}

// The window system hides a popup when the pointer goes down outside the
// program: that ends the whole chain with nothing chosen.
void MenuPopup::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (finishing_) return;
  Root().Finish(nullptr);
}

}  // namespace yarvo
