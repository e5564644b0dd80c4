#include "Panels.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <utility>

#include "Frame.h"
#include "Glyphs.h"
#include "Layout.h"
#include "Paint.h"
#include "PixelFont.h"

namespace skingen {

namespace {

namespace L = layout;

// Outer edges of the displays and the tray, in panel coordinates.
constexpr QRect kClockScreen{4, 2, 126, 49};
// The title screen's glass ends on the visualisation's last row; the tray
// keeps a gap of 3 px below it, as the other panels do.
constexpr QRect kTitleScreen{132, 3, 178, 87};
constexpr QRect kTray{108, 93, 202, 95};
constexpr QRect kMiniScreen{1, 1, 191, 46};

// The glow of a display's backlight over `area`: brightest at the middle of
// its top edge, and faded out completely by its bottom row, so that what
// lies below (the visualisation's flat picture) meets it without a seam.
QImage Glow(const Theme& t, QSize area, double reach) {
  QImage glow = Canvas(area);
  Pen p(&glow);
  QRadialGradient light(area.width() / 2.0, 0, reach);
  light.setColorAt(0, t.screenGlow);
  light.setColorAt(1, WithAlpha(t.screenGlow, 0));
  p.fillRect(glow.rect(), light);
  p.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  QLinearGradient fade(0, 0, 0, area.height());
  fade.setColorAt(0, Qt::black);
  fade.setColorAt(0.45, Qt::black);
  fade.setColorAt(1, Qt::transparent);
  p.fillRect(glow.rect(), fade);
  return glow;
}

// A recessed, backlit display: a bezel lit from the top left, a glass with
// an inner shadow along its top and left, and a soft glow that is gone by
// `glowLimit`, where the glass is entry 0 alone.
void DrawScreen(QPainter& p, const Theme& t, const QRect& outer, int glowLimit) {
  DrawWell(p, outer, 3, t.screenWell);
  const QRectF glass = QRectF(outer).adjusted(1, 1, -1, -1);
  p.save();
  p.setClipPath(RoundedRect(glass, 2));
  const QRect lit = glass.toRect().adjusted(0, 0, 0, glowLimit - glass.toRect().bottom() - 1);
  p.drawImage(lit.topLeft(), Glow(t, lit.size(), glass.width() * 0.55));
  for (int i = 0; i < 3; ++i) {
    const QColor shade = WithAlpha(t.screenEdge, 150 - 50 * i);
    p.fillRect(QRectF(glass.left(), glass.top() + i, glass.width(), 1), shade);
    p.fillRect(QRectF(glass.left() + i, glass.top() + i + 1, 1, glass.height()), shade);
  }
  p.restore();
}

// A faint line across a display, between its rows of text.
void DrawDivider(QPainter& p, const Theme& t, int left, int right, int y) {
  p.fillRect(QRect(left, y, right - left + 1, 1), Mix(t.screen, t.screenInkDim, 0.45));
}

// A slider's picture ends in a row of floor below its groove: the band
// names start one row lower, so two rows part them from the groove and two
// from the tray's lip.
void DrawEqualizerLegends(QPainter& p, const Theme& t) {
  const int labelY = L::kEqTop + L::kEqSlider.height() + 1;
  static const char* const kBands[L::kBands] = {"80", "150", "300", "500", "750",
                                                "1K", "3K",  "8K",  "12K", "15K"};
  const double half = L::kEqSlider.width() / 2.0;
  const auto legend = [&](double centreX, int y, const QString& text) {
    DrawPixelTextCentred(p, centreX, y, text, t.legend, 1, PixelFace::Tall);
  };
  legend(L::kReverbX + half, labelY, QStringLiteral("REV"));
  for (int b = 0; b < L::kBands; ++b) {
    legend(L::kFirstBandX + b * L::kBandStep + half, labelY, QString::fromLatin1(kBands[b]));
  }
  // The thumb's centre travels from 12 to 68 px below the slider's top: the
  // scale marks +10, 0 and -10 dB and the steps of 5 between, its numbers
  // set flush right against the marks and centred on them.
  const int tickX = L::kFirstBandX - 4;
  const int top = L::kEqTop + 12;
  for (int step = 0; step <= 4; ++step) {
    const bool major = step % 2 == 0;
    p.fillRect(QRect(tickX + (major ? 0 : 1), top + step * 14, major ? 3 : 2, 1), t.legend);
  }
  const int numbersRight = tickX - 3;
  const int middle = PixelFaceHeight(PixelFace::Tall) / 2;
  const std::pair<int, const char*> kScale[] = {{0, "+10"}, {28, "0"}, {56, "-10"}};
  for (const auto& [offset, text] : kScale) {
    const QString number = QString::fromLatin1(text);
    const int width = PixelTextWidth(number, 1, PixelFace::Tall);
    DrawPixelText(p, numbersRight - width + 1, top + offset - middle, number, t.legend, 1,
                  PixelFace::Tall);
  }
  // The 0 dB line runs behind the bands and shows between them.
  const int zeroY = top + 28;
  p.fillRect(QRect(L::kFirstBandX, zeroY, L::kBands * L::kBandStep - 2, 1), t.tray.wallShadow);
}

// Between the small buttons and the display: a grille of small holes.
void DrawGrille(QPainter& p, const Theme& t) {
  for (int row = 0; row < 8; ++row) {
    for (int col = 0; col < 5; ++col) {
      const int x = 110 + col * 4 + (row % 2) * 2;
      const int y = 57 + row * 4;
      if (col == 4 && row % 2 == 1) continue;
      p.fillRect(QRect(x, y, 2, 2), t.tray.wallShadow);
      p.fillRect(QRect(x + 1, y + 2, 1, 1), Mix(t.body, t.tray.lip, 0.6));
    }
  }
}

// An engraved rule under the "Multimedia info" heading, which the player
// writes in DejaVu Sans Bold 11 px: as long as that text, within its label.
void DrawInfoHeading(QPainter& p, const Theme& t) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(11);
  font.setBold(true);
  const double text = QFontMetricsF(font).horizontalAdvance(QStringLiteral("Multimedia info"));
  const int width = std::min(L::kInfoCaption.width(), static_cast<int>(std::ceil(text)));
  const int y = L::kInfoCaption.bottom() - 1;
  p.fillRect(QRect(L::kInfoCaption.left(), y, width, 1), Mix(t.body, t.outline, 0.55));
  p.fillRect(QRect(L::kInfoCaption.left(), y + 1, width, 1), Mix(t.body, t.rimLight, 0.6));
}

QImage MiniPanel(const Theme& t) {
  QImage panel = Canvas(L::kMiniPanel, t.body);
  Pen p(&panel);
  DrawScreen(p, t, kMiniScreen, kMiniScreen.bottom());
  DrawDivider(p, t, 6, 186, 27);
  return panel;
}

// The player's mark: a disc with a play triangle, 15 px across at `at`.
void DrawMark(QPainter& p, QPointF at, const QBrush& face, const QColor& edge, const QColor& ink) {
  const QRectF disc(at, QSizeF(15, 15));
  p.setPen(Qt::NoPen);
  if (edge.alpha() > 0) {
    p.setBrush(edge);
    p.drawEllipse(disc.adjusted(-0.5, -0.5, 0.5, 0.5));
  }
  p.setBrush(face);
  p.drawEllipse(disc);
  p.setBrush(ink);
  p.drawPath(glyph::Play(QRectF(at + QPointF(5.5, 4), QSizeF(6, 7))));
}

QImage IdlePicture(const Theme& t) {
  QImage idle = Canvas(L::kIdle, t.screen);
  Pen p(&idle);
  DrawMark(p, QPointF(52, 12), t.screenInkDim, Qt::transparent, t.screen);
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(11);
  font.setBold(true);
  font.setLetterSpacing(QFont::AbsoluteSpacing, 1.0);
  p.setFont(font);
  p.setPen(t.screenInkDim);
  p.drawText(QRectF(72, 11, 90, 12), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("YARVO"));
  DrawPixelText(p, 73, 23, QStringLiteral("PLAYER"), t.screenInkDim, 2);
  return idle;
}

// The logo reaches the window's right edge: its art keeps off the last 12
// columns, where the frame's right edge lies, and off the resize grip.
QImage Logo(const Theme& t) {
  const QImage body = WindowBody(t, QSize(L::kMainWidth, L::kFullHeight));
  QImage logo =
      body.copy(QRect(L::kMainWidth - L::kLogoFromRight, L::kFullHeight - L::kLogoFromBottom,
                      L::kLogo.width(), L::kLogo.height()));
  Pen p(&logo);
  QLinearGradient lit(0, 8, 0, 23);
  lit.setColorAt(0, t.accentBright);
  lit.setColorAt(1, t.accent);
  DrawMark(p, QPointF(3, 8), lit, t.outline, t.accentInk);
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(12);
  font.setBold(true);
  p.setFont(font);
  p.setPen(t.glyph);
  p.drawText(QRectF(21, 6, 40, 13), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Yarvo"));
  DrawPixelText(p, 22, 19, QStringLiteral("PLAYER"), t.engraving, 1);
  return logo;
}

// The speaker, drawn pixel by pixel ('#' ink, '+' half ink): at 11 px an
// outlined cone and arcs only blur. It stands right of the seek bar's last
// column: its first two columns stay body, so the two never touch.
QImage SpeakerPicture(const Theme& t) {
  static const char* const kRows[] = {
      ".............",  //
      "......#...#..",  //
      ".....##...+#.",  //
      "....###.#..#.",  //
      "..#####.+#.#.",  //
      "..#####..#.#.",  //
      "..#####.+#.#.",  //
      "....###.#..#.",  //
      ".....##...+#.",  //
      "......#...#..",  //
      ".............",  //
  };
  QImage speaker = Canvas(L::kSpeakerSize, t.body);
  const QColor half = Mix(t.body, t.glyph, 0.5);
  for (int y = 0; y < L::kSpeakerSize.height(); ++y) {
    for (int x = 0; x < L::kSpeakerSize.width(); ++x) {
      const char c = kRows[y][x];
      if (c != '.') speaker.setPixelColor(x, y, c == '#' ? t.glyph : half);
    }
  }
  return speaker;
}

}  // namespace

QImage MainPanel(const Theme& t) {
  QImage panel = Canvas(L::kPanel, t.body);
  Pen p(&panel);
  DrawScreen(p, t, kClockScreen, kClockScreen.bottom());
  DrawDivider(p, t, 9, 124, 27);
  DrawScreen(p, t, kTitleScreen, L::kVisual.top());
  DrawDivider(p, t, 137, 303, 28);
  DrawWell(p, kTray, 4, t.tray);
  DrawEqualizerLegends(p, t);
  DrawInfoHeading(p, t);
  DrawGrille(p, t);
  return panel;
}

void AddPanels(const Theme& t, SkinImages& images) {
  images["main.jpg"] = MainPanel(t);
  images["main-mini.jpg"] = MiniPanel(t);
  images["yarvoplayer.bmp"] = IdlePicture(t);
  images["logo.bmp"] = Logo(t);
  images["vol-pic.bmp"] = SpeakerPicture(t);
}

}  // namespace skingen
