#include "host/FormHost.h"

#include <xcb/xcb.h>
#include <QCloseEvent>
#include <QCursor>
#include <QDropEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <optional>
#include <ranges>
#include <string>
#include <vector>

#include "core/form/ListBox.h"
#include "core/form/PictureBox.h"
#include "host/ControlPainter.h"
#include "host/DrawingSurface.h"
#include "host/PicturePainter.h"
#include "host/SystemColours.h"
#include "host/VirtualKey.h"
#include "platform/FileUri.h"
#include "platform/qt/QtEvents.h"

namespace yarvo {

namespace {

constexpr const char* kProgramName = "Yarvo Player";
constexpr int kHitCaption = 2;
constexpr int kHitBottomRight = 17;
constexpr int kEdgeBottomRight = 8;

QString WindowTitle(const std::string& caption) {
  QString title = QString::fromStdString(caption);
  if (!title.contains(kProgramName))
    title += title.isEmpty() ? kProgramName : QString(" - ") + kProgramName;
  return title;
}

int ToTwips(int pixels) { return pixels * kTwipsPerPixel; }

MouseButton ToButton(Qt::MouseButtons buttons) {
  if (buttons & Qt::LeftButton) return MouseButton::Left;
  if (buttons & Qt::RightButton) return MouseButton::Right;
  if (buttons & Qt::MiddleButton) return MouseButton::Middle;
  return MouseButton::None;
}

// x and y in twips from the control's corner, or the window's without one.
MouseEvent ToMouseEvent(const QPoint& at, MouseButton button, Qt::KeyboardModifiers modifiers,
                        const Control* control) {
  MouseEvent out;
  out.button = button;
  out.shift = ShiftState(modifiers);
  out.x = ToTwips(at.x()) - (control ? control->FormLeft() : 0);
  out.y = ToTwips(at.y()) - (control ? control->FormTop() : 0);
  return out;
}

// The dragged data as local paths in the file manager's order, or nothing
// when it holds anything but local files. The list's own bytes are read, not
// QUrl's reading of them, so that a name that is not UTF-8 survives.
std::optional<std::vector<std::string>> LocalFiles(const QMimeData* data) {
  if (!data || !data->hasFormat("text/uri-list")) return std::nullopt;
  const QByteArray list = data->data("text/uri-list");
  return LocalPathsOfUriList(
      std::string_view(list.constData(), static_cast<std::size_t>(list.size())));
}

// A rounded rectangle as a one-bit region, row by row, the same at all four
// corners.
QRegion RoundedRegion(const WindowRegion& shape) {
  const int r = std::min({shape.radius, shape.width / 2, shape.height / 2});
  QRegion region(r, 0, shape.width - 2 * r, shape.height);
  for (int y = 0; y < r; ++y) {
    const double dy = r - y - 0.5;
    const int inset = static_cast<int>(std::lround(r - std::sqrt(double(r) * r - dy * dy)));
    const int width = shape.width - 2 * inset;
    region += QRect(inset, y, width, 1);
    region += QRect(inset, shape.height - 1 - y, width, 1);
  }
  region += QRect(0, r, shape.width, shape.height - 2 * r);
  return region;
}

// The part of the window a control may paint in: its own rectangle inside
// every container's.
QRect VisibleRect(const Control& control) {
  QRect rect = WindowRect(control);
  for (const Control* c = control.Container(); c; c = c->Container()) rect &= WindowRect(*c);
  return rect;
}

Qt::CursorShape CursorShape(int pointer) {
  switch (pointer) {
    case 2:
      return Qt::CrossCursor;
    case 8:
      return Qt::SizeFDiagCursor;
    default:
      return Qt::ArrowCursor;
  }
}

ScreenRect ToScreenRect(const QRect& r) {
  return {r.left(), r.top(), r.left() + r.width(), r.top() + r.height()};
}

}  // namespace

FormHost::FormHost(Form& form) : form_(form) {
  setWindowFlag(Qt::FramelessWindowHint);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAcceptDrops(true);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  // Made before the form's Load runs: the window exists (and its video
  // surfaces have native windows) but shows only at the first Sync.
  syncing_ = true;
  SyncWindow();
  MakeSurfaces();
  SyncSurfaces();
  syncing_ = false;
}

FormHost::~FormHost() {
  if (underPointer_ == this) underPointer_ = nullptr;
}

void FormHost::SyncWindow() {
  const QString title = WindowTitle(form_.Caption);
  if (windowTitle() != title) setWindowTitle(title);
  const QRect wanted(form_.Left / kTwipsPerPixel, form_.Top / kTwipsPerPixel,
                     std::max(1, form_.Width / kTwipsPerPixel),
                     std::max(1, form_.Height / kTwipsPerPixel));
  if (geometry() != wanted) setGeometry(wanted);
  SyncOnTop();
  SyncShape();
}

// A window that exists asks the window manager for its above state
// (_NET_WM_STATE_ABOVE). New flags on the widget would make Qt replace the
// native window, and with it the child window the video is drawn into.
void FormHost::SyncOnTop() {
  const bool wanted = form_.AlwaysOnTop;
  if (QWindow* window = windowHandle()) {
    if (window->flags().testFlag(Qt::WindowStaysOnTopHint) != wanted)
      window->setFlag(Qt::WindowStaysOnTopHint, wanted);
  } else if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) != wanted) {
    setWindowFlag(Qt::WindowStaysOnTopHint, wanted);
  }
}

