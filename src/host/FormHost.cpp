#include "host/FormHost.h"

#include <QCloseEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QUrl>

#include <algorithm>
#include <optional>
#include <ranges>
#include <string>
#include <vector>

#include "core/form/Form.h"
#include "core/form/ListBox.h"
#include "core/form/PictureBox.h"
#include "core/form/Slider.h"
#include "host/ControlPainter.h"
#include "host/VirtualKey.h"
#include "platform/qt/QtEvents.h"

namespace yarvo {

namespace {

constexpr const char* kProgramName = "Yarvo Player";

QString WindowTitle(const std::string& caption) {
  QString title = QString::fromStdString(caption);
  if (!title.contains(kProgramName))
    title += title.isEmpty() ? kProgramName : QString(" - ") + kProgramName;
  return title;
}

int ToTwips(int pixels) { return pixels * kTwipsPerPixel; }

MouseEvent ToMouseEvent(const QMouseEvent& event, const Control* control) {
  MouseEvent out;
  out.button = event.button() == Qt::RightButton    ? MouseButton::Right
               : event.button() == Qt::MiddleButton ? MouseButton::Middle
                                                    : MouseButton::Left;
  out.shift = ShiftState(event.modifiers());
  out.x = ToTwips(event.position().toPoint().x()) - (control ? control->Left.get() : 0);
  out.y = ToTwips(event.position().toPoint().y()) - (control ? control->Top.get() : 0);
  return out;
}

// The dragged data as local paths (UTF-8) in the file manager's order, or
// nothing when it holds anything but local files.
std::optional<std::vector<std::string>> LocalFiles(const QMimeData* data) {
  if (!data || !data->hasUrls()) return std::nullopt;
  std::vector<std::string> paths;
  for (const QUrl& url : data->urls()) {
    if (!url.isLocalFile()) return std::nullopt;
    paths.push_back(url.toLocalFile().toStdString());
  }
  if (paths.empty()) return std::nullopt;
  return paths;
}

}  // namespace

FormHost::FormHost(Form& form) : form_(form) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAcceptDrops(true);
  setFocusPolicy(Qt::StrongFocus);
  // Made before the form's Load runs: the window exists (and its video
  // surfaces have native windows) but shows only at the first Sync.
  syncing_ = true;
  SyncWindow();
  SyncSurfaces();
  syncing_ = false;
}

void FormHost::SyncWindow() {
  const QString title = WindowTitle(form_.Caption);
  if (windowTitle() != title) setWindowTitle(title);
  const QRect wanted(form_.Left / kTwipsPerPixel, form_.Top / kTwipsPerPixel,
                     std::max(1, form_.Width / kTwipsPerPixel),
                     std::max(1, form_.Height / kTwipsPerPixel));
  if (geometry() != wanted) setGeometry(wanted);
  const bool onTop = windowFlags().testFlag(Qt::WindowStaysOnTopHint);
  if (onTop != form_.AlwaysOnTop.get()) setWindowFlag(Qt::WindowStaysOnTopHint, form_.AlwaysOnTop);
}

void FormHost::Sync() {
  syncing_ = true;
  SyncWindow();
  if (isVisible() != form_.Visible.get()) setVisible(form_.Visible);
  const bool minimized = form_.WindowState == WindowState::Minimized;
  if (isMinimized() != minimized)
    setWindowState(minimized ? Qt::WindowMinimized : Qt::WindowNoState);
  SyncSurfaces();
  update();
  syncing_ = false;
}

void FormHost::SyncSurfaces() {
  for (Control* control : form_.Controls()) {
    auto* box = dynamic_cast<PictureBox*>(control);
    if (!box || !box->NativeSurface) continue;
    auto& surface = surfaces_[box];
    if (!surface) {
      surface = std::make_unique<QWidget>(this);
      surface->setAttribute(Qt::WA_NativeWindow);
      surface->setAttribute(Qt::WA_DontCreateNativeAncestors);
      surface->setAutoFillBackground(true);
      QPalette black = surface->palette();
      black.setColor(QPalette::Window, Qt::black);
      surface->setPalette(black);
      box->hWnd = static_cast<std::uintptr_t>(surface->winId());
    }
    surface->setGeometry(box->Left / kTwipsPerPixel, box->Top / kTwipsPerPixel,
                         box->Width / kTwipsPerPixel, box->Height / kTwipsPerPixel);
    surface->setVisible(box->Visible);
  }
}

void FormHost::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(form_.BackColor, palette()));
  if (const Image* image = form_.Picture.get().Pixels()) {
    painter.drawImage(QPoint(0, 0), QImage(reinterpret_cast<const uchar*>(image->argb.data()),
                                           image->width, image->height, QImage::Format_ARGB32));
  }
  for (const Control* control : form_.Controls()) {
    if (control->Visible) PaintControl(painter, *control, palette());
  }
}

void FormHost::closeEvent(QCloseEvent* event) {
  // The window system's close runs the form's own close route; the form
  // decides whether and how the window goes away.
  event->ignore();
  QtEvents::Dispatch([this] {
    if (form_.QueryUnload) form_.QueryUnload();
    if (form_.Unload) {
      form_.Unload();
    } else {
      form_.Hide();
    }
  });
}

