#pragma once
// Drawing helpers shared by every family of pieces: colour mixing, plates
// and wells lit from the top left, and the cutting of strips.

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include "Theme.h"

namespace skingen {

QColor Mix(const QColor& a, const QColor& b, double t);
QColor WithAlpha(const QColor& c, int alpha);

// A transparent or filled ARGB canvas.
QImage Canvas(QSize size, const QColor& fill = Qt::transparent);

// An antialiased painter on `image`.
class Pen : public QPainter {
 public:
  explicit Pen(QImage* image);
};

QPainterPath RoundedRect(const QRectF& r, double radius);
void FillVertical(QPainter& p, const QPainterPath& shape, const QRectF& span, const QColor& top,
                  const QColor& bottom);

// A raised plate: outline, light top-left edge, shadow bottom-right edge,
// gradient face. `outer` is the outline's outer edge.
void DrawPlate(QPainter& p, const QRectF& outer, double radius, const PlateLook& look);
// A hole: shadowed top-left wall, lit bottom-right lip, floor; `outer` is
// the lip's outer edge.
void DrawWell(QPainter& p, const QRectF& outer, double radius, const WellLook& look);

// A strip `length` long made of copies of one column (or row) of `source`,
// so that stretching it never smears a detail.
QImage RepeatColumn(const QImage& source, int x, int top, int height, int width);
QImage RepeatRow(const QImage& source, int y, int left, int width, int height);

// The average colour of `area` of `image`.
QColor AverageColour(const QImage& image, const QRect& area);

// Draws `path` filled with `colour`, after a copy one pixel down-right in
// `shadow` (transparent for none) so that glyphs sit in the light.
void FillGlyph(QPainter& p, const QPainterPath& path, const QColor& colour, const QColor& shadow);

}  // namespace skingen