void FormHost::SyncShape() {
  const WindowRegion& shape = form_.Region;
  if (shape.width <= 0 || shape.height <= 0) {
    clearMask();
  } else {
    setMask(RoundedRegion(shape));
  }
}

void FormHost::Sync() {
  syncing_ = true;
  const Form::Changes changes = form_.TakeChanges();
  if (changes.window) SyncWindow();
  if (isVisible() != form_.Visible.get()) setVisible(form_.Visible);
  const bool minimized = form_.WindowState == WindowState::Minimized;
  if (isMinimized() != minimized)
    setWindowState(minimized ? Qt::WindowMinimized : Qt::WindowNoState);
  SyncSurfaces();
  SyncDrawings(changes.drawings);
  Repaint(changes);
  syncing_ = false;
}

// A minimised window is drawn whole when it comes back, not while no one
// sees it.
void FormHost::Repaint(const Form::Changes& changes) {
  if (isMinimized()) return;
  if (changes.window) {
    drawn_.clear();
    update();
    return;
  }
  for (const Control* control : changes.controls) {
    const QRect now = WindowRect(*control);
    QRect& before = drawn_[control];
    update(before | now);
    before = now;
  }
  for (const PictureBox* box : changes.drawings) {
    const DrawingSurface* surface = SurfaceOf(box);
    if (!surface || surface->isHidden()) update(WindowRect(*box));
  }
}

// The boxes that ask for a native surface say so when they are made, so the
// surfaces are made with the host and only their places follow the model.
void FormHost::MakeSurfaces() {
  for (Control* control : form_.Controls()) {
    auto* box = dynamic_cast<PictureBox*>(control);
    if (!box || !box->NativeSurface) continue;
    auto surface = std::make_unique<QWidget>(this);
    surface->setAttribute(Qt::WA_NativeWindow);
    surface->setAttribute(Qt::WA_DontCreateNativeAncestors);
    surface->setAutoFillBackground(true);
    QPalette black = surface->palette();
    black.setColor(QPalette::Window, Qt::black);
    surface->setPalette(black);
    box->hWnd = static_cast<std::uintptr_t>(surface->winId());
    surfaces_.emplace_back(box, std::move(surface));
  }
}

