#include "host/PicturePainter.h"

#include <QPainter>

#include "core/form/PictureBox.h"
#include "host/ControlPainter.h"
#include "host/SystemColours.h"

namespace yarvo {

QImage ToQImage(const Image& image) {
  return QImage(reinterpret_cast<const uchar*>(image.argb.data()), image.width, image.height,
                QImage::Format_ARGB32_Premultiplied);
}

void PaintIndexed(QPainter& painter, const IndexedImage& image, int x, int y) {
  QImage frame(image.width, image.height, QImage::Format_Indexed8);
  QList<QRgb> table(256);
  for (int i = 0; i < 256; ++i) table[i] = 0xFF000000u | image.palette[static_cast<size_t>(i)];
  frame.setColorTable(table);
  for (int row = 0; row < image.height; ++row) {
    const auto* from =
        image.pixels.data() + static_cast<size_t>(row) * static_cast<size_t>(image.width);
    std::copy(from, from + image.width, frame.scanLine(image.height - 1 - row));
  }
  painter.drawImage(x, y, frame);
}

void PaintPictureBox(QPainter& p, const PictureBox& box, const QRect& r) {
  if (!box.Transparent) p.fillRect(r, ToQColor(box.BackColor));
  if (const Image* image = box.Picture.get().Pixels(); image && image->width > 0) {
    if (box.Stretch) {
      p.drawImage(r, ToQImage(*image));
    } else {
      p.drawImage(r.topLeft(), ToQImage(*image));
    }
  } else if (!box.Caption.get().empty()) {
    p.fillRect(r, ToQColor(0x8000000F));
    p.setPen(ToQColor(0x80000010));
    p.drawRect(r.adjusted(0, 0, -1, -1));
    p.setFont(ControlFont(box));
    p.setPen(ToQColor(0x80000012));
    p.drawText(r, Qt::AlignCenter, QString::fromStdString(box.Caption));
  }
  if (const auto& drawing = box.Drawing.get()) PaintIndexed(p, *drawing, r.left(), r.top());
}

}  // namespace yarvo
