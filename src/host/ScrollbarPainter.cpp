#include "host/ScrollbarPainter.h"

#include <QPainter>
#include <QPolygon>

#include "host/PicturePainter.h"
#include "host/SystemColours.h"
#include "windows/ctlScrollbar.h"

namespace yarvo {

namespace {

QRect SurfaceRect(const ScrollbarSurface& s, QPoint origin) {
  return {origin.x() + s.Left, origin.y() + s.Top, s.Width, s.Height};
}

// The track: its colour, a shadow line along each long edge, and the
// background picture tiled from its corner where it is smaller.
void PaintTrack(QPainter& p, const ctlScrollbar& bar, const QRect& track) {
  p.fillRect(track, ToQColor(bar.TrackColor));
  p.setPen(ToQColor(0x80000010));
  if (bar.Orientation != 0) {
    p.drawLine(track.left(), track.top(), track.right(), track.top());
    p.drawLine(track.left(), track.bottom(), track.right(), track.bottom());
  } else {
    p.drawLine(track.left(), track.top(), track.left(), track.bottom());
    p.drawLine(track.right(), track.top(), track.right(), track.bottom());
  }
  const Image* tile = bar.BackgroundPicture.get().Pixels();
  if (!tile || tile->width <= 0 || tile->height <= 0) return;
  const QImage image = ToQImage(*tile);
  p.save();
  p.setClipRect(track, Qt::IntersectClip);
  for (int y = track.top(); y < track.bottom() + 1; y += tile->height)
    for (int x = track.left(); x < track.right() + 1; x += tile->width) p.drawImage(x, y, image);
  p.restore();
}

// DrawEdge's looks: raised or sunken, each with an outer and an inner line.
void PaintEdge(QPainter& p, const QRect& r, int edge) {
  if (edge == 0) return;
  const QColor light = ToQColor(0x80000014), shadow = ToQColor(0x80000010),
               dark = ToQColor(0x80000015), lit = ToQColor(0x80000016);
  const bool outerRaised = edge & 1, outerSunken = edge & 2;
  const bool innerRaised = edge & 4, innerSunken = edge & 8;
  auto frame = [&](const QRect& box, const QColor& topLeft, const QColor& bottomRight) {
    p.setPen(topLeft);
    p.drawLine(box.topLeft(), box.topRight());
    p.drawLine(box.topLeft(), box.bottomLeft());
    p.setPen(bottomRight);
    p.drawLine(box.bottomLeft(), box.bottomRight());
    p.drawLine(box.topRight(), box.bottomRight());
  };
  if (outerRaised) frame(r, lit, dark);
  if (outerSunken) frame(r, shadow, light);
  const QRect inner = r.adjusted(1, 1, -1, -1);
  if (innerRaised) frame(inner, light, shadow);
  if (innerSunken) frame(inner, dark, lit);
}

void PaintArrow(QPainter& p, const QRect& r, int arrow, bool pressed, bool horizontal) {
  if (arrow == 0) return;
  const QPoint c = r.center() + (pressed ? QPoint(1, 1) : QPoint());
  const int d = arrow == 1 ? -1 : 1;
  QPolygon tip = horizontal
                     ? QPolygon({c + QPoint(2 * d, 0), c + QPoint(-d, -3), c + QPoint(-d, 3)})
                     : QPolygon({c + QPoint(0, 2 * d), c + QPoint(-3, -d), c + QPoint(3, -d)});
  p.setPen(ToQColor(0x80000012));
  p.setBrush(ToQColor(0x80000012));
  p.drawPolygon(tip);
  p.setBrush(Qt::NoBrush);
}

void PaintSurface(QPainter& p, const ScrollbarSurface& s, const QRect& r, bool horizontal) {
  if (const Image* image = s.Shown.get().Pixels(); image && image->width > 0) {
    p.save();
    p.setClipRect(r, Qt::IntersectClip);
    p.drawImage(r.topLeft(), ToQImage(*image));
    p.restore();
    return;
  }
  if (s.Edge == 0 && s.Arrow == 0) return;
  p.fillRect(r, ToQColor(0x8000000F));
  PaintArrow(p, r, s.Arrow, s.ArrowPressed, horizontal);
  PaintEdge(p, r, s.Edge);
}

}  // namespace

void PaintScrollbar(QPainter& p, const ctlScrollbar& bar, QPoint origin) {
  const bool horizontal = bar.Orientation != 0;
  const QRect track = SurfaceRect(bar.Picture4, origin);
  PaintTrack(p, bar, track);
  PaintSurface(p, bar.Picture1, SurfaceRect(bar.Picture1, origin), horizontal);
  PaintSurface(p, bar.Picture3, SurfaceRect(bar.Picture3, origin), horizontal);
  PaintSurface(p, bar.Picture2, SurfaceRect(bar.Picture2, track.topLeft()), horizontal);
}

}  // namespace yarvo
