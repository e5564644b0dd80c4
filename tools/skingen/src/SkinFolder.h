#pragma once
// A skin as the player reads it back from its folder: the values of
// skin.ini (the text behind each line's last "=") and the pictures.

#include <QColor>
#include <QImage>
#include <QString>
#include <QStringList>
#include <map>

namespace skingen {

class SkinFolder {
 public:
  explicit SkinFolder(const QString& folder);

  const QString& Folder() const { return folder_; }
  // The value of line `index`, empty beyond the end of the file.
  QString Value(int index) const;
  // Lines 1-6 as colours; an unknown name gives an invalid colour.
  QColor TextColour(int line) const;
  // The colour of lines 13-15, and of the visualisation's entry `index`.
  QColor Background() const;
  QColor Palette(int index) const;
  // The picture `name`, a null image when the file is missing.
  const QImage& Image(const QString& name) const;

 private:
  QString folder_;
  QStringList values_;
  mutable std::map<QString, QImage> images_;
};

}  // namespace skingen
