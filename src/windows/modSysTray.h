#pragma once
// The program's icon in the desktop's notification area. Options.Check7
// switches it: added at start when it is 1, added or removed by its click,
// removed at the end.

#include <string>

#include "core/form/Picture.h"
#include "platform/SystemTray.h"

namespace yarvo {

// The identifier of the player's own icon.
inline constexpr int kPlayerTrayIcon = 1;

// Puts icon `id` in the notification area with `tip`, of which the area
// shows 63 characters at most; each press on the icon runs `pressed`.
void AddTrayIcon(int id, const Picture& icon, const std::string& tip, SystemTray::Press pressed);
void RemoveTrayIcon(int id);

// The player's icon: Main's picture, the tip "Yarvo Player", the presses to
// Main_SysTray_MouseDown.
void AddPlayerTrayIcon();
// Whether the player's icon stands in a notification area, so that a
// minimised player can be found there; without one it stays in the task bar.
bool PlayerInTray();

}  // namespace yarvo
