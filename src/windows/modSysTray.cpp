#include "windows/modSysTray.h"

#include "director/Program.h"
#include "platform/Desktop.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

constexpr std::size_t kTipLength = 63;  // a field of 64 with its closing zero

SystemTray& Tray() { return program().desktop().Tray(); }

}  // namespace

void AddTrayIcon(int id, const Picture& icon, const std::string& tip, SystemTray::Press pressed) {
  Tray().Add(id, icon, tip.substr(0, kTipLength), std::move(pressed));
}

void RemoveTrayIcon(int id) { Tray().Remove(id); }

void AddPlayerTrayIcon() {
  auto& main = program().Main();
  AddTrayIcon(
      kPlayerTrayIcon, main.Icon, "Yarvo Player",
      [&main](MouseButton button, ScreenPoint at) { main.Main_SysTray_MouseDown(button, at); });
}

bool PlayerInTray() { return Tray().Shown(kPlayerTrayIcon); }

}  // namespace yarvo
