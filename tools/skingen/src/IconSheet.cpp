#include "IconSheet.h"

#include <QFile>
#include <QFont>
#include <QPainter>

#include "Layout.h"

namespace skingen {

namespace {

const QColor kPanel(0xff, 0xff, 0xff);
const QColor kStrip(0xec, 0xec, 0xec);
const QColor kFrame(0x31, 0x6a, 0xc5);
const QColor kSelection(0xc1, 0xd2, 0xee);
constexpr int kRow = 22;
constexpr int kMenuWidth = 190;

struct Item {
  int number;
  const char* caption;
};

constexpr Item kItems[] = {
    {16, "Play"},
    {24, "Pause"},
    {25, "Stop"},
    {1, "Back / Save"},
    {11, "Next / Open"},
    {12, "Add file"},
    {10, "Add folder"},
    {14, "Delete selected"},
    {6, "Delete all"},
    {20, "New playlist"},
    {5, "Jump to file"},
    {4, "Settings"},
    {21, "Change skin"},
    {23, "Close"},
    {8, "Keyboard shortcuts"},
    {7, "File association"},
    {13, "Video settings"},
    {17, "Support"},
    {18, "Informations"},
    {19, "Top 20"},
    {2, "Equalizer"},
    {26, "Shuffle off"},
    {27, "Shuffle on"},
    {28, "Play the best"},
};

// One column of the menu; every third row is drawn selected.
void DrawMenu(QPainter& p, const QString& folder, int x, int first, int count) {
  p.fillRect(QRect(x, 0, kMenuWidth, count * kRow), kPanel);
  for (int i = 0; i < count; ++i) {
    const Item& item = kItems[first + i];
    const int top = i * kRow;
    const bool selected = i % 3 == 1;
    if (selected) {
      p.fillRect(QRect(x, top, kMenuWidth, kRow), kFrame);
      p.fillRect(QRect(x + 1, top + 1, kMenuWidth - 2, kRow - 2), kSelection);
    } else {
      p.fillRect(QRect(x, top, 24, kRow), kStrip);
    }
    const QImage icon(folder + QStringLiteral("/menu-%1.png").arg(item.number));
    p.drawImage(QPoint(x + (selected ? 3 : 4), top + (selected ? 2 : 3)), icon);
    p.setPen(Qt::black);
    p.drawText(QRect(x + 30, top, kMenuWidth - 30, kRow), Qt::AlignLeft | Qt::AlignVCenter,
               QStringLiteral("%1  %2").arg(QLatin1String(item.caption)).arg(item.number));
  }
}

}  // namespace

QImage IconSheet(const QString& folder) {
  if (!QFile::exists(folder + QStringLiteral("/menu-1.png"))) return {};
  constexpr int kHalf = 12;
  QImage sheet(QSize(2 * kMenuWidth + 8 + 300, kHalf * kRow), QImage::Format_ARGB32_Premultiplied);
  sheet.fill(QColor(0xd8, 0xdb, 0xdf));
  QPainter p(&sheet);
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(11);
  p.setFont(font);
  DrawMenu(p, folder, 0, 0, kHalf);
  DrawMenu(p, folder, kMenuWidth + 8, kHalf, kHalf);
  const int left = 2 * kMenuWidth + 16;
  p.fillRect(QRect(left, kHalf * kRow / 2, 300, kHalf * kRow / 2), QColor(0x2b, 0x2d, 0x31));
  int x = left + 4;
  for (const int size : layout::kAppIconSizes) {
    if (size > 64) continue;
    const QImage icon(folder + QStringLiteral("/yarvo-player-%1.png").arg(size));
    p.drawImage(QPoint(x, 8), icon);
    p.drawImage(QPoint(x, kHalf * kRow / 2 + 8), icon);
    x += size + 8;
  }
  const QImage big(folder + QStringLiteral("/yarvo-player-128.png"));
  p.drawImage(QPoint(left + 4, kHalf * kRow / 2 + 76),
              big.scaled(64, 64, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  p.end();
  return sheet;
}

}  // namespace skingen
