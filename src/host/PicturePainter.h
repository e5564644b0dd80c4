#pragma once
// Pictures of the form models on screen.

#include <QImage>

#include "core/form/Picture.h"

class QPainter;
class QRect;

namespace yarvo {

class PictureBox;

// A view of the picture's pixels (no copy); valid while the picture lives.
QImage ToQImage(const Image& image);

// A picture box: its back colour unless it is an image, its picture at its
// top left corner or stretched over it, what the program drew on it, and a
// caption where a button has no picture.
void PaintPictureBox(QPainter& painter, const PictureBox& box, const QRect& r);

// An 8-bit indexed picture at `x`, `y`, bottom row last as stored first.
void PaintIndexed(QPainter& painter, const IndexedImage& image, int x, int y);

}  // namespace yarvo
