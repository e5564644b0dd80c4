#pragma once
// Draws the controls of a form model with QPainter, in the window's pixels:
// pictures as the skin gives them, labels in the skin's colours over what
// lies below, the slider from its surfaces, lists row by row. Controls the
// skin gives no picture (text boxes, check boxes, option buttons) keep a
// plain look of their own.

class QPainter;
class QRect;
class QFont;

namespace yarvo {

class Control;

// The rectangle of `control` in the window, in pixels.
QRect WindowRect(const Control& control);

// The font a control's text is drawn in.
QFont ControlFont(const Control& control);

// Paints `control` inside its rectangle (the caller clips to containers).
void PaintControl(QPainter& painter, const Control& control);

}  // namespace yarvo
