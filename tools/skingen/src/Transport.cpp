#include "Transport.h"

#include "Glyphs.h"
#include "Layout.h"
#include "Paint.h"

namespace skingen {

namespace {

namespace L = layout;

enum class State { Rest, Hover, Pressed };

struct Key {
  const char* stem;  // file name stem
  QRect picture;     // where its hover and pressed pictures go
  QRectF shape;      // the key itself, inside `picture`
  double radius;     // half the width makes a disc
  QPainterPath (*glyph)(const QRectF&);
  QRectF glyphBox;
  bool accent;  // the one key in the accent colour
};

// Play is the big accent disc in the middle; pause above it, stop below,
// previous and next at its sides, each inside its own picture.
const Key kKeys[] = {
    {"pause", L::kPause, {19, 2, 28, 12}, 3.5, glyph::Pause, {30, 4, 6, 8}, false},
    {"back", L::kBack, {1, 14, 14, 14}, 7, glyph::Previous, {4.5, 17.5, 6, 7}, false},
    {"play", L::kPlay, {21, 16.5, 24, 24}, 12, glyph::Play, {30, 23.5, 8.5, 11}, true},
    {"next", L::kNext, {51, 14, 14, 14}, 7, glyph::Next, {55.5, 17.5, 6, 7}, false},
    {"stop", L::kStop, {19, 48, 28, 12}, 3.5, glyph::Stop, {30, 51, 6, 6}, false},
};

PlateLook KeyLook(const Theme& t, const Key& k, State s) {
  if (!k.accent) {
    return s == State::Hover ? t.plateHover : s == State::Pressed ? t.platePressed : t.plate;
  }
  const QColor top = s == State::Hover     ? Mix(t.accentBright, Qt::white, 0.25)
                     : s == State::Pressed ? Mix(t.accent, Qt::black, 0.2)
                                           : t.accentBright;
  const QColor bottom = s == State::Hover     ? t.accentBright
                        : s == State::Pressed ? Mix(t.accent, Qt::black, 0.1)
                                              : t.accent;
  const QColor light =
      s == State::Pressed ? Mix(t.accent, Qt::black, 0.3) : Mix(top, Qt::white, 0.5);
  const QColor shadow = s == State::Pressed ? top : Mix(bottom, Qt::black, 0.25);
  return {t.outline, light, shadow, top, bottom};
}

void DrawKey(QPainter& p, const Theme& t, const Key& k, State s) {
  DrawPlate(p, k.shape, k.radius, KeyLook(t, k, s));
  QColor ink = k.accent              ? t.accentInk
               : s == State::Hover   ? t.glyphHover
               : s == State::Pressed ? t.glyphPressed
                                     : t.glyph;
  const QPointF shift = s == State::Pressed ? QPointF(1, 1) : QPointF(0, 0);
  const QPainterPath g = k.glyph(k.glyphBox.translated(shift));
  const QColor shadow = k.accent ? WithAlpha(Qt::white, 70) : WithAlpha(t.outline, 120);
  FillGlyph(p, g, ink, shadow);
}

// Drawn a little larger than the plate, so that the pictures of next and
// stop, which reach past its edge, come out whole.
QImage Plate(const Theme& t, const Key* lit, State s) {
  QImage plate = Canvas(L::kTransport + QSize(4, 4), t.body);
  Pen p(&plate);
  for (const Key& k : kKeys) DrawKey(p, t, k, &k == lit ? s : State::Rest);
  return plate;
}

}  // namespace

void AddTransport(const Theme& t, SkinImages& images) {
  images["controls-background.bmp"] =
      Plate(t, nullptr, State::Rest).copy(QRect(QPoint(0, 0), L::kTransport));
  for (const Key& k : kKeys) {
    const QString stem = QString::fromLatin1(k.stem);
    images[stem + "-hover.bmp"] = Plate(t, &k, State::Hover).copy(k.picture);
    images[stem + "-mousedown.bmp"] = Plate(t, &k, State::Pressed).copy(k.picture);
  }
}

}  // namespace skingen
