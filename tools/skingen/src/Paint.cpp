#include "Paint.h"

#include <QLinearGradient>
#include <cmath>

namespace skingen {

QColor Mix(const QColor& a, const QColor& b, double t) {
  const auto lerp = [t](double x, double y) {
    return static_cast<int>(std::lround(x + (y - x) * t));
  };
  return QColor(lerp(a.red(), b.red()), lerp(a.green(), b.green()), lerp(a.blue(), b.blue()),
                lerp(a.alpha(), b.alpha()));
}

QColor WithAlpha(const QColor& c, int alpha) {
  QColor out = c;
  out.setAlpha(alpha);
  return out;
}

QImage Canvas(QSize size, const QColor& fill) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(fill);
  return image;
}

Pen::Pen(QImage* image) : QPainter(image) { setRenderHint(QPainter::Antialiasing, true); }

QPainterPath RoundedRect(const QRectF& r, double radius) {
  QPainterPath path;
  if (radius <= 0) {
    path.addRect(r);
  } else {
    path.addRoundedRect(r, radius, radius);
  }
  return path;
}

void FillVertical(QPainter& p, const QPainterPath& shape, const QRectF& span, const QColor& top,
                  const QColor& bottom) {
  QLinearGradient gradient(span.topLeft(), span.bottomLeft());
  gradient.setColorAt(0, top);
  gradient.setColorAt(1, bottom);
  p.fillPath(shape, gradient);
}

void DrawPlate(QPainter& p, const QRectF& outer, double radius, const PlateLook& look) {
  const QPainterPath shell = RoundedRect(outer, radius);
  p.fillPath(shell, look.outline);
  const QRectF edge = outer.adjusted(1, 1, -1, -1);
  const QPainterPath rim = RoundedRect(edge, std::max(0.0, radius - 1));
  p.fillPath(rim, look.light);
  // What the rim keeps of its light is the part a copy shifted down-right
  // does not cover: its top and left edges.
  p.fillPath(rim.intersected(rim.translated(1, 1)), look.shadow);
  const QRectF face = edge.adjusted(1, 1, -1, -1);
  FillVertical(p, RoundedRect(face, std::max(0.0, radius - 2)), face, look.top, look.bottom);
}

void DrawWell(QPainter& p, const QRectF& outer, double radius, const WellLook& look) {
  const QPainterPath hole = RoundedRect(outer, radius);
  p.fillPath(hole, look.lip);
  p.fillPath(hole.intersected(hole.translated(-1, -1)), look.wallShadow);
  const QRectF floorRect = outer.adjusted(1, 1, -1, -1);
  p.fillPath(RoundedRect(floorRect, std::max(0.0, radius - 1)), look.floor);
}

QImage RepeatColumn(const QImage& source, int x, int top, int height, int width) {
  QImage strip(width, height, source.format());
  for (int y = 0; y < height; ++y) {
    const QRgb pixel = source.pixel(x, top + y);
    for (int i = 0; i < width; ++i) strip.setPixel(i, y, pixel);
  }
  return strip;
}

QImage RepeatRow(const QImage& source, int y, int left, int width, int height) {
  QImage strip(width, height, source.format());
  for (int x = 0; x < width; ++x) {
    const QRgb pixel = source.pixel(left + x, y);
    for (int i = 0; i < height; ++i) strip.setPixel(x, i, pixel);
  }
  return strip;
}

QColor AverageColour(const QImage& image, const QRect& area) {
  const QRect r = area.intersected(image.rect());
  double red = 0, green = 0, blue = 0;
  for (int y = r.top(); y <= r.bottom(); ++y) {
    for (int x = r.left(); x <= r.right(); ++x) {
      const QColor c = image.pixelColor(x, y);
      red += c.redF();
      green += c.greenF();
      blue += c.blueF();
    }
  }
  const double n = std::max(1, r.width() * r.height());
  return QColor::fromRgbF(static_cast<float>(red / n), static_cast<float>(green / n),
                          static_cast<float>(blue / n));
}

void FillGlyph(QPainter& p, const QPainterPath& path, const QColor& colour, const QColor& shadow) {
  if (shadow.alpha() > 0) p.fillPath(path.translated(1, 1), shadow);
  p.fillPath(path, colour);
}

}  // namespace skingen
