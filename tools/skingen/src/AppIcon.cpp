#include "AppIcon.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>

#include "Paint.h"

namespace skingen {

namespace {

const QColor kEdge(0x0c, 0x0d, 0x0f);
const QColor kTileTop(0x4a, 0x4e, 0x55);
const QColor kTileBottom(0x22, 0x24, 0x28);
const QColor kRimLight(0x6e, 0x73, 0x7c);
const QColor kAccentTop(0xff, 0xa1, 0x55);
const QColor kAccentBottom(0xf0, 0x6c, 0x10);
const QColor kAccentEdge(0x7a, 0x33, 0x04);

// Lengths in pixels for a given icon size: whole pixels at small sizes so
// edges stay sharp.
double Snap(double v, int size) { return size <= 32 ? std::round(v) : v; }

void Tile(QPainter& p, int s) {
  const double inset = s <= 16 ? 0 : Snap(s * 0.04, s);
  const QRectF r(inset, inset, s - 2 * inset, s - 2 * inset);
  const double radius = s * 0.2;
  p.fillPath(RoundedRect(r, radius), kEdge);
  const double line = s >= 64 ? s / 64.0 : 1.0;
  const QRectF rim = r.adjusted(line, line, -line, -line);
  p.fillPath(RoundedRect(rim, radius - line), kRimLight);
  const QRectF face = rim.adjusted(0, line, 0, 0);
  FillVertical(p, RoundedRect(face, radius - line), face, kTileTop, kTileBottom);
}

void Rings(QPainter& p, int s, const QPointF& c, double discRadius) {
  if (s < 48) return;
  // Grooves around the disc, like a record or a speaker's surround.
  const double step = s / 22.0;
  for (int i = 1; i <= 2; ++i) {
    const double r = discRadius + step * i;
    QPainterPath ring;
    ring.addEllipse(c, r, r);
    QPainterPath inner;
    inner.addEllipse(c, r - s / 128.0, r - s / 128.0);
    p.fillPath(ring.subtracted(inner), WithAlpha(Qt::black, 90));
    QPainterPath lit;
    lit.addEllipse(c + QPointF(0, s / 128.0), r, r);
    p.fillPath(lit.subtracted(ring), WithAlpha(Qt::white, 28));
  }
}

void Disc(QPainter& p, int s, const QPointF& c, double radius) {
  QPainterPath edge;
  edge.addEllipse(c, radius, radius);
  p.fillPath(edge, kAccentEdge);
  const double line = s >= 64 ? s / 64.0 : 1.0;
  QPainterPath face;
  face.addEllipse(c, radius - line, radius - line);
  FillVertical(p, face, face.boundingRect(), kAccentTop, kAccentBottom);
  if (s >= 32) {
    // A soft highlight on the upper half, from the one light at the top left.
    QRadialGradient shine(c - QPointF(radius * 0.35, radius * 0.45), radius * 0.9);
    shine.setColorAt(0, WithAlpha(Qt::white, 110));
    shine.setColorAt(1, WithAlpha(Qt::white, 0));
    p.fillPath(face, shine);
  }
}

void Triangle(QPainter& p, int s, const QPointF& c, double radius) {
  const double h = Snap(radius * 1.0, s);
  const double w = h * 0.9;
  // The triangle's centre of mass sits on the disc's centre.
  const double left = Snap(c.x() - w / 3.0, s);
  const double top = c.y() - h / 2.0;
  QPainterPath tri;
  tri.moveTo(left, top);
  tri.lineTo(left + w, c.y());
  tri.lineTo(left, top + h);
  tri.closeSubpath();
  if (s >= 32) p.fillPath(tri.translated(0, s / 64.0 + 0.5), WithAlpha(Qt::white, 80));
  p.fillPath(tri, QColor(0x1b, 0x1c, 0x1f));
}

}  // namespace

QImage DrawAppIcon(int s) {
  QImage icon = Canvas(QSize(s, s));
  Pen p(&icon);
  Tile(p, s);
  const QPointF centre(s / 2.0, s / 2.0);
  const double disc = s <= 16 ? 5.5 : s <= 24 ? s * 0.33 : s * 0.3;
  Rings(p, s, centre, disc);
  Disc(p, s, centre, disc);
  Triangle(p, s, centre, disc);
  return icon;
}

}  // namespace skingen
