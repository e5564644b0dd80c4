// skingen: draws the player's two skins, its menu icons and its application
// icons into the repository's data folder and checks the skins' text
// contrast; with --preview, composes mock-ups of a skin folder's windows.

#include <QDir>
#include <QGuiApplication>
#include <QStringList>
#include <cstdio>

#include "Generator.h"
#include "IconSheet.h"
#include "Preview.h"
#include "PreviewWindows.h"

namespace {

void Usage() {
  std::fputs(
      "usage: skingen [--data <data folder>]\n"
      "       skingen --preview <skin folder> [--out <folder>]\n"
      "       skingen --preview-icons <icon folder> [--out <folder>]\n",
      stderr);
}

QString Option(const QStringList& args, const QString& name, const QString& fallback) {
  const qsizetype i = args.indexOf(name);
  return i >= 0 && i + 1 < args.size() ? args[i + 1] : fallback;
}

}  // namespace

int main(int argc, char** argv) {
  // Fonts and painting need a GUI application, never a display.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  const QStringList args = QCoreApplication::arguments().mid(1);
  if (args.contains(QStringLiteral("--help"))) {
    Usage();
    return 0;
  }
  if (args.contains(QStringLiteral("--preview"))) {
    const QString skin = Option(args, QStringLiteral("--preview"), QString());
    const QString out = Option(args, QStringLiteral("--out"), QStringLiteral(SKINGEN_PREVIEW_DIR));
    const QStringList written = skingen::WritePreviews(skin, out);
    if (written.isEmpty()) {
      std::fprintf(stderr, "skingen: no skin in %s\n", qPrintable(skin));
      return 2;
    }
    for (const QString& path : written) std::printf("%s\n", qPrintable(path));
    return 0;
  }
  if (args.contains(QStringLiteral("--preview-icons"))) {
    const QString icons = Option(args, QStringLiteral("--preview-icons"), QString());
    const QString out = Option(args, QStringLiteral("--out"), QStringLiteral(SKINGEN_PREVIEW_DIR));
    const QImage sheet = skingen::IconSheet(icons);
    const QString path = out + QStringLiteral("/icons@2x.png");
    if (sheet.isNull() || !QDir().mkpath(out) || !skingen::Enlarged(sheet).save(path)) {
      std::fprintf(stderr, "skingen: no icons in %s\n", qPrintable(icons));
      return 2;
    }
    std::printf("%s\n", qPrintable(path));
    return 0;
  }
  const QString data = Option(args, QStringLiteral("--data"), QStringLiteral(SKINGEN_DATA_DIR));
  return skingen::GenerateAll(data, stdout);
}
