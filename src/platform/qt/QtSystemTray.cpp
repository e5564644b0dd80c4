#include "platform/qt/QtSystemTray.h"

#include <QCursor>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>

#include "platform/qt/QtEvents.h"

namespace yarvo {

namespace {

QIcon ToQIcon(const Picture& picture) {
  const Image* image = picture.Pixels();
  if (!image || image->width <= 0 || image->height <= 0) return QGuiApplication::windowIcon();
  const QImage view(reinterpret_cast<const uchar*>(image->argb.data()), image->width, image->height,
                    QImage::Format_ARGB32_Premultiplied);
  return QIcon(QPixmap::fromImage(view.copy()));
}

MouseButton ToButton(QSystemTrayIcon::ActivationReason reason) {
  switch (reason) {
    case QSystemTrayIcon::Trigger:
    case QSystemTrayIcon::DoubleClick:
      return MouseButton::Left;
    case QSystemTrayIcon::Context:
      return MouseButton::Right;
    case QSystemTrayIcon::MiddleClick:
      return MouseButton::Middle;
    default:
      return MouseButton::None;
  }
}

}  // namespace

void QtSystemTray::Add(int id, const Picture& icon, const std::string& tip, Press pressed) {
  if (QGuiApplication::platformName() == "offscreen") return;  // no desktop to show it on
  auto tray = std::make_unique<QSystemTrayIcon>(ToQIcon(icon));
  tray->setToolTip(QString::fromStdString(tip));
  QObject::connect(tray.get(), &QSystemTrayIcon::activated,
                   [pressed = std::move(pressed)](QSystemTrayIcon::ActivationReason reason) {
                     const MouseButton button = ToButton(reason);
                     if (button == MouseButton::None || !pressed) return;
                     const QPoint at = QCursor::pos();
                     QtEvents::Dispatch([&] { pressed(button, ScreenPoint{at.x(), at.y()}); });
                   });
  tray->show();
  icons_[id] = std::move(tray);  // in place of the one there
}

void QtSystemTray::Remove(int id) { icons_.erase(id); }

bool QtSystemTray::Shown(int id) const {
  const auto it = icons_.find(id);
  return it != icons_.end() && it->second->isVisible() && QSystemTrayIcon::isSystemTrayAvailable();
}

}  // namespace yarvo
