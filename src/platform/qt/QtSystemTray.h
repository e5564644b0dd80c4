#pragma once
// The notification area with Qt's tray icons: a StatusNotifierItem where the
// desktop offers one, else an XEmbed icon in the X11 tray.

#include <QSystemTrayIcon>

#include <map>
#include <memory>

#include "platform/SystemTray.h"

namespace yarvo {

class QtSystemTray final : public SystemTray {
 public:
  void Add(int id, const Picture& icon, const std::string& tip, Press pressed) override;
  void Remove(int id) override;
  bool Shown(int id) const override;

 private:
  std::map<int, std::unique_ptr<QSystemTrayIcon>> icons_;
};

}  // namespace yarvo
