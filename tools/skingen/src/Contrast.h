#pragma once
// WCAG 2 contrast of the skin's text colours against what they are drawn on,
// measured on the written files.

#include <QColor>
#include <QString>
#include <vector>

namespace skingen {

class SkinFolder;

constexpr double kMinimumContrast = 4.5;

// Relative luminance of an sRGB colour, 0 for black to 1 for white.
double RelativeLuminance(const QColor& colour);
// (lighter + 0.05) / (darker + 0.05), from 1 to 21.
double ContrastRatio(const QColor& a, const QColor& b);

struct ContrastPair {
  int line;       // skin.ini line of the text colour
  QString where;  // what the text is drawn on
  QColor text;
  QColor background;  // the average of the pixels under the text
  double ratio;
};

// Every text of lines 1-6 against its background, in line order.
std::vector<ContrastPair> MeasureContrast(const SkinFolder& skin);

}  // namespace skingen
