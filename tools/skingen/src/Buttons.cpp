#include "Buttons.h"

#include "Layout.h"
#include "Paint.h"
#include "Panels.h"
#include "PixelFont.h"

namespace skingen {

namespace {

namespace L = layout;

enum class Look { Plain, Hover, Second };
enum class Led { Lit, Glowing, Dark };

// What stands left of a label: the lamp of a button that turns something on
// and off, or the arrow of one that opens a menu.
enum class Mark { None, Lamp, Menu };

struct SmallButton {
  int number;
  QPoint where;       // on the panel; 1 and 6, never shown, take the ground of 5 and 4
  const char* label;  // printed on the plate
  Mark mark;          // with a lamp, the second picture means "off"
};

constexpr SmallButton kSmallButtons[] = {
    {1, L::kButton5, "VIS", Mark::None},     {2, L::kButton2, "EQ", Mark::Lamp},
    {3, L::kButton3, "PRESETS", Mark::Menu}, {4, L::kButton4, "LIST", Mark::Lamp},
    {5, L::kButton5, "MEDIA", Mark::Lamp},   {6, L::kButton4, "SETUP", Mark::Lamp},
};

// The plate fills rows 1 to 14 of the picture; the capitals stand on rows 4
// to 10, and the marks share their middle (y 7.5) and one column (x 6.5),
// so that the marks of stacked buttons line up.
constexpr QRectF kPlate(0, 1, 41, 14);
constexpr int kLabelTop = 4;
constexpr QRectF kLamp(5, 6, 3, 3);
constexpr int kLabelLeft = 10;  // right of a mark; the face ends at x 38
constexpr int kFaceRight = 39;

void DrawLed(QPainter& p, const Theme& t, Led led) {
  p.fillPath(RoundedRect(kLamp.adjusted(-1, -1, 1, 1), 1.5), t.groove.floor);
  const QColor fill = led == Led::Lit       ? t.accent
                      : led == Led::Glowing ? Mix(t.accent, t.accentDim, 0.5)
                                            : t.accentDim;
  p.fillPath(RoundedRect(kLamp, 1), fill);
  if (led == Led::Lit) p.fillRect(QRectF(kLamp.left() + 1, kLamp.top(), 1, 1), t.accentBright);
}

// A small triangle pointing down, 5 px wide and 3 high, in the lamp's place.
void DrawMenuArrow(QPainter& p, const QColor& ink) {
  const int left = static_cast<int>(kLamp.center().x() - 2.5);
  const int top = static_cast<int>(kLamp.top());
  for (int row = 0; row < 3; ++row) p.fillRect(QRect(left + row, top + row, 5 - 2 * row, 1), ink);
}

QImage SmallButtonPicture(const Theme& t, const QImage& panel, const SmallButton& b, Look look) {
  QImage image = panel.copy(QRect(b.where, L::kSmallButton));
  Pen p(&image);
  DrawPlate(p, kPlate, 3, look == Look::Hover ? t.plateHover : t.plate);
  const QColor ink = look == Look::Hover ? t.glyphHover : t.glyph;
  if (b.mark == Mark::Lamp) {
    DrawLed(p, t, look == Look::Plain ? Led::Lit : look == Look::Hover ? Led::Glowing : Led::Dark);
  } else if (b.mark == Mark::Menu) {
    DrawMenuArrow(p, ink);
  }
  const int left = b.mark == Mark::None ? 0 : kLabelLeft;
  DrawPixelTextCentred(p, (left + kFaceRight) / 2.0, kLabelTop, QString::fromLatin1(b.label), ink,
                       1, PixelFace::Tall);
  return image;
}

QImage CaptionPlate(const Theme& t, bool hover) {
  QImage image = Canvas(L::kLabelPlate, t.body);
  Pen p(&image);
  // Rows 0 and 15 stay body, so the two plates stacked in the right column
  // show a gap of 2 px.
  DrawPlate(p, QRectF(4, 1, 65, 14), 3, hover ? t.plateHover : t.plate);
  return image;
}

}  // namespace

void AddButtons(const Theme& t, SkinImages& images) {
  const QImage panel = MainPanel(t);
  for (const SmallButton& b : kSmallButtons) {
    const QString stem = QStringLiteral("button%1").arg(b.number);
    images[stem + ".bmp"] = SmallButtonPicture(t, panel, b, Look::Plain);
    images[stem + "f.bmp"] = SmallButtonPicture(t, panel, b, Look::Hover);
    images[stem + "b.bmp"] =
        SmallButtonPicture(t, panel, b, b.mark == Mark::Lamp ? Look::Second : Look::Plain);
  }
  images["button.bmp"] = CaptionPlate(t, false);
  images["button-focus.bmp"] = CaptionPlate(t, true);
}

}  // namespace skingen
