#include "SkinWriter.h"

#include <QDir>
#include <QFile>

namespace skingen {

namespace {

QString Number(double value) { return QString::number(value, 'g', 6); }

}  // namespace

QString SkinIni(const Theme& t) {
  const QColor back = t.body;
  const QColor zero = t.screen;
  const QStringList lines = {
      QStringLiteral("name=") + t.name,
      QStringLiteral("menu-text=") + t.menuText,
      QStringLiteral("display-text=") + t.displayText,
      QStringLiteral("info-text=") + t.factsText,
      QStringLiteral("button-text=") + t.plateText,
      QStringLiteral("playlist-back=") + t.rowBack,
      QStringLiteral("playlist-text=") + t.rowText,
      QStringLiteral("visual-red=") + Number(zero.red()),
      QStringLiteral("visual-green=") + Number(zero.green()),
      QStringLiteral("visual-blue=") + Number(zero.blue()),
      QStringLiteral("visual-steps=entry i: red 255-2i, green and blue i times these"),
      QStringLiteral("visual-green-step=") + Number(t.greenStep),
      QStringLiteral("visual-blue-step=") + Number(t.blueStep),
      QStringLiteral("back-red=") + Number(back.red()),
      QStringLiteral("back-green=") + Number(back.green()),
      QStringLiteral("back-blue=") + Number(back.blue()),
      QStringLiteral("hide-playlist-scrollbar=false"),
  };
  return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

bool SaveImage(const QImage& image, const QString& path) {
  if (path.endsWith(QLatin1String(".jpg"))) {
    return image.convertToFormat(QImage::Format_RGB32).save(path, "JPEG", 95);
  }
  if (path.endsWith(QLatin1String(".bmp"))) {
    return image.convertToFormat(QImage::Format_RGB888).save(path, "BMP");
  }
  return image.convertToFormat(QImage::Format_ARGB32).save(path, "PNG");
}

QString WriteSkin(const Theme& theme, const SkinImages& images, const QString& folder) {
  if (!QDir().mkpath(folder)) return QStringLiteral("cannot create ") + folder;
  QFile ini(folder + QStringLiteral("/skin.ini"));
  if (!ini.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
      ini.write(SkinIni(theme).toUtf8()) < 0) {
    return QStringLiteral("cannot write ") + ini.fileName();
  }
  for (const auto& [name, image] : images) {
    const QString path = folder + QLatin1Char('/') + name;
    if (!SaveImage(image, path)) return QStringLiteral("cannot write ") + path;
  }
  return {};
}

}  // namespace skingen
