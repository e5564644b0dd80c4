#include "Preview.h"

#include <QDir>
#include <QFileInfo>

#include "PreviewWindows.h"
#include "SkinFolder.h"

namespace skingen {

QStringList WritePreviews(const QString& skinFolder, const QString& outFolder) {
  if (!QFileInfo::exists(skinFolder + QStringLiteral("/skin.ini"))) return {};
  const SkinFolder skin(skinFolder);
  QDir().mkpath(outFolder);
  const QString stem = outFolder + QLatin1Char('/') + QFileInfo(skinFolder).fileName();
  struct Shot {
    const char* name;
    QImage image;
  };
  const Shot shots[] = {
      {"main-full", MainWindow(skin, {true, false, DisplayMode::Bars, false})},
      {"main-full-idle", MainWindow(skin, {true, true, DisplayMode::Bars, true})},
      {"main-small", MainWindow(skin, {false, false, DisplayMode::Scope, false})},
      {"main-small-columns", MainWindow(skin, {false, false, DisplayMode::Columns, false})},
      {"main-small-spectrogram",
       MainWindow(skin, {false, false, DisplayMode::Spectrogram, false})},
      {"mini", MiniWindow(skin, {true, false, DisplayMode::Columns, false})},
      {"mini-hover", MiniWindow(skin, {true, false, DisplayMode::Bars, true})},
      {"playlist", PlaylistWindow(skin)},
      {"transport", TransportSheet(skin)},
  };
  QStringList written;
  for (const Shot& shot : shots) {
    const QString one =
        stem + QLatin1Char('-') + QLatin1String(shot.name) + QStringLiteral("@1x.png");
    const QString two =
        stem + QLatin1Char('-') + QLatin1String(shot.name) + QStringLiteral("@2x.png");
    if (shot.image.save(one)) written << one;
    if (Enlarged(shot.image).save(two)) written << two;
  }
  return written;
}

}  // namespace skingen
