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

// Play is the big accent disc in the middle, pause above it and stop below
// it, each 4 px away; previous and next are upright capsules at its sides,
// their centres level with play's (y 30). Every key lies inside its own
// picture, and no picture reaches into another key.
const Key kKeys[] = {
    {"pause", L::kPause, {19, 0, 28, 12}, 3.5, glyph::Pause, {30, 3, 6, 6}, false},
    {"back", L::kBack, {1, 17, 14, 26}, 7, glyph::Previous, {4, 25, 8, 10}, false},
    {"play", L::kPlay, {19, 16, 28, 28}, 14, glyph::Play, {29, 24, 10.5, 12}, true},
    {"next", L::kNext, {51, 17, 14, 26}, 7, glyph::Next, {54, 25, 8, 10}, false},
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

// The whole plate with `lit` in look `s` and the other keys at rest: every
// picture is cut from one of these, so that they agree where they overlap.
QImage Plate(const Theme& t, const Key* lit, State s) {
  QImage plate = Canvas(L::kTransport, t.body);
  Pen p(&plate);
  for (const Key& k : kKeys) DrawKey(p, t, k, &k == lit ? s : State::Rest);
  return plate;
}

}  // namespace

void AddTransport(const Theme& t, SkinImages& images) {
  images["controls-background.bmp"] = Plate(t, nullptr, State::Rest);
  for (const Key& k : kKeys) {
    const QString stem = QString::fromLatin1(k.stem);
    images[stem + "-hover.bmp"] = Plate(t, &k, State::Hover).copy(k.picture);
    images[stem + "-mousedown.bmp"] = Plate(t, &k, State::Pressed).copy(k.picture);
  }
}

}  // namespace skingen
