#include "Frame.h"

#include <QLinearGradient>

#include "Glyphs.h"
#include "Layout.h"
#include "Paint.h"

namespace skingen {

namespace {

namespace L = layout;

// The reference window the pieces are cut from: big enough that its edges
// have long straight runs between the corners.
constexpr QSize kReference{L::kMainWidth, L::kFullHeight};

QImage TitleColumn(const QImage& body, int width, int height) {
  return RepeatColumn(body, body.width() / 2, 0, height, width);
}

QImage MenuPlate(const QImage& body, const Theme& t, bool hover) {
  QImage plate = TitleColumn(body, L::kMenuPlate.width(), L::kMenuPlate.height());
  if (!hover) return plate;
  Pen p(&plate);
  const int w = plate.width();
  p.fillRect(QRect(0, 3, w, 12), WithAlpha(t.plateHover.top, 150));
  p.fillRect(QRect(0, 3, w, 1), WithAlpha(t.plateHover.light, 110));
  p.fillRect(QRect(0, 15, w, 2), t.accent);
  return plate;
}

enum class TitleGlyph { Minimize, Close };

QImage TitleButton(const QImage& body, const Theme& t, TitleGlyph kind, bool hover) {
  QImage button = TitleColumn(body, L::kTitleButton.width(), L::kTitleButton.height());
  Pen p(&button);
  QColor ink = Mix(t.glyph, t.body, 0.15);
  if (hover) {
    const QRectF key(2, 3, 18, 13);
    p.fillPath(RoundedRect(key, 3), t.outline);
    FillVertical(p, RoundedRect(key.adjusted(1, 1, -1, -1), 2), key, t.accentBright, t.accent);
    ink = t.accentInk;
  }
  const QPainterPath g = kind == TitleGlyph::Close ? glyph::Close(QRectF(7.5, 6, 7, 7))
                                                   : glyph::Minimize(QRectF(7, 6, 8, 7));
  p.fillPath(g, ink);
  return button;
}

}  // namespace

QImage WindowBody(const Theme& t, QSize size) {
  QImage image = Canvas(size, t.body);
  Pen p(&image);
  const QRectF r(QPointF(0, 0), QSizeF(size));
  const double radius = L::kCornerRadius;
  // Rings from the outside in: the body's own colour (what the window shows
  // on the right and bottom edges, which no piece covers), an outline, and
  // a bevel lit from the top left.
  p.fillPath(RoundedRect(r.adjusted(1, 1, -1, -1), radius - 1), t.outline);
  const QPainterPath rim = RoundedRect(r.adjusted(2, 2, -2, -2), radius - 2);
  p.fillPath(rim, t.rimLight);
  p.fillPath(rim.intersected(rim.translated(1, 1)), t.rimShadow);
  const QPainterPath face = RoundedRect(r.adjusted(3, 3, -3, -3), radius - 3);
  // The sheen is gone by the row where the main window's right edge starts,
  // so that edge, which may cover the corner's lower part, meets it flat.
  QLinearGradient sheen(0, 3, 0, L::kRightTopMain);
  sheen.setColorAt(0, t.sheen);
  sheen.setColorAt(1, t.body);
  p.fillPath(face, sheen);
  return image;
}

void AddFramePieces(const Theme& t, SkinImages& images) {
  const QImage body = WindowBody(t, kReference);
  const int w = body.width();
  const int h = body.height();
  const int midX = w / 2;
  const int midY = h / 2;
  const int bottom = h - L::kBottomInset;
  images["top-left.bmp"] = body.copy(QRect(QPoint(0, 0), L::kTopCorner));
  images["top.bmp"] = RepeatColumn(body, midX, 0, L::kTopStrip.height(), L::kTopStrip.width());
  images["top-right.bmp"] = body.copy(QRect(QPoint(w - L::kTopCorner.width(), 0), L::kTopCorner));
  images["left.bmp"] = RepeatRow(body, midY, 0, L::kSideStrip.width(), L::kSideStrip.height());
  images["right.bmp"] =
      RepeatRow(body, midY, w - L::kBottomInset, L::kSideStrip.width(), L::kSideStrip.height());
  images["bottom-left.bmp"] = body.copy(QRect(QPoint(0, bottom), L::kBottomCorner));
  images["bottom.bmp"] =
      RepeatColumn(body, midX, bottom, L::kBottomStrip.height(), L::kBottomStrip.width());
  images["bottom-right.bmp"] =
      body.copy(QRect(QPoint(w - L::kBottomCorner.width(), bottom), L::kBottomCorner));

  images["menu-normal.bmp"] = MenuPlate(body, t, false);
  images["menu-hover.bmp"] = MenuPlate(body, t, true);
  images["minimize-normal.bmp"] = TitleButton(body, t, TitleGlyph::Minimize, false);
  images["minimize-hover.bmp"] = TitleButton(body, t, TitleGlyph::Minimize, true);
  images["close-normal.bmp"] = TitleButton(body, t, TitleGlyph::Close, false);
  images["close-hover.bmp"] = TitleButton(body, t, TitleGlyph::Close, true);
}

}  // namespace skingen
