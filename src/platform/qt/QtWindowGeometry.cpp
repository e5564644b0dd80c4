#include "platform/qt/QtWindowGeometry.h"

#include <QWidget>

namespace yarvo {

WindowRect QtWindowGeometry::rectOf(NativeWindow window) const {
  const QWidget* widget = QWidget::find(static_cast<WId>(window));
  if (!widget) return {};
  const QPoint topLeft = widget->mapToGlobal(QPoint(0, 0));
  return {topLeft.x(), topLeft.y(), topLeft.x() + widget->width(), topLeft.y() + widget->height()};
}

}  // namespace yarvo
