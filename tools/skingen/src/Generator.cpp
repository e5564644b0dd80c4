#include "Generator.h"

#include <QDir>
#include <QFont>
#include <QFontInfo>

#include "AppIcon.h"
#include "Contrast.h"
#include "Layout.h"
#include "Manifest.h"
#include "MenuIcons.h"
#include "SkinFolder.h"
#include "SkinPainter.h"
#include "SkinWriter.h"
#include "Theme.h"

namespace skingen {

namespace {

// The player stores each palette product as a byte and skips one that does
// not fit, so entry 127 must stay within 255.
bool StepsFit(const Theme& t) { return 127 * t.greenStep <= 255.4 && 127 * t.blueStep <= 255.4; }

// The labels are drawn in DejaVu Sans (fonts-dejavu-core); another font
// would change every picture with text.
bool HasDejaVu() {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setBold(true);
  return QFontInfo(font).family() == QLatin1String("DejaVu Sans");
}

QString CheckSizes(const SkinImages& images) {
  for (const SkinFile& f : SkinManifest()) {
    const auto found = images.find(f.name);
    if (found == images.end()) return QStringLiteral("missing ") + f.name;
    if (found->second.size() != f.size) return QStringLiteral("wrong size: ") + f.name;
  }
  return {};
}

bool Report(const SkinFolder& skin, const QString& name, std::FILE* out) {
  std::fprintf(out, "%s\n", qPrintable(name));
  bool ok = true;
  for (const ContrastPair& pair : MeasureContrast(skin)) {
    const bool pass = pair.ratio >= kMinimumContrast;
    ok = ok && pass;
    std::fprintf(out, "  line %d  %-7s on %-30s %s  %5.2f:1%s\n", pair.line,
                 qPrintable(skin.Value(pair.line)), qPrintable(pair.where),
                 qPrintable(pair.background.name()), pair.ratio, pass ? "" : "  TOO LOW");
  }
  return ok;
}

QString WriteIcons(const QString& folder) {
  if (!QDir().mkpath(folder)) return QStringLiteral("cannot create ") + folder;
  for (const auto& [number, icon] : DrawMenuIcons()) {
    const QString path = folder + QStringLiteral("/menu-%1.png").arg(number);
    if (!SaveImage(icon, path)) return QStringLiteral("cannot write ") + path;
  }
  for (const int size : layout::kAppIconSizes) {
    const QString path = folder + QStringLiteral("/yarvo-player-%1.png").arg(size);
    if (!SaveImage(DrawAppIcon(size), path)) return QStringLiteral("cannot write ") + path;
  }
  return {};
}

}  // namespace

int GenerateAll(const QString& dataFolder, std::FILE* report) {
  if (!HasDejaVu()) {
    std::fputs("skingen: the DejaVu Sans font is missing (fonts-dejavu-core)\n", stderr);
    return 2;
  }
  bool contrastOk = true;
  for (const Theme& theme : {DefaultTheme(), AluminiumTheme()}) {
    if (!StepsFit(theme)) {
      std::fprintf(stderr, "skingen: palette steps of %s overflow a byte\n",
                   qPrintable(theme.name));
      return 2;
    }
    const SkinImages images = DrawSkin(theme);
    QString error = CheckSizes(images);
    const QString folder = dataFolder + QStringLiteral("/Skins/") + theme.name;
    if (error.isEmpty()) error = WriteSkin(theme, images, folder);
    if (!error.isEmpty()) {
      std::fprintf(stderr, "skingen: %s: %s\n", qPrintable(theme.name), qPrintable(error));
      return 2;
    }
    contrastOk = Report(SkinFolder(folder), theme.name, report) && contrastOk;
  }
  const QString error = WriteIcons(dataFolder + QStringLiteral("/Icons"));
  if (!error.isEmpty()) {
    std::fprintf(stderr, "skingen: icons: %s\n", qPrintable(error));
    return 2;
  }
  return contrastOk ? 0 : 1;
}

}  // namespace skingen