void FormHost::SyncSurfaces() {
  for (const auto& [box, surface] : surfaces_) {
    const QRect wanted = WindowRect(*box);
    if (surface->geometry() != wanted) surface->setGeometry(wanted);
    if (surface->isVisible() != box->Shown()) surface->setVisible(box->Shown());
  }
}

void FormHost::SyncDrawings(const std::vector<PictureBox*>& changed) {
  for (PictureBox* box : changed) {
    if (!drawsOnSurfaces_ || !box->Drawing.get() || SurfaceOf(box)) continue;
    auto surface = DrawingSurface::Make(this);
    drawsOnSurfaces_ = surface != nullptr;
    if (surface) drawings_.emplace_back(box, std::move(surface));
  }
  for (const auto& [box, surface] : drawings_) {
    const auto& drawing = box->Drawing.get();
    const QRect whole = WindowRect(*box);
    const QRect place =
        drawing ? QRect(whole.topLeft(), QSize(drawing->width, drawing->height)) & VisibleRect(*box)
                : QRect();
    const bool shown = box->Shown() && !place.isEmpty() && !Overlaid(*box, place);
    if (shown) {
      if (surface->geometry() != place) surface->setGeometry(place);
      surface->Show(drawing, whole.topLeft() - place.topLeft());
    }
    if (surface->isHidden() == shown) surface->setVisible(shown);
  }
}

// Whether a control above `box` shows over `place`: a surface would hide it.
bool FormHost::Overlaid(const PictureBox& box, const QRect& place) const {
  const auto& controls = form_.Controls();
  const auto above = std::ranges::find(controls, &box);
  return std::any_of(above == controls.end() ? above : above + 1, controls.end(),
                     [&](const Control* control) {
                       return control->Shown() && VisibleRect(*control).intersects(place);
                     });
}

DrawingSurface* FormHost::SurfaceOf(const PictureBox* box) const {
  const auto found =
      std::ranges::find_if(drawings_, [box](const auto& drawing) { return drawing.first == box; });
  return found == drawings_.end() ? nullptr : found->second.get();
}

// The topmost opaque box that covers `dirty` whole, as an index into the
// form's controls, or their count when none does. Nothing beneath it shows,
// so a change inside an opaque box repaints from that box up.
std::size_t FormHost::Cover(const QRect& dirty) const {
  const auto& controls = form_.Controls();
  for (std::size_t i = controls.size(); i > 0; --i) {
    const auto* box = dynamic_cast<const PictureBox*>(controls[i - 1]);
    if (box && !box->Transparent && box->Shown() && VisibleRect(*box).contains(dirty)) return i - 1;
  }
  return controls.size();
}

void FormHost::paintEvent(QPaintEvent* event) {
  settled_ = true;
  QPainter painter(this);
  const QRect dirty = event->rect();
  const auto& controls = form_.Controls();
  const std::size_t cover = Cover(dirty);
  const bool covered = cover < controls.size();
  if (!covered) {
    painter.fillRect(dirty, ToQColor(form_.BackColor));
    if (const Image* image = form_.Picture.get().Pixels())
      painter.drawImage(0, 0, ToQImage(*image));
  }
  for (std::size_t i = covered ? cover : 0; i < controls.size(); ++i) {
    const Control* control = controls[i];
    if (!control->Shown()) continue;
    const QRect area = VisibleRect(*control) & dirty;
    if (area.isEmpty()) continue;
    painter.save();
    painter.setClipRect(area);
    PaintControl(painter, *control);
    painter.restore();
    drawn_[control] = WindowRect(*control);
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
  for (Control* control : form_.Controls() | std::views::reverse) {
    if (control->Shown() && control->Enabled && VisibleRect(*control).contains(pixel))
      return control;
  }
  return nullptr;
}

void FormHost::SyncCursor(const QPoint& pixel) {
  const Control* control = ControlAt(pixel);
  const int pointer = control && control->MousePointer != 0 ? control->MousePointer.get()
                                                            : form_.MousePointer.get();
  const Qt::CursorShape shape = CursorShape(pointer);
  if (cursor().shape() != shape) setCursor(shape);
}

void FormHost::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  Control* control = ControlAt(at);
  const MouseEvent e = ToMouseEvent(at, ToButton(event->button()), event->modifiers(), control);
  pressed_ = control;
  pressedAt_ = event->globalPosition().toPoint();
  QtEvents::Dispatch([&] {
    if (!control) {
      if (form_.MouseDown) form_.MouseDown(e);
      return;
    }
    form_.SetFocus(control);
    // A list chooses the row under the pointer itself, before it tells.
    if (auto* list = dynamic_cast<ListBox*>(control); list && e.button == MouseButton::Left) {
      const int row =
          list->TopIndex + static_cast<int>(e.y / kTwipsPerPixel) / std::max(1, list->RowHeight());
      if (row < list->ListCount()) list->SetListIndex(row);
    }
    if (control->MouseDown) control->MouseDown(e);
  });
}

