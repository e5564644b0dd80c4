#include "Contrast.h"

#include <cmath>

#include "Layout.h"
#include "Paint.h"
#include "SkinFolder.h"

namespace skingen {

namespace {

namespace L = layout;

double Linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

struct Region {
  int line;
  const char* where;
  const char* file;
  QRect area;  // an empty rectangle stands for the whole picture
};

QRect InMiniPanel(const QRect& r) { return r.translated(-L::kMiniPanelOrigin); }

std::vector<Region> Regions() {
  const QRect fact0(L::kInfoCaption.left(), L::kFactsTop[0], L::kFactWidth, L::kFactHeight);
  const int grip = L::kGripFromCorner;
  return {
      {1, "menu plate", "menu-normal.bmp", {}},
      {1, "menu plate, hover", "menu-hover.bmp", {}},
      {2, "clock", "main.jpg", L::kClock},
      {2, "total time", "main.jpg", L::kTotalTime},
      {2, "status", "main.jpg", L::kStatus},
      {2, "bit rate", "main.jpg", L::kBitRate},
      {2, "title", "main.jpg", L::kTitle},
      {2, "tag line", "main.jpg", L::kTagLine},
      {2, "mini clock", "main-mini.jpg", InMiniPanel(L::kMiniClock)},
      {2, "mini total time", "main-mini.jpg", InMiniPanel(L::kMiniTotalTime)},
      {2, "mini status", "main-mini.jpg", InMiniPanel(L::kMiniStatus)},
      {2, "mini title", "main-mini.jpg", InMiniPanel(L::kMiniTitle)},
      {2, "video title on the title bar", "top.bmp",
       QRect(0, L::kVideoTitle.top(), L::kTopStrip.width(), L::kVideoTitle.height())},
      {3, "info caption", "main.jpg", L::kInfoCaption},
      {3, "size", "main.jpg", fact0},
      {3, "length", "main.jpg", fact0.translated(0, L::kFactsTop[1] - L::kFactsTop[0])},
      {3, "layer", "main.jpg", fact0.translated(0, L::kFactsTop[2] - L::kFactsTop[0])},
      {3, "frequency", "main.jpg", fact0.translated(0, L::kFactsTop[3] - L::kFactsTop[0])},
      {3, "resize grip", "bottom-right.bmp",
       QRect(L::kBottomCorner.width() - grip, 0, grip, L::kBottomCorner.height())},
      {4, "caption plate", "button.bmp", {}},
      {4, "caption plate, hover", "button-focus.bmp", {}},
  };
}

}  // namespace

double RelativeLuminance(const QColor& c) {
  return 0.2126 * Linear(c.redF()) + 0.7152 * Linear(c.greenF()) + 0.0722 * Linear(c.blueF());
}

double ContrastRatio(const QColor& a, const QColor& b) {
  const double la = RelativeLuminance(a);
  const double lb = RelativeLuminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

std::vector<ContrastPair> MeasureContrast(const SkinFolder& skin) {
  std::vector<ContrastPair> pairs;
  for (const Region& r : Regions()) {
    const QImage& image = skin.Image(QString::fromLatin1(r.file));
    const QColor text = skin.TextColour(r.line);
    const QColor back =
        image.isNull() ? QColor() : AverageColour(image, r.area.isEmpty() ? image.rect() : r.area);
    const double ratio = text.isValid() && back.isValid() ? ContrastRatio(text, back) : 0.0;
    pairs.push_back({r.line, QString::fromLatin1(r.where), text, back, ratio});
  }
  const QColor rowBack = skin.TextColour(5);
  const QColor rowText = skin.TextColour(6);
  const double rows =
      rowBack.isValid() && rowText.isValid() ? ContrastRatio(rowText, rowBack) : 0.0;
  pairs.push_back({6, QStringLiteral("playlist rows (line 5)"), rowText, rowBack, rows});
  return pairs;
}

}  // namespace skingen
