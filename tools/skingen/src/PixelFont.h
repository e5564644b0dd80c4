#pragma once
// A 3 by 5 pixel font for the tiny legends printed on the skins (the
// equalizer's bands, the logo's small line): at that size an outline font
// only blurs.

#include <QColor>
#include <QPainter>
#include <QString>

namespace skingen {

constexpr int kPixelGlyphHeight = 5;

// Width in pixels of `text`, with `spacing` empty columns between glyphs.
int PixelTextWidth(const QString& text, int spacing = 1);

// Draws `text` with its top-left corner at (x, y). Characters the font lacks
// draw as blanks.
void DrawPixelText(QPainter& p, int x, int y, const QString& text, const QColor& colour,
                   int spacing = 1);

// Draws `text` centred on column `centreX` (rounded left).
void DrawPixelTextCentred(QPainter& p, double centreX, int y, const QString& text,
                          const QColor& colour, int spacing = 1);

}  // namespace skingen
