#pragma once
// The big pictures: the main panel with its two displays and the equalizer
// tray, the mini window's panel, the display's idle picture and the logo.

#include "SkinImages.h"
#include "Theme.h"

namespace skingen {

void AddPanels(const Theme& theme, SkinImages& images);

// The panel as main.jpg holds it, before compression; the small buttons and
// the sliders cut their surroundings from it.
QImage MainPanel(const Theme& theme);

}  // namespace skingen
