#include "Buttons.h"

#include <QFont>
#include <QFontMetricsF>

#include "Layout.h"
#include "Paint.h"
#include "Panels.h"

namespace skingen {

namespace {

namespace L = layout;

enum class Look { Plain, Hover, Second };
enum class Led { None, Lit, Glowing, Dark };

struct SmallButton {
  int number;
  QPoint where;       // on the panel; 1 and 6, never shown, take the ground of 5 and 4
  const char* label;  // printed on the plate
  bool hasState;      // the second picture means "off"
};

constexpr SmallButton kSmallButtons[] = {
    {1, L::kButton5, "VIS", false},     {2, L::kButton2, "EQ", true},
    {3, L::kButton3, "PRESETS", false}, {4, L::kButton4, "LIST", true},
    {5, L::kButton5, "MEDIA", true},    {6, L::kButton4, "SETUP", true},
};

QFont LabelFont() {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(7);
  font.setBold(true);
  font.setLetterSpacing(QFont::AbsoluteSpacing, 0.15);
  return font;
}

// A small lamp set into the plate: a dark well, the lamp, and when lit a
// brighter centre.
void DrawLed(QPainter& p, const Theme& t, const QRectF& r, Led led) {
  if (led == Led::None) return;
  p.fillPath(RoundedRect(r.adjusted(-1, -1, 1, 1), 1.5), t.groove.floor);
  const QColor fill = led == Led::Lit       ? t.accent
                      : led == Led::Glowing ? Mix(t.accent, t.accentDim, 0.5)
                                            : t.accentDim;
  p.fillPath(RoundedRect(r, 1), fill);
  if (led == Led::Lit) p.fillRect(QRectF(r.left() + 1, r.top(), 1, 1), t.accentBright);
}

QImage SmallButtonPicture(const Theme& t, const QImage& panel, const SmallButton& b, Look look) {
  QImage image = panel.copy(QRect(b.where, L::kSmallButton));
  Pen p(&image);
  const PlateLook& plate = look == Look::Hover ? t.plateHover : t.plate;
  const QRectF outer(0, 1, L::kSmallButton.width(), 14);
  DrawPlate(p, outer, 3, plate);
  Led led = Led::None;
  if (b.hasState)
    led = look == Look::Plain ? Led::Lit : look == Look::Hover ? Led::Glowing : Led::Dark;
  const QFont font = LabelFont();
  p.setFont(font);
  const QString text = QString::fromLatin1(b.label);
  const double textWidth = QFontMetricsF(font).horizontalAdvance(text);
  const double ledWidth = led == Led::None ? 0 : 7;
  const double left = std::floor((outer.width() - textWidth - ledWidth) / 2.0 + 0.5);
  DrawLed(p, t, QRectF(left, 7, 3, 3), led);
  p.setPen(look == Look::Hover ? t.glyphHover : t.glyph);
  p.drawText(QRectF(left + ledWidth, 2, textWidth + 2, 12), Qt::AlignLeft | Qt::AlignVCenter, text);
  return image;
}

QImage CaptionPlate(const Theme& t, bool hover) {
  QImage image = Canvas(L::kLabelPlate, t.body);
  Pen p(&image);
  DrawPlate(p, QRectF(4, 0, 65, 15), 3, hover ? t.plateHover : t.plate);
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
        SmallButtonPicture(t, panel, b, b.hasState ? Look::Second : Look::Plain);
  }
  images["button.bmp"] = CaptionPlate(t, false);
  images["button-focus.bmp"] = CaptionPlate(t, true);
}

}  // namespace skingen
