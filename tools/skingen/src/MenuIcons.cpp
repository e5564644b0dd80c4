#include "MenuIcons.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <cmath>
#include <functional>
#include <numbers>

#include "Glyphs.h"
#include "Layout.h"
#include "Paint.h"

namespace skingen {

namespace {

const QColor kInk(0x36, 0x3c, 0x44);
const QColor kPaperTop(0xff, 0xff, 0xff);
const QColor kPaperBottom(0xdf, 0xe4, 0xea);
const QColor kAccentTop(0xff, 0xa2, 0x4d);
const QColor kAccentBottom(0xea, 0x66, 0x0a);
const QColor kAccentEdge(0xa8, 0x45, 0x08);
const QColor kFolderTop(0xff, 0xd5, 0x80);
const QColor kFolderBottom(0xf0, 0xa8, 0x38);
const QColor kFolderEdge(0x9e, 0x68, 0x12);
constexpr double kStroke = 2.0;

QLinearGradient Light(double top, double bottom, const QColor& a, const QColor& b) {
  QLinearGradient g(0, top, 0, bottom);
  g.setColorAt(0, a);
  g.setColorAt(1, b);
  return g;
}

// A shape with a 1 px outline in `edge` and a lit fill.
void Solid(QPainter& p, const QPainterPath& shape, const QColor& edge, const QColor& top,
           const QColor& bottom) {
  const QRectF r = shape.boundingRect();
  p.fillPath(shape, edge);
  QPainterPathStroker inset;
  inset.setWidth(2.0);
  inset.setJoinStyle(Qt::MiterJoin);
  const QPainterPath inner = shape.subtracted(inset.createStroke(shape));
  p.fillPath(inner, Light(r.top(), r.bottom(), top, bottom));
}

void Paper(QPainter& p, const QPainterPath& shape) {
  Solid(p, shape, kInk, kPaperTop, kPaperBottom);
}
void Accent(QPainter& p, const QPainterPath& shape) {
  Solid(p, shape, kAccentEdge, kAccentTop, kAccentBottom);
}
void Line(QPainter& p, const QPainterPath& path, const QColor& colour = kInk) {
  p.fillPath(glyph::Stroked(path, kStroke, false), colour);
}

QPainterPath Rect(double x, double y, double w, double h, double r = 0) {
  return RoundedRect(QRectF(x, y, w, h), r);
}
QPainterPath Circle(double cx, double cy, double r) {
  QPainterPath path;
  path.addEllipse(QPointF(cx, cy), r, r);
  return path;
}
QPainterPath Poly(std::initializer_list<QPointF> points) {
  QPainterPath path;
  bool first = true;
  for (const QPointF& pt : points) {
    if (first)
      path.moveTo(pt);
    else
      path.lineTo(pt);
    first = false;
  }
  path.closeSubpath();
  return path;
}

// A sheet of paper with a folded corner.
QPainterPath Sheet() { return Poly({{2, 1}, {10, 1}, {14, 5}, {14, 15}, {2, 15}}); }
void DrawSheet(QPainter& p) {
  Paper(p, Sheet());
  p.fillPath(Poly({{9.5, 1}, {9.5, 5.5}, {14, 5.5}}), kInk);
  p.fillPath(Poly({{10.5, 2.5}, {10.5, 4.5}, {12.5, 4.5}}), kPaperBottom);
}
// Lines of text on a sheet.
void DrawRows(QPainter& p, int from, int to) {
  for (int y = from; y <= to; y += 2) p.fillRect(QRect(4, y, 7, 1), WithAlpha(kInk, 150));
}
// A small disc at the bottom right that says what the icon does.
void Badge(QPainter& p, bool accent) {
  const QPainterPath disc = Circle(11.5, 11.5, 4.5);
  if (accent)
    Accent(p, disc);
  else
    Solid(p, disc, kInk, QColor(0x6a, 0x72, 0x7d), kInk);
}
void BadgePlus(QPainter& p) {
  p.fillRect(QRectF(9, 11, 5, 1), Qt::white);
  p.fillRect(QRectF(11, 9, 1, 5), Qt::white);
}
void BadgeCross(QPainter& p) {
  QPainterPath x;
  x.moveTo(9.8, 9.8);
  x.lineTo(13.2, 13.2);
  x.moveTo(13.2, 9.8);
  x.lineTo(9.8, 13.2);
  p.fillPath(glyph::Stroked(x, 1.3, false), Qt::white);
}

QPainterPath Folder() {
  QPainterPath path = Rect(1, 3, 6, 3, 1);
  path.addPath(Rect(1, 5, 14, 9, 1));
  return path.simplified();
}

void Play(QPainter& p) { Accent(p, Poly({{4, 1.5}, {14, 8}, {4, 14.5}})); }
void Pause(QPainter& p) {
  Solid(p, Rect(3, 2, 4, 12, 0.5), kInk, QColor(0x7a, 0x82, 0x8d), kInk);
  Solid(p, Rect(9, 2, 4, 12, 0.5), kInk, QColor(0x7a, 0x82, 0x8d), kInk);
}
void Stop(QPainter& p) {
  Solid(p, Rect(2.5, 2.5, 11, 11, 1.5), kInk, QColor(0x7a, 0x82, 0x8d), kInk);
}

void ArrowBadge(QPainter& p, bool right) {
  Paper(p, Circle(8, 8, 7));
  QPainterPath arrow;
  const double dir = right ? 1 : -1;
  arrow.moveTo(8 - 3.5 * dir, 8);
  arrow.lineTo(8 + 3 * dir, 8);
  arrow.moveTo(8 + 0.5 * dir, 5);
  arrow.lineTo(8 + 3.5 * dir, 8);
  arrow.lineTo(8 + 0.5 * dir, 11);
  p.fillPath(glyph::Stroked(arrow, kStroke, true), kAccentBottom);
}

void AddFile(QPainter& p) {
  DrawSheet(p);
  DrawRows(p, 7, 9);
  Badge(p, true);
  BadgePlus(p);
}
void AddFolder(QPainter& p) {
  Solid(p, Folder(), kFolderEdge, kFolderTop, kFolderBottom);
  Badge(p, true);
  BadgePlus(p);
}
void Delete(QPainter& p) {
  DrawSheet(p);
  DrawRows(p, 7, 9);
  Badge(p, false);
  BadgeCross(p);
}
void ClearAll(QPainter& p) {
  Paper(p, Rect(1, 1, 12, 14, 1));
  for (int y = 4; y <= 10; y += 3) p.fillRect(QRect(3, y, 8, 1), WithAlpha(kInk, 150));
  Badge(p, false);
  BadgeCross(p);
}
void NewList(QPainter& p) {
  DrawSheet(p);
  QPainterPath star;
  const QPointF c(11, 11);
  for (int i = 0; i < 8; ++i) {
    const double a = i * std::numbers::pi / 4 - std::numbers::pi / 2;
    const double r = i % 2 == 0 ? 4.8 : 2.1;
    const QPointF pt(c.x() + r * std::cos(a), c.y() + r * std::sin(a));
    if (i == 0)
      star.moveTo(pt);
    else
      star.lineTo(pt);
  }
  star.closeSubpath();
  Accent(p, star);
}
void Search(QPainter& p) {
  QPainterPath handle;
  handle.moveTo(10, 10);
  handle.lineTo(14, 14);
  p.fillPath(glyph::Stroked(handle, 3.0, true), kInk);
  Solid(p, Circle(6.5, 6.5, 5.5), kInk, QColor(0xf4, 0xfa, 0xff), QColor(0xc9, 0xdd, 0xf0));
  p.fillPath(Circle(5, 5, 1.3), WithAlpha(Qt::white, 220));
}
void Settings(QPainter& p) {
  QPainterPath gear = Circle(8, 8, 5);
  for (int i = 0; i < 8; ++i) {
    QTransform t;
    t.translate(8, 8);
    t.rotate(i * 45.0);
    gear.addPath(t.map(Rect(-1.75, -7.5, 3.5, 4, 0.6)));
  }
  gear = gear.simplified().subtracted(Circle(8, 8, 2.2));
  p.fillPath(gear, Light(0.5, 15.5, QColor(0x8c, 0x94, 0x9f), QColor(0x4a, 0x51, 0x5b)));
  p.fillPath(glyph::Stroked(gear, 1.0, false).intersected(gear), kInk);
  p.fillPath(Circle(8, 8, 3.2).subtracted(Circle(8, 8, 2.2)), WithAlpha(Qt::white, 90));
}
void Modes(QPainter& p) {
  Accent(p, Rect(1.5, 1.5, 6, 6, 1));
  Paper(p, Rect(8.5, 1.5, 6, 6, 1));
  Paper(p, Rect(1.5, 8.5, 6, 6, 1));
  Paper(p, Rect(8.5, 8.5, 6, 6, 1));
}
void Power(QPainter& p) {
  QPainterPath arc;
  const QRectF box(2.5, 2.5, 11, 11);
  arc.arcMoveTo(box, 120);
  arc.arcTo(box, 120, 300);
  p.fillPath(glyph::Stroked(arc, kStroke, true), kInk);
  QPainterPath bar;
  bar.moveTo(8, 1.5);
  bar.lineTo(8, 7.5);
  p.fillPath(glyph::Stroked(bar, kStroke, true), kAccentBottom);
}
void Keyboard(QPainter& p) {
  Paper(p, Rect(0.5, 3.5, 15, 10, 1.5));
  for (int row = 0; row < 2; ++row) {
    for (int k = 0; k < 5; ++k) p.fillRect(QRect(3 + 2 * k + row, 6 + 2 * row, 1, 1), kInk);
  }
  p.fillRect(QRect(4, 10, 8, 1), kInk);
}
void Disc(QPainter& p) {
  Solid(p, Circle(8, 8, 7), kInk, QColor(0xf2, 0xf5, 0xf8), QColor(0xb8, 0xc1, 0xcc));
  p.fillPath(Circle(8, 8, 3).subtracted(Circle(8, 8, 1.5)), kAccentBottom);
  QPainterPath shine;
  shine.arcMoveTo(QRectF(3, 3, 10, 10), 100);
  shine.arcTo(QRectF(3, 3, 10, 10), 100, 60);
  p.fillPath(glyph::Stroked(shine, 1.0, true), Qt::white);
}
void Video(QPainter& p) {
  Solid(p, Rect(0.5, 2.5, 15, 10, 1.5), kInk, QColor(0x4e, 0x55, 0x5f), QColor(0x24, 0x28, 0x2d));
  p.fillRect(QRect(5, 13, 6, 2), kInk);
  Accent(p, Poly({{6, 5}, {11, 7.5}, {6, 10}}));
}
void Globe(QPainter& p) {
  Solid(p, Circle(8, 8, 7), kInk, QColor(0xf4, 0xfa, 0xff), QColor(0xc9, 0xdd, 0xf0));
  QPainterPath lines;
  lines.addEllipse(QPointF(8, 8), 3, 6);
  lines.moveTo(8, 1.5);
  lines.lineTo(8, 14.5);
  lines.moveTo(1.5, 8);
  lines.lineTo(14.5, 8);
  p.fillPath(glyph::Stroked(lines, 1.0, false).intersected(Circle(8, 8, 6.5)),
             WithAlpha(kInk, 190));
}
void Info(QPainter& p) {
  Solid(p, Circle(8, 8, 7), kInk, QColor(0x6a, 0x72, 0x7d), kInk);
  p.fillRect(QRect(7, 7, 2, 5), Qt::white);
  p.fillPath(Circle(8, 4.5, 1.2), Qt::white);
}
void Trophy(QPainter& p) {
  QPainterPath handles;
  handles.addEllipse(QRectF(1.5, 3, 4, 4.5));
  handles.addEllipse(QRectF(10.5, 3, 4, 4.5));
  p.fillPath(glyph::Stroked(handles, 1.3, false), kFolderEdge);
  QPainterPath cup;
  cup.moveTo(4, 1.5);
  cup.lineTo(12, 1.5);
  cup.cubicTo(12, 7, 10.5, 9.5, 8, 9.5);
  cup.cubicTo(5.5, 9.5, 4, 7, 4, 1.5);
  cup.closeSubpath();
  cup.addRect(QRectF(7, 9, 2, 3));
  cup.addPath(Rect(4.5, 11.5, 7, 3, 0.5));
  Solid(p, cup.simplified(), kFolderEdge, kFolderTop, kFolderBottom);
}
void Equalizer(QPainter& p) {
  const int xs[] = {3, 8, 13};
  const double knobs[] = {9.5, 4.5, 7.5};
  for (int i = 0; i < 3; ++i) {
    p.fillRect(QRectF(xs[i] - 0.5, 1.5, 1, 13), kInk);
    Accent(p, Rect(xs[i] - 2, knobs[i] - 1.5, 4, 3.5, 1));
  }
}
QPainterPath ArrowHead(QPointF tip) {
  return Poly({{tip.x(), tip.y()}, {tip.x() - 4, tip.y() - 3.5}, {tip.x() - 4, tip.y() + 3.5}});
}
void ShuffleOff(QPainter& p) {
  QPainterPath lines;
  for (double y : {4.5, 11.5}) {
    lines.moveTo(1.5, y);
    lines.lineTo(11, y);
  }
  Line(p, lines);
  p.fillPath(ArrowHead({15, 4.5}), kInk);
  p.fillPath(ArrowHead({15, 11.5}), kInk);
}
void ShuffleOn(QPainter& p) {
  QPainterPath lines;
  lines.moveTo(1.5, 4.5);
  lines.cubicTo(6, 4.5, 7, 11.5, 11, 11.5);
  lines.moveTo(1.5, 11.5);
  lines.cubicTo(6, 11.5, 7, 4.5, 11, 4.5);
  Line(p, lines, kAccentBottom);
  p.fillPath(ArrowHead({15, 4.5}), kAccentBottom);
  p.fillPath(ArrowHead({15, 11.5}), kAccentBottom);
}
void PlayTheBest(QPainter& p) {
  QPainterPath heart;
  heart.moveTo(8, 14.5);
  heart.cubicTo(3, 11, 0.5, 8, 0.5, 5);
  heart.cubicTo(0.5, 2.5, 2.5, 1, 4.5, 1);
  heart.cubicTo(6.2, 1, 7.4, 2, 8, 3.4);
  heart.cubicTo(8.6, 2, 9.8, 1, 11.5, 1);
  heart.cubicTo(13.5, 1, 15.5, 2.5, 15.5, 5);
  heart.cubicTo(15.5, 8, 13, 11, 8, 14.5);
  heart.closeSubpath();
  Accent(p, heart);
  p.fillPath(Poly({{6.5, 5}, {10.5, 7.5}, {6.5, 10}}), Qt::white);
}

using Painter = std::function<void(QPainter&)>;

const std::map<int, Painter>& Painters() {
  static const std::map<int, Painter> painters = {
      {1, [](QPainter& p) { ArrowBadge(p, false); }},
      {2, Equalizer},
      {4, Settings},
      {5, Search},
      {6, ClearAll},
      {7, Disc},
      {8, Keyboard},
      {10, AddFolder},
      {11, [](QPainter& p) { ArrowBadge(p, true); }},
      {12, AddFile},
      {13, Video},
      {14, Delete},
      {16, Play},
      {17, Globe},
      {18, Info},
      {19, Trophy},
      {20, NewList},
      {21, Modes},
      {23, Power},
      {24, Pause},
      {25, Stop},
      {26, ShuffleOff},
      {27, ShuffleOn},
      {28, PlayTheBest},
  };
  return painters;
}

}  // namespace

std::map<int, QImage> DrawMenuIcons() {
  std::map<int, QImage> icons;
  for (const int number : layout::kMenuIconNumbers) {
    QImage icon = Canvas(QSize(layout::kMenuIcon, layout::kMenuIcon));
    Pen p(&icon);
    Painters().at(number)(p);
    p.end();
    icons[number] = icon;
  }
  return icons;
}

}  // namespace skingen
