#include "host/HostDesktop.h"

#include <QApplication>
#include <QWidget>

#include "core/form/Menu.h"
#include "core/form/Twips.h"
#include "host/FormHost.h"
#include "host/MenuPopup.h"
#include "platform/qt/QtEvents.h"
#include "windows/FormMeniuri.h"

namespace yarvo {

ScreenPoint HostDesktop::CursorPos() const {
  if (FormHost::UnderPointer()) lastPointer_ = QtDesktop::CursorPos();
  return lastPointer_;
}

const Form* HostDesktop::FormAt(ScreenPoint point) const {
  if (!FormHost::UnderPointer()) return nullptr;
  QWidget* widget = QApplication::widgetAt(point.x, point.y);
  auto* host = widget ? dynamic_cast<FormHost*>(widget->window()) : nullptr;
  return host ? &host->Model() : nullptr;
}

// The chosen item's Click runs as an event of its own before the call
// returns, as the menus of the window system do.
void HostDesktop::PopupMenu(const Form& form, Menu& menu, int x, int y) {
  auto* menus = dynamic_cast<FormMeniuri*>(&menu.Owner());
  if (!menus) return;
  FormHost* host = hostOf_(form);
  const QPoint origin =
      host ? host->pos() : QPoint(form.Left / kTwipsPerPixel, form.Top / kTwipsPerPixel);
  Menu* chosen = MenuPopup::Choose(*menus, menu, origin + QPoint(x, y) / kTwipsPerPixel);
  QtEvents::EndIfEnded();
  if (chosen && chosen->Click) QtEvents::Dispatch(chosen->Click);
  QtEvents::EndIfEnded();
}

void HostDesktop::DragWindow(Form& form, int hitCode) {
  if (FormHost* host = hostOf_(form)) host->DragWindow(hitCode);
}

}  // namespace yarvo
