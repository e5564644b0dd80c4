#include "Sliders.h"

#include "Layout.h"
#include "Paint.h"

namespace skingen {

namespace {

namespace L = layout;

// A bar drawn whole, three tiles long, from which the end caps and one
// tile are cut: the tile lies where the groove runs straight.
constexpr int kTiles = 3;

QImage HorizontalBar(const Theme& t) {
  const int length = 2 * L::kHEnd.width() + kTiles * L::kHTrackTile.width();
  QImage bar = Canvas(QSize(length, L::kHEnd.height()), t.body);
  Pen p(&bar);
  DrawWell(p, QRectF(1, 5, length - 2, 7), 3.5, t.groove);
  return bar;
}

QImage VerticalBar(const Theme& t) {
  const int length = 2 * L::kVEnd.height() + kTiles * L::kVTrackTile.height();
  QImage bar = Canvas(QSize(L::kVEnd.width(), length), t.tray.floor);
  Pen p(&bar);
  DrawWell(p, QRectF(4, 1, 6, length - 2), 3, t.groove);
  return bar;
}

// The thumb sits on the groove: its picture is a stretch of groove with the
// knob on it.
QImage Thumb(const QImage& track, QSize size, const QRectF& knob, const PlateLook& look,
             bool vertical, const QColor& mark) {
  QImage thumb = vertical ? RepeatRow(track, L::kVEnd.height(), 0, size.width(), size.height())
                          : RepeatColumn(track, L::kHEnd.width(), 0, size.height(), size.width());
  Pen p(&thumb);
  DrawPlate(p, knob, 2.5, look);
  if (vertical) {
    p.fillRect(QRectF(knob.left() + 3, knob.center().y() - 0.5, knob.width() - 6, 1), mark);
  } else {
    p.fillRect(QRectF(knob.center().x() - 0.5, knob.top() + 4, 1, knob.height() - 8), mark);
  }
  return thumb;
}

QImage ListThumb(const QImage& track, const Theme& t, bool hover) {
  QImage thumb =
      RepeatRow(track, L::kVEnd.height(), 0, L::kListThumb.width(), L::kListThumb.height());
  Pen p(&thumb);
  const QRectF knob(2, 1, 10, 22);
  DrawPlate(p, knob, 3, hover ? t.knobHover : t.knob);
  const QColor mark = hover ? t.accentBright : t.accent;
  for (int i = -1; i <= 1; ++i) p.fillRect(QRectF(5, 11.0 + 3 * i, 4, 1), mark);
  return thumb;
}

}  // namespace

void AddSliders(const Theme& t, SkinImages& images) {
  const QImage h = HorizontalBar(t);
  const int hw = h.width();
  images["h-scrollbar-left.bmp"] = h.copy(QRect(QPoint(0, 0), L::kHEnd));
  images["h-scrollbar-right.bmp"] = h.copy(QRect(QPoint(hw - L::kHEnd.width(), 0), L::kHEnd));
  images["h-scrollbar-background.bmp"] =
      RepeatColumn(h, hw / 2, 0, L::kHTrackTile.height(), L::kHTrackTile.width());
  const QRectF hKnob(1, 1, 11, 15);
  images["h-scrollbar-thumb.bmp"] = Thumb(h, L::kHThumb, hKnob, t.knob, false, t.accent);
  images["h-scrollbar-thumb-focus.bmp"] =
      Thumb(h, L::kHThumb, hKnob, t.knobHover, false, t.accentBright);

  const QImage v = VerticalBar(t);
  const int vh = v.height();
  images["v-scrollbar-up.bmp"] = v.copy(QRect(QPoint(0, 0), L::kVEnd));
  images["v-scrollbar-down.bmp"] = v.copy(QRect(QPoint(0, vh - L::kVEnd.height()), L::kVEnd));
  images["v-scrollbar-background.bmp"] =
      RepeatRow(v, vh / 2, 0, L::kVTrackTile.width(), L::kVTrackTile.height());
  const QRectF vKnob(1, 1, 12, 9);
  images["v-scrollbar-thumb.bmp"] = Thumb(v, L::kVThumb, vKnob, t.knob, true, t.accent);
  images["v-scrollbar-thumb-focus.bmp"] =
      Thumb(v, L::kVThumb, vKnob, t.knobHover, true, t.accentBright);
  images["playlist-thumb.bmp"] = ListThumb(v, t, false);
  images["playlist-thumb-focus.bmp"] = ListThumb(v, t, true);
}

}  // namespace skingen
