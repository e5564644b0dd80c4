#pragma once
// The colours of one skin and the values its skin.ini carries. Both skins
// share every shape; only this table differs between them.

#include <QColor>
#include <QString>

namespace skingen {

// A raised plate lit from the top left: outline, 1 px light and shadow
// edges, and a vertical gradient on its face.
struct PlateLook {
  QColor outline, light, shadow, top, bottom;
};

// A hole in the body: a dark wall at the top left, a lit lip at the bottom
// right, and the floor.
struct WellLook {
  QColor wallShadow, lip, floor;
};

struct Theme {
  QString name;  // folder name under data/Skins and line 0 of skin.ini

  // Body: the window background (skin.ini lines 13-15) and its rim.
  QColor body;
  QColor outline, rimLight, rimShadow;
  QColor sheen;  // top of the title bar, fading into the body

  // Plates: at rest, under the pointer, held down.
  PlateLook plate, plateHover, platePressed;
  QColor glyph, glyphHover, glyphPressed;
  QColor engraving;  // labels printed on the body
  QColor legend;     // the equalizer's scale and band names, on the tray's floor

  // The one accent, with a brighter and an unlit tone.
  QColor accent, accentBright, accentDim;
  QColor accentInk;  // glyphs drawn on the accent

  // The backlit display and what it shows when idle.
  QColor screen;  // the visualisation's entry 0 (skin.ini lines 7-9)
  QColor screenGlow, screenEdge;
  WellLook screenWell;
  QColor screenInkDim;  // the idle picture's mark, barely lit

  // The recessed tray of the equalizer, the grooves of the sliders.
  WellLook tray;
  WellLook groove;
  PlateLook knob, knobHover;

  // skin.ini lines 1-6: colour names, and lines 11-12: palette steps.
  QString menuText, displayText, factsText, plateText, rowBack, rowText;
  double greenStep = 0;
  double blueStep = 0;
};

Theme DefaultTheme();
Theme AluminiumTheme();

// The colour a skin.ini colour name stands for ("gray" as #F0F0F0).
QColor NamedColour(const QString& name);

// Entry `index` of the visualisation palette that the player builds from
// the skin (entries 0 to 127).
QColor PaletteEntry(const QColor& entry0, double greenStep, double blueStep, int index);

}  // namespace skingen
