#include "Glyphs.h"

#include <QPainterPathStroker>
#include <cmath>

namespace skingen::glyph {

namespace {

QPainterPath Triangle(QPointF a, QPointF b, QPointF c) {
  QPainterPath path;
  path.moveTo(a);
  path.lineTo(b);
  path.lineTo(c);
  path.closeSubpath();
  return path;
}

}  // namespace

QPainterPath Stroked(const QPainterPath& path, double width, bool roundCaps) {
  QPainterPathStroker stroker;
  stroker.setWidth(width);
  stroker.setCapStyle(roundCaps ? Qt::RoundCap : Qt::FlatCap);
  stroker.setJoinStyle(Qt::RoundJoin);
  return stroker.createStroke(path).simplified();
}

QPainterPath Play(const QRectF& box) {
  return Triangle(box.topLeft(), box.bottomLeft(), QPointF(box.right(), box.center().y()));
}

QPainterPath Pause(const QRectF& box) {
  const double bar = std::round(box.width() * 0.36);
  QPainterPath path;
  path.addRoundedRect(QRectF(box.left(), box.top(), bar, box.height()), 0.6, 0.6);
  path.addRoundedRect(QRectF(box.right() - bar, box.top(), bar, box.height()), 0.6, 0.6);
  return path;
}

QPainterPath Stop(const QRectF& box) {
  QPainterPath path;
  path.addRoundedRect(box, 1.0, 1.0);
  return path;
}

QPainterPath Previous(const QRectF& box) {
  const double bar = box.width() >= 8 ? 2 : 1.5;
  QPainterPath path;
  path.addRect(QRectF(box.left(), box.top(), bar, box.height()));
  path.addPath(Triangle(QPointF(box.right(), box.top()), QPointF(box.right(), box.bottom()),
                        QPointF(box.left() + bar, box.center().y())));
  return path.simplified();
}

QPainterPath Next(const QRectF& box) {
  const double bar = box.width() >= 8 ? 2 : 1.5;
  QPainterPath path;
  path.addRect(QRectF(box.right() - bar, box.top(), bar, box.height()));
  path.addPath(
      Triangle(box.topLeft(), box.bottomLeft(), QPointF(box.right() - bar, box.center().y())));
  return path.simplified();
}

QPainterPath Minimize(const QRectF& box) {
  QPainterPath path;
  path.addRect(QRectF(box.left(), box.bottom() - 2, box.width(), 2));
  return path;
}

QPainterPath Close(const QRectF& box) {
  QPainterPath cross;
  cross.moveTo(box.topLeft());
  cross.lineTo(box.bottomRight());
  cross.moveTo(box.topRight());
  cross.lineTo(box.bottomLeft());
  return Stroked(cross, 1.6);
}

QPainterPath Speaker(const QRectF& box) {
  // Body on the left third, cone to the middle, two arcs on the right.
  const double h = box.height();
  const double cy = box.center().y();
  QPainterPath path;
  path.addRect(QRectF(box.left(), cy - h * 0.18, 2, h * 0.36));
  QPainterPath cone;
  cone.moveTo(box.left() + 2, cy - h * 0.18);
  cone.lineTo(box.left() + 5.5, box.top());
  cone.lineTo(box.left() + 5.5, box.bottom());
  cone.lineTo(box.left() + 2, cy + h * 0.18);
  cone.closeSubpath();
  path.addPath(cone);
  QPainterPath waves;
  const QPointF c(box.left() + 5.0, cy);
  for (double r : {3.2, 6.0}) {
    QRectF arc(c.x() - r, c.y() - r, 2 * r, 2 * r);
    waves.arcMoveTo(arc, 45);
    waves.arcTo(arc, 45, -90);
  }
  path.addPath(Stroked(waves, 1.1, false));
  return path.simplified();
}

}  // namespace skingen::glyph
