#pragma once
// A popup menu of the program's menu window, drawn by hand: each item as the
// hand-drawn menus measure and draw it, a submenu in a popup of its own to
// the right of its item. The pointer and the keys drive it: Up and Down move
// the selection, Right and Return open a submenu, Return chooses, Left and
// Escape close a level.

#include <QPointer>
#include <QWidget>

#include <vector>

namespace yarvo {

class FormMeniuri;
class Menu;

class MenuPopup final : public QWidget {
 public:
  // Shows the items of `menu` at `at` (screen pixels) and returns the item
  // chosen once the menus close, or null when none was.
  static Menu* Choose(FormMeniuri& menus, Menu& menu, QPoint at);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  struct Row {
    Menu* item;
    int top;
    int height;
  };

  MenuPopup(FormMeniuri& menus, Menu& menu, MenuPopup* parent);
  void LayOut();
  int RowAt(QPoint local) const;
  // The popup of the chain (this one, its parents) under a screen point.
  MenuPopup* PopupAt(QPoint global);
  void Select(int row);
  void OpenSubmenu(bool selectFirst);
  void CloseSubmenu();
  void Step(int direction);
  void Activate(int row);
  void Finish(Menu* chosen);
  MenuPopup& Root();

  FormMeniuri& menus_;
  Menu& menu_;
  MenuPopup* parent_;
  QPointer<MenuPopup> child_;
  std::vector<Row> rows_;
  int width_ = 0;
  int selected_ = -1;
  bool finishing_ = false;
  // The root's result and its loop.
  Menu* chosen_ = nullptr;
  bool done_ = false;
};

}  // namespace yarvo
