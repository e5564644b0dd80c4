#include "SkinFolder.h"

#include <QFile>

#include "Theme.h"

namespace skingen {

SkinFolder::SkinFolder(const QString& folder) : folder_(folder) {
  QFile ini(folder + QStringLiteral("/skin.ini"));
  if (!ini.open(QIODevice::ReadOnly)) return;
  for (const QByteArray& raw : ini.readAll().split('\n')) {
    const QString line = QString::fromUtf8(raw).trimmed();
    values_.append(line.mid(line.lastIndexOf(QLatin1Char('=')) + 1));
  }
}

QString SkinFolder::Value(int index) const {
  return index >= 0 && index < values_.size() ? values_[index] : QString();
}

QColor SkinFolder::TextColour(int line) const { return NamedColour(Value(line)); }

QColor SkinFolder::Background() const {
  return QColor(Value(13).toInt(), Value(14).toInt(), Value(15).toInt());
}

QColor SkinFolder::Palette(int index) const {
  const QColor zero(Value(7).toInt(), Value(8).toInt(), Value(9).toInt());
  return PaletteEntry(zero, Value(11).toDouble(), Value(12).toDouble(), index);
}

const QImage& SkinFolder::Image(const QString& name) const {
  auto found = images_.find(name);
  if (found == images_.end()) {
    QImage image(folder_ + QLatin1Char('/') + name);
    found = images_.emplace(name, image.convertToFormat(QImage::Format_ARGB32_Premultiplied)).first;
  }
  return found->second;
}

}  // namespace skingen