// With a button held, the moves go to the control it went down on, wherever
// the pointer is; else to the control under the pointer.
void FormHost::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  const bool held = event->buttons() != Qt::NoButton && pressed_;
  Control* control = held ? pressed_ : ControlAt(at);
  hovered_ = control;
  if (!held) SyncCursor(at);
  const MouseEvent e = ToMouseEvent(at, ToButton(event->buttons()), event->modifiers(), control);
  QtEvents::Dispatch([&] {
    if (!control) {
      if (form_.MouseMove) form_.MouseMove(e);
    } else if (control->MouseMove) {
      control->MouseMove(e);
    }
  });
}

void FormHost::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  // A press ends on the control it started on, wherever the pointer is.
  Control* control = pressed_ ? pressed_ : ControlAt(at);
  pressed_ = nullptr;
  const MouseEvent e = ToMouseEvent(at, ToButton(event->button()), event->modifiers(), control);
  QtEvents::Dispatch([&] {
    if (!control) {
      if (form_.MouseUp) form_.MouseUp(e);
      return;
    }
    if (control->MouseUp) control->MouseUp(e);
    // A list tells its clicks as its row changes.
    const bool list = dynamic_cast<ListBox*>(control) != nullptr;
    if (e.button == MouseButton::Left && !list && VisibleRect(*control).contains(at) &&
        control->Click)
      control->Click();
  });
}

void FormHost::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  Control* control = ControlAt(at);
  pressed_ = control;
  QtEvents::Dispatch([&] {
    if (!control) {
      if (form_.DblClick) form_.DblClick();
    } else if (control->DblClick) {
      control->DblClick();
    }
  });
}

// The wheel scrolls a list three rows a notch.
void FormHost::wheelEvent(QWheelEvent* event) {
  auto* list = dynamic_cast<ListBox*>(ControlAt(event->position().toPoint()));
  if (!list) return;
  const int notches = event->angleDelta().y() / 120;
  QtEvents::Dispatch([&] {
    const int top = std::clamp(list->TopIndex - 3 * notches, 0, std::max(0, list->ListCount() - 1));
    list->TopIndex = top;
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

// A move the program did not ask for: the window manager's. A reparenting
// manager that frames a window as it shows it can leave Qt believing the
// window stands at its place inside the frame, (0, 0); the X server knows.
void FormHost::moveEvent(QMoveEvent*) {
  if (syncing_ || !settled_) return;
  const QPoint at = ScreenPosition();
  QtEvents::Dispatch([this, at] {
    form_.Left = ToTwips(at.x());
    form_.Top = ToTwips(at.y());
  });
}

void FormHost::hideEvent(QHideEvent*) { settled_ = false; }

QPoint FormHost::ScreenPosition() const {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!x11 || !x11->connection()) return pos();
  xcb_connection_t* connection = x11->connection();
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  const auto cookie =
      xcb_translate_coordinates(connection, static_cast<xcb_window_t>(winId()), root, 0, 0);
  std::unique_ptr<xcb_translate_coordinates_reply_t, decltype(&std::free)> reply(
      xcb_translate_coordinates_reply(connection, cookie, nullptr), &std::free);
  return reply ? QPoint(reply->dst_x, reply->dst_y) : pos();
}

void FormHost::resizeEvent(QResizeEvent*) {
  if (syncing_) return;
  QtEvents::Dispatch([this] {
    form_.Width = ToTwips(width());
    form_.Height = ToTwips(height());
  });
}

// A window minimised or restored by the window system is so in the model.
void FormHost::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || syncing_) return;
  const auto state = isMinimized() ? WindowState::Minimized : WindowState::Normal;
  if (state == WindowState::Normal) update();
  QtEvents::Dispatch([&] { form_.WindowState = state; });
}

