#pragma once
// The desktop's notification area (the system tray), where the program may
// keep an icon. Implemented with Qt for the app (a StatusNotifierItem where
// the desktop offers one, else an XEmbed icon) and by a recorder in the
// tests. Called on the interface thread; the presses come back on it.

#include <functional>
#include <string>

#include "core/form/Control.h"
#include "core/form/Picture.h"
#include "core/form/ScreenRect.h"

namespace yarvo {

class SystemTray {
 public:
  // A press of a mouse button on the icon, and where the pointer was, in
  // pixels of the screen.
  using Press = std::function<void(MouseButton button, ScreenPoint at)>;

  virtual ~SystemTray() = default;
  // Puts icon `id` in the area, or gives the one there a new picture, tip and
  // handler. An empty picture shows the program's own icon. `pressed` runs
  // as an event of the program.
  virtual void Add(int id, const Picture& icon, const std::string& tip, Press pressed) = 0;
  // Takes icon `id` away; an id that is not there is ignored.
  virtual void Remove(int id) = 0;
  // Whether icon `id` stands in a notification area now: false while the
  // desktop has none, even after Add.
  virtual bool Shown(int id) const = 0;
};

}  // namespace yarvo
