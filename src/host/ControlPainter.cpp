#include "host/ControlPainter.h"

#include <QPainter>

#include "core/form/CheckBox.h"
#include "core/form/Label.h"
#include "core/form/ListBox.h"
#include "core/form/OptionButton.h"
#include "core/form/PictureBox.h"
#include "core/form/Slider.h"
#include "core/form/TextBox.h"
#include "host/FormHost.h"

namespace yarvo {

namespace {

QString Q(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QRect PixelRect(const Control& c) {
  return {c.Left / kTwipsPerPixel, c.Top / kTwipsPerPixel, c.Width / kTwipsPerPixel,
          c.Height / kTwipsPerPixel};
}

QImage ToQImage(const Image& image) {
  return QImage(reinterpret_cast<const uchar*>(image.argb.data()), image.width, image.height,
                QImage::Format_ARGB32);
}

void PaintLabel(QPainter& p, const Label& label, const QRect& r, const QPalette& palette) {
  if (label.BackStyleOpaque) p.fillRect(r, ToQColor(label.BackColor, palette));
  const int align = label.Align == Alignment::Center  ? Qt::AlignHCenter
                    : label.Align == Alignment::Right ? Qt::AlignRight
                                                      : Qt::AlignLeft;
  p.setPen(ToQColor(label.ForeColor, palette));
  p.drawText(r, align | Qt::AlignVCenter | Qt::TextSingleLine, Q(label.Caption));
}

void PaintListBox(QPainter& p, const ListBox& list, const QRect& r, const QPalette& palette) {
  p.fillRect(r, ToQColor(list.BackColor, palette));
  p.setPen(palette.color(QPalette::Mid));
  p.drawRect(r.adjusted(0, 0, -1, -1));
  QFont font = p.font();
  font.setPixelSize(std::max(1, list.FontSize.get() * 96 / 72));
  font.setBold(list.FontBold);
  p.setFont(font);
  const int rowHeight = list.RowHeight();
  int y = r.top() + 1;
  for (int row = std::max(0, list.TopIndex.get()); row < list.ListCount() && y < r.bottom();
       ++row) {
    const QRect line(r.left() + 1, y, r.width() - 2, rowHeight);
    if (list.IsSelected(row)) p.fillRect(line, palette.color(QPalette::Highlight));
    p.setPen(list.IsSelected(row) ? palette.color(QPalette::HighlightedText)
                                  : ToQColor(list.ForeColor, palette));
    p.drawText(line.adjusted(3, 0, -3, 0), Qt::AlignLeft | Qt::AlignVCenter, Q(list.List(row)));
    y += rowHeight;
  }
}

// A bar lies along its longer side; the thumb marks the value.
void PaintSlider(QPainter& p, const Slider& slider, const QRect& r, const QPalette& palette) {
  const bool vertical = r.height() > r.width();
  const int span = slider.Max - slider.Min;
  const double at = span <= 0 ? 0.0 : double(slider.Value - slider.Min) / span;
  QRect groove, thumb;
  if (vertical) {
    groove = QRect(r.center().x() - 2, r.top(), 4, r.height());
    thumb = QRect(r.left(), r.top() + int(at * (r.height() - 8)), r.width() - 1, 8);
  } else {
    groove = QRect(r.left(), r.center().y() - 2, r.width(), 4);
    thumb = QRect(r.left() + int(at * (r.width() - 8)), r.top(), 8, r.height() - 1);
  }
  p.fillRect(groove, palette.color(QPalette::Mid));
  p.fillRect(thumb, palette.color(QPalette::Button));
  p.setPen(palette.color(QPalette::Dark));
  p.drawRect(thumb);
}

void PaintPicture(QPainter& p, const PictureBox& box, const QRect& r, const QPalette& palette) {
  const Picture& picture = box.Picture;
  if (const Image* image = picture.Pixels()) {
    p.drawImage(r, ToQImage(*image));
  } else if (!box.Caption.get().empty()) {
    p.fillRect(r, palette.color(QPalette::Button));
    p.setPen(palette.color(QPalette::Dark));
    p.drawRect(r.adjusted(0, 0, -1, -1));
    p.setPen(palette.color(QPalette::ButtonText));
    p.drawText(r, Qt::AlignCenter, Q(box.Caption));
  }
}

void PaintTextBox(QPainter& p, const TextBox& box, const QRect& r, const QPalette& palette) {
  p.fillRect(r, ToQColor(box.BackColor, palette));
  p.setPen(palette.color(QPalette::Mid));
  p.drawRect(r.adjusted(0, 0, -1, -1));
  p.setPen(ToQColor(box.ForeColor, palette));
  p.drawText(r.adjusted(3, 0, -3, 0), Qt::AlignLeft | Qt::AlignVCenter, Q(box.Text));
}

void PaintChoice(QPainter& p, const std::string& caption, bool on, bool round, const QRect& r,
                 const QPalette& palette) {
  const QRect mark(r.left(), r.center().y() - 6, 12, 12);
  p.setPen(palette.color(QPalette::Dark));
  p.setBrush(palette.color(QPalette::Base));
  if (round) {
    p.drawEllipse(mark);
  } else {
    p.drawRect(mark);
  }
  if (on) {
    p.setBrush(palette.color(QPalette::Text));
    if (round) {
      p.drawEllipse(mark.adjusted(3, 3, -3, -3));
    } else {
      p.drawRect(mark.adjusted(3, 3, -3, -3));
    }
  }
  p.setBrush(Qt::NoBrush);
  p.setPen(palette.color(QPalette::WindowText));
  p.drawText(r.adjusted(18, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, Q(caption));
}

void PaintControlIn(QPainter& painter, const Control& control, const QRect& r,
                    const QPalette& palette) {
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    PaintLabel(painter, *label, r, palette);
  } else if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
    PaintListBox(painter, *list, r, palette);
  } else if (const auto* slider = dynamic_cast<const Slider*>(&control)) {
    PaintSlider(painter, *slider, r, palette);
  } else if (const auto* box = dynamic_cast<const PictureBox*>(&control)) {
    PaintPicture(painter, *box, r, palette);
  } else if (const auto* text = dynamic_cast<const TextBox*>(&control)) {
    PaintTextBox(painter, *text, r, palette);
  } else if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
    PaintChoice(painter, check->Caption, check->Value != 0, false, r, palette);
  } else if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    PaintChoice(painter, option->Caption, option->Value, true, r, palette);
  }
}

}  // namespace

QColor ToQColor(unsigned int colour, const QPalette& palette) {
  if (colour & 0x80000000u) {
    switch (colour & 0xFFu) {
      case 0x05:
        return palette.color(QPalette::Base);
      case 0x08:
        return palette.color(QPalette::Text);
      case 0x12:
        return palette.color(QPalette::ButtonText);
      default:
        return palette.color(QPalette::Button);
    }
  }
  return QColor(int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF));
}

void PaintControl(QPainter& painter, const Control& control, const QPalette& palette) {
  const QRect r = PixelRect(control);
  // A control never draws outside its own rectangle.
  painter.save();
  painter.setClipRect(r);
  PaintControlIn(painter, control, r, palette);
  painter.restore();
}

}  // namespace yarvo
