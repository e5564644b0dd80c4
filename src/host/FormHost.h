#pragma once
// A real top-level window that shows one form model and forwards the user's
// input to it. Geometry comes from the model in twips (15 to a pixel); the
// window title is the form's caption, with "Yarvo Player" added where the
// caption lacks it, so the desktop's task list names the program.
//
// The window has no frame of the window system: the form paints its own, and
// its outline (Form::Region) cuts the corners. Moving and sizing it is done
// here, pointer step by pointer step (DragWindow), so that each step can be
// corrected by the form before the window follows.

#include <QWidget>

#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/form/Form.h"
#include "core/form/Twips.h"

namespace yarvo {

class Control;
class DrawingSurface;
class PictureBox;

class FormHost final : public QWidget {
 public:
  explicit FormHost(Form& form);
  ~FormHost() override;

  Form& Model() const { return form_; }
  // Brings the window in line with what changed in the model: the window
  // itself, and the rectangles of the controls that changed.
  void Sync();

  // Moves (hit code 2) or sizes by the bottom right corner (hit code 17) the
  // window with the pointer until the mouse button is let go.
  void DragWindow(int hitCode);

  // The program's window the pointer is in, as the window system last told;
  // null while it is elsewhere, so that no one need ask the X server.
  static FormHost* UnderPointer() { return underPointer_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;
  // Local files dragged from the file manager drop on a control that
  // AcceptsFiles; every other drag is refused.
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  Control* ControlAt(const QPoint& pixel) const;
  std::size_t Cover(const QRect& dirty) const;
  // The control under `pixel` that takes dropped files, or null.
  Control* FileDropTarget(const QPoint& pixel) const;
  void SyncWindow();
  // Where the window's top left corner stands on the screen, as the window
  // system has it.
  QPoint ScreenPosition() const;
  void SyncShape();
  void SyncOnTop();
  void SyncCursor(const QPoint& pixel);
  // Native child windows for the controls that show video.
  void MakeSurfaces();
  void SyncSurfaces();
  // The boxes the program draws on show their drawings on surfaces of their
  // own; a box gets one with its first drawing. Where another control lies
  // over the drawing, the drawing is painted with the form instead.
  void SyncDrawings(const std::vector<PictureBox*>& changed);
  DrawingSurface* SurfaceOf(const PictureBox* box) const;
  bool Overlaid(const PictureBox& box, const QRect& place) const;
  void Repaint(const Form::Changes& changes);
  // A step of a move or size: the rectangle the pointer asks for, as the
  // form takes it.
  void DragStep(int hitCode, const QRect& wanted);

  std::vector<std::pair<PictureBox*, std::unique_ptr<QWidget>>> surfaces_;
  std::vector<std::pair<PictureBox*, std::unique_ptr<DrawingSurface>>> drawings_;
  // Off once the window system has refused a drawing surface: drawings are
  // then painted with the rest of the form.
  bool drawsOnSurfaces_ = true;
  // Where each control was last drawn, so that a moved one is cleared.
  std::unordered_map<const Control*, QRect> drawn_;

  Form& form_;
  bool syncing_ = false;
  // Drawn since it was last shown: until then the window manager is still
  // framing the window, and the places it reports on the way are not where
  // the window stands.
  bool settled_ = false;
  Control* pressed_ = nullptr;  // the control a held button went down on
  QPoint pressedAt_;            // where on the screen it went down
  static inline FormHost* underPointer_ = nullptr;
  Control* hovered_ = nullptr;  // the control the pointer is over
};

}  // namespace yarvo
