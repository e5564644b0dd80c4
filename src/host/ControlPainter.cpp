#include "host/ControlPainter.h"

#include <QFont>
#include <QPainter>

#include <algorithm>
#include <cmath>

#include "core/form/CheckBox.h"
#include "core/form/Label.h"
#include "core/form/ListBox.h"
#include "core/form/OptionButton.h"
#include "core/form/PictureBox.h"
#include "core/form/Slider.h"
#include "core/form/TextBox.h"
#include "core/form/Twips.h"
#include "host/PicturePainter.h"
#include "host/ScrollbarPainter.h"
#include "host/SystemColours.h"
#include "windows/Butoane.h"
#include "windows/ctlScrollbar.h"

namespace yarvo {

namespace {

QString Q(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

int Alignment(const Label& label) {
  switch (label.Align.get()) {
    case Alignment::Center:
      return Qt::AlignHCenter;
    case Alignment::Right:
      return Qt::AlignRight;
    default:
      return Qt::AlignLeft;
  }
}

// Marlett's "o", the size grip: three ridges across the bottom right corner,
// clear of the window's bevelled, rounded edge. The desktops here have no
// Marlett, and this is the one letter of it the windows show.
void PaintSizeGrip(QPainter& p, const QColor& ink, const QRect& r) {
  p.setPen(ink);
  const int right = r.right() - 4, bottom = r.bottom() - 4;
  for (int reach = 1; reach <= 7; reach += 3)
    p.drawLine(right - reach, bottom, right, bottom - reach);
}

void PaintLabel(QPainter& p, const Label& label, const QRect& r) {
  if (label.BackStyleOpaque) p.fillRect(r, ToQColor(label.BackColor));
  if (label.FontName == "Marlett" && label.Caption == "o") {
    PaintSizeGrip(p, ToQColor(label.ForeColor), r);
    return;
  }
  p.setFont(ControlFont(label));
  p.setPen(ToQColor(label.ForeColor));
  p.drawText(r, Alignment(label) | Qt::AlignVCenter | Qt::TextSingleLine, Q(label.Caption));
}

// Rows from the top one shown, only as many as fit. The chosen row lies on a
// bar of the text colour a third of the way into the background, so it stands
// out in any skin and its text keeps the list's own colour.
void PaintListBox(QPainter& p, const ListBox& list, const QRect& r) {
  const QColor back = ToQColor(list.BackColor);
  const QColor fore = ToQColor(list.ForeColor);
  const auto third = [](int a, int b) { return (2 * a + b) / 3; };
  const QColor bar(third(back.red(), fore.red()), third(back.green(), fore.green()),
                   third(back.blue(), fore.blue()));
  p.fillRect(r, back);
  p.setFont(ControlFont(list));
  p.setPen(fore);
  const int rowHeight = std::max(1, list.RowHeight());
  int y = r.top();
  for (int row = std::max(0, list.TopIndex.get()); row < list.ListCount() && y < r.bottom();
       ++row, y += rowHeight) {
    const QRect line(r.left(), y, r.width(), rowHeight);
    if (list.IsSelected(row)) p.fillRect(line, bar);
    p.drawText(line.adjusted(3, 0, -3, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
               Q(list.List(row)));
  }
}

void PaintTextBox(QPainter& p, const TextBox& box, const QRect& r) {
  p.fillRect(r, ToQColor(box.BackColor));
  p.setPen(ToQColor(0x80000010));
  p.drawRect(r.adjusted(0, 0, -1, -1));
  p.setFont(ControlFont(box));
  p.setPen(ToQColor(box.ForeColor));
  p.drawText(r.adjusted(3, 0, -3, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
             Q(box.Text));
}

void PaintChoice(QPainter& p, const Control& control, const std::string& caption, bool on,
                 bool round, const QRect& r) {
  const QRect mark(r.left(), r.center().y() - 6, 12, 12);
  p.setRenderHint(QPainter::Antialiasing, round);
  p.setPen(ToQColor(0x80000010));
  p.setBrush(ToQColor(0x80000005));
  if (round) {
    p.drawEllipse(mark);
  } else {
    p.drawRect(mark);
  }
  if (on) {
    p.setBrush(ToQColor(0x80000008));
    p.setPen(Qt::NoPen);
    if (round) {
      p.drawEllipse(mark.adjusted(3, 3, -3, -3));
    } else {
      p.drawRect(mark.adjusted(3, 3, -2, -2));
    }
  }
  p.setRenderHint(QPainter::Antialiasing, false);
  p.setBrush(Qt::NoBrush);
  p.setFont(ControlFont(control));
  p.setPen(ToQColor(control.ForeColor));
  p.drawText(r.adjusted(18, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, Q(caption));
}

// A plain bar along its longer side; the thumb marks the value.
void PaintSlider(QPainter& p, const Slider& slider, const QRect& r) {
  const bool vertical = r.height() > r.width();
  const int span = slider.Max - slider.Min;
  const double at = span <= 0 ? 0.0 : double(slider.Value - slider.Min) / span;
  const QRect groove = vertical ? QRect(r.center().x() - 2, r.top(), 4, r.height())
                                : QRect(r.left(), r.center().y() - 2, r.width(), 4);
  const QRect thumb = vertical
                          ? QRect(r.left(), r.top() + int(at * (r.height() - 8)), r.width() - 1, 8)
                          : QRect(r.left() + int(at * (r.width() - 8)), r.top(), 8, r.height() - 1);
  p.fillRect(groove, ToQColor(0x80000010));
  p.fillRect(thumb, ToQColor(0x8000000F));
  p.setPen(ToQColor(0x80000015));
  p.drawRect(thumb);
}

// The plate, and the state pictures that lie on it (a hidden one lies below
// the control and is cut off).
void PaintButoane(QPainter& p, const Butoane& buttons, const QRect& r) {
  if (const Image* plate = buttons.Background.get().Pixels())
    p.drawImage(r.topLeft(), ToQImage(*plate));
  for (const ButoaneImage* image :
       {&buttons.PauzaFocus, &buttons.BackFocus, &buttons.PlayFocus, &buttons.NextFocus,
        &buttons.StopFocus, &buttons.PauzaPressed, &buttons.BackPressed, &buttons.PlayPressed,
        &buttons.NextPressed, &buttons.StopPressed}) {
    const Image* pixels = image->Picture.get().Pixels();
    if (!pixels) continue;
    p.drawImage(r.topLeft() + QPoint(image->Left / kTwipsPerPixel, image->Top / kTwipsPerPixel),
                ToQImage(*pixels));
  }
}

}  // namespace

QRect WindowRect(const Control& c) {
  return {c.FormLeft() / kTwipsPerPixel, c.FormTop() / kTwipsPerPixel, c.Width / kTwipsPerPixel,
          c.Height / kTwipsPerPixel};
}

QFont ControlFont(const Control& control) {
  QFont font("DejaVu Sans");
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(control.FontSize * 96.0 / 72.0))));
  font.setBold(control.FontBold);
  return font;
}

void PaintControl(QPainter& painter, const Control& control) {
  const QRect r = WindowRect(control);
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    PaintLabel(painter, *label, r);
  } else if (const auto* buttons = dynamic_cast<const Butoane*>(&control)) {
    PaintButoane(painter, *buttons, r);
  } else if (const auto* bar = dynamic_cast<const ctlScrollbar*>(&control)) {
    PaintScrollbar(painter, *bar, r.topLeft());
  } else if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
    PaintListBox(painter, *list, r);
  } else if (const auto* box = dynamic_cast<const PictureBox*>(&control)) {
    PaintPictureBox(painter, *box, r);
  } else if (const auto* text = dynamic_cast<const TextBox*>(&control)) {
    PaintTextBox(painter, *text, r);
  } else if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
    PaintChoice(painter, control, check->Caption, check->Value != 0, false, r);
  } else if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    PaintChoice(painter, control, option->Caption, option->Value, true, r);
  } else if (const auto* slider = dynamic_cast<const Slider*>(&control)) {
    PaintSlider(painter, *slider, r);
  }
}

}  // namespace yarvo
