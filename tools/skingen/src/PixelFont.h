#pragma once
// Pixel fonts for the tiny legends printed on the skins: a 3 by 5 one for
// the logo's small line, and a 7 px high one for the small buttons and the
// equalizer's scale and bands. At those sizes an outline font only blurs.

#include <QColor>
#include <QPainter>
#include <QString>

namespace skingen {

enum class PixelFace {
  Small,  // 3 by 5, digits, capitals, "+" and "-"
  Tall,   // 7 high, mostly 3 wide: digits, the capitals the small buttons and the
          // equalizer use, "+" and "-"
};

int PixelFaceHeight(PixelFace face);

// Width in pixels of `text`, with `spacing` empty columns between glyphs.
int PixelTextWidth(const QString& text, int spacing = 1, PixelFace face = PixelFace::Small);

// Draws `text` with its top-left corner at (x, y). Characters the face lacks
// draw as blanks of its usual width.
void DrawPixelText(QPainter& p, int x, int y, const QString& text, const QColor& colour,
                   int spacing = 1, PixelFace face = PixelFace::Small);

// Draws `text` centred on column `centreX` (rounded left).
void DrawPixelTextCentred(QPainter& p, double centreX, int y, const QString& text,
                          const QColor& colour, int spacing = 1, PixelFace face = PixelFace::Small);

}  // namespace skingen
