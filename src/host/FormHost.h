#pragma once
// A real top-level window that shows one form model and forwards the user's
// input to it. Geometry comes from the model in twips (15 to a pixel); the
// window title is the form's caption, with "Yarvo Player" added where the
// caption lacks it, so the desktop's task list names the program.

#include <QWidget>

#include <memory>
#include <unordered_map>

#include "core/form/Twips.h"

namespace yarvo {

class Form;
class Control;
class PictureBox;

class FormHost final : public QWidget {
 public:
  explicit FormHost(Form& form);

  Form& Model() const { return form_; }
  // Brings the window in line with the model: title, place, size, visibility.
  void Sync();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  // Local files dragged from the file manager drop on a control that
  // AcceptsFiles; every other drag is refused.
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  Control* ControlAt(const QPoint& pixel) const;
  // The control under `pixel` that takes dropped files, or null.
  Control* FileDropTarget(const QPoint& pixel) const;
  void Point(Control& control, const struct MouseEvent& e);
  void SyncWindow();
  // Native child windows for the controls that show video.
  void SyncSurfaces();

  std::unordered_map<PictureBox*, std::unique_ptr<QWidget>> surfaces_;

  Form& form_;
  bool syncing_ = false;
  Control* pressed_ = nullptr;  // the control a held button went down on
};

}  // namespace yarvo
