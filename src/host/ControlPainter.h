#pragma once
// Draws one control of a form model with QPainter, in pixels.

#include <QColor>
#include <QPalette>

class QPainter;

namespace yarvo {

class Control;

// The program's colour value (0x00BBGGRR, or a system colour when the top bit
// is set) as a Qt colour.
QColor ToQColor(unsigned int colour, const QPalette& palette);

void PaintControl(QPainter& painter, const Control& control, const QPalette& palette);

}  // namespace yarvo
