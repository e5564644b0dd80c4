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

}  // namespace skingen::glyph
