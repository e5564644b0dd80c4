#include "Theme.h"

#include <cmath>

namespace skingen {

namespace {

QColor Hex(const char* text) { return QColor(QString::fromLatin1(text)); }

}  // namespace

Theme DefaultTheme() {
  Theme t;
  t.name = QStringLiteral("Default");
  t.body = Hex("#2b2d31");
  t.outline = Hex("#0c0d0f");
  t.rimLight = Hex("#4b4e55");
  t.rimShadow = Hex("#1b1c1f");
  t.sheen = Hex("#34373c");

  t.plate = {Hex("#111214"), Hex("#5a5e66"), Hex("#24262a"), Hex("#45484f"), Hex("#35383d")};
  t.plateHover = {Hex("#111214"), Hex("#757a84"), Hex("#2c2f34"), Hex("#5d616a"), Hex("#494c54")};
  t.platePressed = {Hex("#0a0b0c"), Hex("#2a2c30"), Hex("#3a3d43"), Hex("#26282c"), Hex("#2e3035")};
  t.glyph = Hex("#d9dce1");
  t.glyphHover = Hex("#ffffff");
  t.glyphPressed = Hex("#b9bcc2");
  t.engraving = Hex("#8d929b");
  t.legend = Hex("#c0c4ca");

  t.accent = Hex("#ff7f1e");
  t.accentBright = Hex("#ffa155");
  t.accentDim = Hex("#4d3324");
  t.accentInk = Hex("#141517");

  t.screen = Hex("#15130f");
  t.screenGlow = Hex("#221d15");
  t.screenEdge = Hex("#0b0a08");
  t.screenWell = {Hex("#060606"), Hex("#43464c"), Hex("#15130f")};
  t.screenInkDim = Hex("#5e3e28");

  t.tray = {Hex("#151618"), Hex("#3c3f45"), Hex("#232529")};
  t.groove = {Hex("#060607"), Hex("#42454b"), Hex("#141517")};
  t.knob = {Hex("#0c0d0f"), Hex("#7a7e87"), Hex("#2c2e33"), Hex("#5c6068"), Hex("#44474e")};
  t.knobHover = {Hex("#0c0d0f"), Hex("#9a9ea7"), Hex("#35383d"), Hex("#787c85"), Hex("#5c6068")};

  t.menuText = QStringLiteral("white");
  t.displayText = QStringLiteral("white");
  t.factsText = QStringLiteral("white");
  t.plateText = QStringLiteral("white");
  t.rowBack = QStringLiteral("black");
  t.rowText = QStringLiteral("white");
  t.greenStep = 2.0;
  t.blueStep = 0.6;
  return t;
}

Theme AluminiumTheme() {
  Theme t;
  t.name = QStringLiteral("Aluminium");
  t.body = Hex("#d2d5d9");
  t.outline = Hex("#6d737b");
  t.rimLight = Hex("#f7f8fa");
  t.rimShadow = Hex("#a9aeb5");
  t.sheen = Hex("#e3e6e9");

  t.plate = {Hex("#7c828a"), Hex("#f7f8fa"), Hex("#a6acb3"), Hex("#e2e5e8"), Hex("#c5cad0")};
  t.plateHover = {Hex("#7c828a"), Hex("#ffffff"), Hex("#bcc1c7"), Hex("#ffffff"), Hex("#e8eaed")};
  t.platePressed = {Hex("#646a72"), Hex("#b2b7be"), Hex("#e4e6e9"), Hex("#c4c8ce"), Hex("#d0d3d8")};
  t.glyph = Hex("#33373d");
  t.glyphHover = Hex("#15171a");
  t.glyphPressed = Hex("#2a2d32");
  t.engraving = Hex("#5d636b");
  t.legend = Hex("#3c4148");

  t.accent = Hex("#f07010");
  t.accentBright = Hex("#ff9440");
  t.accentDim = Hex("#b9a98f");
  t.accentInk = Hex("#1f2023");

  t.screen = Hex("#ebe5d2");
  t.screenGlow = Hex("#f8f5ec");
  t.screenEdge = Hex("#cbc2a6");
  t.screenWell = {Hex("#6d737b"), Hex("#f7f8fa"), Hex("#ebe5d2")};
  t.screenInkDim = Hex("#b8ae92");

  t.tray = {Hex("#8e949b"), Hex("#f1f3f5"), Hex("#c5c9ce")};
  t.groove = {Hex("#555b63"), Hex("#f4f5f7"), Hex("#8f959c")};
  t.knob = {Hex("#6a7078"), Hex("#fbfcfd"), Hex("#a5aab1"), Hex("#e6e8eb"), Hex("#c6cad0")};
  t.knobHover = {Hex("#6a7078"), Hex("#ffffff"), Hex("#b9bec4"), Hex("#ffffff"), Hex("#e6e8eb")};

  t.menuText = QStringLiteral("black");
  t.displayText = QStringLiteral("black");
  t.factsText = QStringLiteral("black");
  t.plateText = QStringLiteral("black");
  t.rowBack = QStringLiteral("white");
  t.rowText = QStringLiteral("black");
  t.greenStep = 1.0;
  t.blueStep = 0.5;
  return t;
}

QColor NamedColour(const QString& name) {
  struct Named {
    const char* name;
    QRgb rgb;
  };
  static constexpr Named kNames[] = {
      {"black", 0x000000}, {"white", 0xffffff},  {"blue", 0x0000ff},
      {"cyan", 0x00ffff},  {"green", 0x00ff00},  {"magenta", 0xff00ff},
      {"red", 0xff0000},   {"yellow", 0xffff00}, {"gray", 0xf0f0f0},
  };
  for (const Named& n : kNames) {
    if (name == QLatin1String(n.name)) return QColor::fromRgb(n.rgb);
  }
  return {};
}

QColor PaletteEntry(const QColor& entry0, double greenStep, double blueStep, int index) {
  if (index == 0) return entry0;
  const auto byte = [](double v) { return static_cast<int>(std::nearbyint(v)); };
  return QColor(255 - 2 * index, byte(index * greenStep), byte(index * blueStep));
}

}  // namespace skingen
