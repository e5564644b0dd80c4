#pragma once
// Mock-ups of the player's windows put together from a skin folder's files
// only, the way the player lays them out: pictures at their size, frame
// strips stretched, labels without background in the skin's colours.

#include <QImage>

#include "DisplayFrame.h"

namespace skingen {

class SkinFolder;

struct Scene {
  bool full = true;   // main window layout: Full or Small
  bool idle = false;  // the display shows the idle picture
  DisplayMode mode = DisplayMode::Bars;
  bool hover = false;  // menu, title buttons and plates under the pointer
};

// The window on a neutral desktop, cut by the rounded window mask.
QImage MainWindow(const SkinFolder& skin, const Scene& scene);
QImage MiniWindow(const SkinFolder& skin, const Scene& scene);
// The playlist at its smallest: rows in the colours of lines 5 and 6 and
// the skinned scroll bar.
QImage PlaylistWindow(const SkinFolder& skin);
// The transport plate at rest, then each button hovered and pressed.
QImage TransportSheet(const SkinFolder& skin);
// Twice the size, each pixel a 2 by 2 block.
QImage Enlarged(const QImage& image);

}  // namespace skingen