bool FormHost::event(QEvent* event) {
  if (event->type() == QEvent::Enter) {
    underPointer_ = this;
  } else if (event->type() == QEvent::Leave && underPointer_ == this) {
    underPointer_ = nullptr;
  } else if (event->type() == QEvent::WindowActivate) {
    QtEvents::Dispatch([this] {
      if (form_.Activate) form_.Activate();
    });
  } else if (event->type() == QEvent::WindowDeactivate) {
    QtEvents::Dispatch([this] {
      if (form_.Deactivate) form_.Deactivate();
    });
  }
  return QWidget::event(event);
}

void FormHost::DragWindow(int hitCode) {
  if (hitCode != kHitCaption && hitCode != kHitBottomRight) return;
  // Measured from the press, not from now: the pointer may have moved on
  // before the drag was asked for.
  const QPoint start = pressedAt_;
  const QRect from = geometry();
  if (form_.EnterSizeMove) form_.EnterSizeMove();
  QEventLoop loop;
  grabMouse(hitCode == kHitCaption ? Qt::ArrowCursor : Qt::SizeFDiagCursor);
  // The drag sees the pointer, not the controls: an event filter of its own
  // takes the moves and the release.
  class Follow final : public QObject {
   public:
    Follow(QEventLoop& loop, std::function<void(QPoint)> step)
        : loop_(loop), step_(std::move(step)) {}
    void Step(QPoint pointer) const { step_(pointer); }
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::MouseMove) {
        step_(QCursor::pos());
        return true;
      }
      if (event->type() == QEvent::MouseButtonRelease) {
        loop_.quit();
        return true;
      }
      return event->type() == QEvent::MouseButtonPress;
    }

   private:
    QEventLoop& loop_;
    std::function<void(QPoint)> step_;
  } follow(loop, [&](QPoint pointer) {
    const QPoint delta = pointer - start;
    DragStep(hitCode, hitCode == kHitCaption ? from.translated(delta)
                                             : from.adjusted(0, 0, delta.x(), delta.y()));
  });
  installEventFilter(&follow);
  if (QCursor::pos() != start) follow.Step(QCursor::pos());
  loop.exec();
  removeEventFilter(&follow);
  releaseMouse();
  pressed_ = nullptr;
  QtEvents::EndIfEnded();
}

void FormHost::DragStep(int hitCode, const QRect& wanted) {
  QtEvents::Dispatch([&] {
    ScreenRect rect = ToScreenRect(wanted);
    if (hitCode == kHitCaption) {
      if (form_.Moving) form_.Moving(rect);
      form_.Left = ToTwips(rect.left);
      form_.Top = ToTwips(rect.top);
    } else {
      if (form_.Sizing) form_.Sizing(rect, kEdgeBottomRight);
      form_.Width = ToTwips(rect.right - rect.left);
      form_.Height = ToTwips(rect.bottom - rect.top);
    }
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
  const double y = ToTwips(pixel.y()) - control->FormTop();
  QtEvents::Dispatch([&] { control->FilesDropped(*paths, y); });
}

}  // namespace yarvo
