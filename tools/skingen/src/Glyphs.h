#pragma once
// The symbols drawn on the buttons, as paths. Each takes the box it must fill
// (whole pixels) and keeps its straight edges on pixel boundaries, so that
// only slanted and round edges are antialiased.

#include <QPainterPath>
#include <QRectF>

namespace skingen::glyph {

QPainterPath Play(const QRectF& box);      // a triangle pointing right
QPainterPath Pause(const QRectF& box);     // two bars
QPainterPath Stop(const QRectF& box);      // a square with softened corners
QPainterPath Previous(const QRectF& box);  // a bar and a triangle pointing left
QPainterPath Next(const QRectF& box);      // a triangle pointing right and a bar
QPainterPath Minimize(const QRectF& box);  // a bar along the bottom
QPainterPath Close(const QRectF& box);     // a cross of two strokes

// A stroke of width `width` along `path`, as a filled outline.
QPainterPath Stroked(const QPainterPath& path, double width, bool roundCaps = true);

}  // namespace skingen::glyph