Control* FormHost::ControlAt(const QPoint& pixel) const {
  const double x = ToTwips(pixel.x());
  const double y = ToTwips(pixel.y());
  for (Control* control : form_.Controls() | std::views::reverse) {
    if (control->Visible && control->Enabled && control->Contains(x, y)) return control;
  }
  return nullptr;
}

void FormHost::mousePressEvent(QMouseEvent* event) {
  Control* control = ControlAt(event->position().toPoint());
  const MouseEvent e = ToMouseEvent(*event, control);
  pressed_ = control;
  QtEvents::Dispatch([&] {
    if (!control) {
      if (form_.MouseDown) form_.MouseDown(e);
      return;
    }
    form_.SetFocus(control);
    if (control->MouseDown) control->MouseDown(e);
    if (e.button == MouseButton::Left) Point(*control, e);
  });
}

void FormHost::mouseMoveEvent(QMouseEvent* event) {
  if (!(event->buttons() & Qt::LeftButton) || !pressed_) return;
  Control* control = pressed_;
  const MouseEvent e = ToMouseEvent(*event, control);
  QtEvents::Dispatch([&] {
    if (control->MouseMove) control->MouseMove(e);
    if (dynamic_cast<Slider*>(control)) Point(*control, e);
  });
}

// What a press or drag means to the control itself: a bar follows the
// pointer, a list selects the row under it.
void FormHost::Point(Control& control, const MouseEvent& e) {
  if (auto* slider = dynamic_cast<Slider*>(&control)) {
    const double share = control.Width > 0 ? e.x / control.Width : 0;
    slider->SetClamped(slider->Min + share * (slider->Max - slider->Min));
    if (slider->Scroll) slider->Scroll();
  } else if (auto* list = dynamic_cast<ListBox*>(&control)) {
    const int rowHeight = std::max(1, list->RowHeight()) * kTwipsPerPixel;
    const int row = list->TopIndex + static_cast<int>(e.y) / rowHeight;
    if (row < list->ListCount()) list->SetListIndex(row);
  }
}

void FormHost::mouseReleaseEvent(QMouseEvent* event) {
  // A drag ends on the control it started on, wherever the pointer is.
  Control* control = pressed_ ? pressed_ : ControlAt(event->position().toPoint());
  pressed_ = nullptr;
  const MouseEvent e = ToMouseEvent(*event, control);
  QtEvents::Dispatch([&] {
    if (!control) {
      if (form_.MouseUp) form_.MouseUp(e);
      return;
    }
    if (control->MouseUp) control->MouseUp(e);
    if (e.button == MouseButton::Left && control->Click) control->Click();
  });
}

void FormHost::mouseDoubleClickEvent(QMouseEvent* event) {
  Control* control = ControlAt(event->position().toPoint());
  QtEvents::Dispatch([&] {
    if (control && control->DblClick) control->DblClick();
  });
}

void FormHost::keyPressEvent(QKeyEvent* event) {
  int keyCode = VirtualKeyCode(*event);
  if (keyCode == 0) return QWidget::keyPressEvent(event);
  const int shift = ShiftState(event->modifiers());
  QtEvents::Dispatch([&] {
    Control* focused = form_.ActiveControl();
    if (focused && focused->KeyDown) {
      focused->KeyDown(keyCode, shift);
    } else if (form_.KeyDown) {
      form_.KeyDown(keyCode, shift);
    }
  });
}

void FormHost::moveEvent(QMoveEvent*) {
  if (syncing_) return;
  QtEvents::Dispatch([this] {
    form_.Left = ToTwips(x());
    form_.Top = ToTwips(y());
  });
}

void FormHost::resizeEvent(QResizeEvent*) {
  if (syncing_) return;
  QtEvents::Dispatch([this] {
    form_.Width = ToTwips(width());
    form_.Height = ToTwips(height());
  });
}

Control* FormHost::FileDropTarget(const QPoint& pixel) const {
  Control* control = ControlAt(pixel);
  return control && control->AcceptsFiles && control->FilesDropped ? control : nullptr;
}

// The drag must be taken at its entry for move events to follow, so entry
// asks only whether some control of the window takes files; each move then
// answers for the control under the pointer.
void FormHost::dragEnterEvent(QDragEnterEvent* event) {
  const auto& controls = form_.Controls();
  const bool anyTaker = std::any_of(controls.begin(), controls.end(),
                                    [](const Control* c) { return c->AcceptsFiles; });
  if (anyTaker && LocalFiles(event->mimeData())) {
    event->acceptProposedAction();
  } else {
    event->ignore();
  }
}

void FormHost::dragMoveEvent(QDragMoveEvent* event) {
  if (FileDropTarget(event->position().toPoint()) && LocalFiles(event->mimeData())) {
    event->acceptProposedAction();
  } else {
    event->ignore();
  }
}

void FormHost::dropEvent(QDropEvent* event) {
  const QPoint pixel = event->position().toPoint();
  Control* control = FileDropTarget(pixel);
  const auto paths = LocalFiles(event->mimeData());
  if (!control || !paths) {
    event->ignore();
    return;
  }
  event->acceptProposedAction();
  const double y = ToTwips(pixel.y()) - control->Top.get();
  QtEvents::Dispatch([&] { control->FilesDropped(*paths, y); });
}

}  // namespace yarvo
