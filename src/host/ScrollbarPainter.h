#pragma once
// The slider control on screen: its track, its two buttons and its thumb.

#include <QPoint>

class QPainter;

namespace yarvo {

class ctlScrollbar;

// Paints `bar` with its top left corner at `origin`, in window pixels.
void PaintScrollbar(QPainter& painter, const ctlScrollbar& bar, QPoint origin);

}  // namespace yarvo
