#include "PreviewWindows.h"

#include <QFont>
#include <QPainter>

#include "Layout.h"
#include "SkinFolder.h"

namespace skingen {

namespace {

namespace L = layout;

const QColor kDesktop(0x5f, 0x6b, 0x78);
constexpr int kMargin = 12;

QFont LabelFont(int pixels, bool bold = false) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(pixels);
  font.setBold(bold);
  return font;
}

// Puts pictures and texts on a window the way the player does.
struct Composer {
  Composer(const SkinFolder& folder, QSize window)
      : skin(folder), image(window, QImage::Format_ARGB32_Premultiplied), p(&image) {
    image.fill(folder.Background());
    p.setRenderHint(QPainter::TextAntialiasing, true);
  }

  void Picture(const QString& name, QPoint at) { Picture(name, QRect(at, Size(name))); }
  // A picture stretched over `r`, as the player does with the frame strips.
  void Picture(const QString& name, const QRect& r) {
    const QImage& picture = skin.Image(name);
    if (!picture.isNull()) p.drawImage(r, picture);
  }
  void PictureClipped(const QString& name, QPoint at, const QRect& clip) {
    p.save();
    p.setClipRect(clip, Qt::IntersectClip);
    Picture(name, at);
    p.restore();
  }
  QSize Size(const QString& name) const { return skin.Image(name).size(); }

  void Text(const QRect& r, const QString& text, int line, const QFont& font,
            Qt::Alignment align = Qt::AlignLeft) {
    p.save();
    p.setClipRect(r, Qt::IntersectClip);
    p.setFont(font);
    p.setPen(skin.TextColour(line));
    p.drawText(r, static_cast<int>((align | Qt::AlignVCenter).toInt()) | Qt::TextSingleLine, text);
    p.restore();
  }

  void Fill(const QRect& r, const QColor& c) { p.fillRect(r, c); }
  void Drawing(const QImage& drawing, QPoint at, const QRect& clip) {
    p.save();
    p.setClipRect(clip, Qt::IntersectClip);
    p.drawImage(at, drawing);
    p.restore();
  }

  // A slider of the player: end pictures, the track tiled between them and
  // the thumb at `value` (0 to 1) of its travel.
  void Slider(const QRect& r, bool vertical, double value, bool hover = false) {
    const QString kind = vertical ? QStringLiteral("v-scrollbar-") : QStringLiteral("h-scrollbar-");
    const QString first = kind + (vertical ? QStringLiteral("up.bmp") : QStringLiteral("left.bmp"));
    const QString last =
        kind + (vertical ? QStringLiteral("down.bmp") : QStringLiteral("right.bmp"));
    const QString thumb =
        kind + (hover ? QStringLiteral("thumb-focus.bmp") : QStringLiteral("thumb.bmp"));
    const QSize a = Size(first), b = Size(last), t = Size(thumb),
                tile = Size(kind + "background.bmp");
    QRect track;
    if (vertical) {
      Picture(first, r.topLeft());
      Picture(last, QPoint(r.left(), r.bottom() + 1 - b.height()));
      track =
          QRect(r.left(), r.top() + a.height(), r.width(), r.height() - a.height() - b.height());
    } else {
      Picture(first, r.topLeft());
      Picture(last, QPoint(r.right() + 1 - b.width(), r.top()));
      track = QRect(r.left() + a.width(), r.top(), r.width() - a.width() - b.width(), r.height());
    }
    p.save();
    p.setClipRect(track, Qt::IntersectClip);
    for (int y = track.top(); y <= track.bottom(); y += std::max(1, tile.height())) {
      for (int x = track.left(); x <= track.right(); x += std::max(1, tile.width())) {
        Picture(kind + "background.bmp", QPoint(x, y));
      }
    }
    p.restore();
    const int travel = vertical ? track.height() - t.height() : track.width() - t.width();
    const int at = static_cast<int>(value * travel + 0.5);
    Picture(thumb, vertical ? QPoint(track.left(), track.top() + at)
                            : QPoint(track.left() + at, track.top()));
  }

  // The window mask rounds the corners; outside it the desktop shows.
  QImage OnDesktop() {
    p.end();
    QImage mask(image.size(), QImage::Format_ARGB32_Premultiplied);
    mask.fill(Qt::transparent);
    {
      QPainter m(&mask);
      m.setRenderHint(QPainter::Antialiasing, false);
      m.setPen(Qt::NoPen);
      m.setBrush(Qt::black);
      m.drawRoundedRect(QRectF(0, 0, image.width(), image.height()), L::kCornerRadius,
                        L::kCornerRadius);
    }
    QImage out(image.size() + QSize(2 * kMargin, 2 * kMargin), QImage::Format_ARGB32_Premultiplied);
    out.fill(kDesktop);
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (qAlpha(mask.pixel(x, y)) > 127)
          out.setPixel(x + kMargin, y + kMargin, image.pixel(x, y));
      }
    }
    return out;
  }

  const SkinFolder& skin;
  QImage image;
  QPainter p;
};

// The frame pieces and the title bar; `closeFromRight` 0 puts the title
// buttons where the player windows have them, else only a close button there.
void Frame(Composer& c, QSize size, int rightTop, bool hover, int closeFromRight = 0) {
  const int w = size.width();
  const int h = size.height();
  c.Picture("top-left.bmp", QPoint(0, 0));
  c.Picture("top.bmp", QRect(96, 0, w - 187, L::kTitleHeight));
  c.Picture("top-right.bmp", QPoint(w - 100, 0));
  c.Picture("left.bmp", QRect(0, L::kSideTop, L::kSideStrip.width(), h - 20));
  c.Picture("right.bmp", QRect(w - 12, rightTop, L::kSideStrip.width(), h - 20));
  c.Picture("bottom-left.bmp", QPoint(0, h - 12));
  c.Picture("bottom.bmp", QRect(96, h - 12, w - 187, L::kBottomStrip.height()));
  c.Picture("bottom-right.bmp", QPoint(w - 100, h - 12));
  const QFont font = LabelFont(11);
  const QRect menus[] = {L::kMenuFile, L::kMenuOptions, L::kMenuHelp};
  const QRect labels[] = {L::kMenuFileLabel, L::kMenuOptionsLabel, L::kMenuHelpLabel};
  const char* captions[] = {"File", "Options", "Help"};
  for (int i = 0; i < 3; ++i) {
    const bool lit = hover && i == 1;
    c.Picture(lit ? "menu-hover.bmp" : "menu-normal.bmp", menus[i]);
    c.Text(labels[i], QString::fromLatin1(captions[i]), 1, font);
  }
  if (closeFromRight > 0) {
    c.Picture("close-normal.bmp", QPoint(w - closeFromRight, 0));
    return;
  }
  // The main window shows the minimize button hovered, the mini window the
  // close button.
  const bool mini = size.width() == L::kMiniWidth;
  c.Picture(hover && !mini ? "minimize-hover.bmp" : "minimize-normal.bmp",
            QPoint(w - L::kMinimizeFromRight, 0));
  c.Picture(hover && mini ? "close-hover.bmp" : "close-normal.bmp",
            QPoint(w - L::kCloseFromRight, 0));
}

void Visual(Composer& c, const SkinFolder& skin, const QRect& r, const Scene& s) {
  if (s.idle) {
    c.Picture("yarvoplayer.bmp", r.topLeft());
    return;
  }
  c.Fill(r, skin.Palette(0));
  c.Drawing(DisplayFrame(skin, s.mode), r.topLeft(), r);
}

void MainPanel(Composer& c, const SkinFolder& skin, const Scene& s) {
  const QPoint o = L::kPanelOrigin;
  const QRect panel(o,
                    QSize(L::kPanel.width(), s.full ? L::kPanel.height() : L::kSmallPanelHeight));
  c.PictureClipped("main.jpg", o, panel);
  c.p.save();
  c.p.setClipRect(panel);
  const QFont font = LabelFont(11);
  const QFont bold = LabelFont(11, true);
  const QFont small = LabelFont(9);
  c.Text(L::kClock.translated(o), s.idle ? QStringLiteral("00:00") : QStringLiteral("02:17"), 2,
         LabelFont(16, true));
  c.Text(L::kTotalTime.translated(o), QStringLiteral("04:51"), 2, font);
  c.Text(L::kStatus.translated(o), s.idle ? QStringLiteral("Stopped") : QStringLiteral("Playing"),
         2, bold);
  c.Text(L::kBitRate.translated(o), QStringLiteral("192 Kbps"), 2, small);
  c.Text(L::kTitle.translated(o), QStringLiteral("Nightfall Avenue - Harbour Lights"), 2, bold);
  c.Text(L::kTagLine.translated(o), QStringLiteral("Harbour Lights (2004) Electronic"), 2, font);
  Visual(c, skin, L::kVisual.translated(o), s);
  c.Picture(s.hover ? "button5f.bmp" : "button5b.bmp", L::kButton5 + o);
  c.Picture("button4.bmp", L::kButton4 + o);
  c.Picture("button2.bmp", L::kButton2 + o);
  c.Picture("button3.bmp", L::kButton3 + o);
  c.Text(L::kInfoCaption.translated(o), QStringLiteral("Multimedia info"), 3, bold);
  const char* facts[] = {"4812345 Bytes", "291 Sec", "MPEG 1 Layer III", "44100 Hz  Joint Stereo"};
  for (int i = 0; i < 4; ++i) {
    c.Text(QRect(L::kInfoCaption.left(), L::kFactsTop[i], 120, L::kFactHeight).translated(o),
           QString::fromLatin1(facts[i]), 3, small);
  }
  const int bands[] = {36, 30, 38, 46, 52, 56, 50, 42, 34, 28};
  c.Slider(QRect(QPoint(L::kReverbX, L::kEqTop) + o, L::kEqSlider), true, 0.7);
  for (int b = 0; b < L::kBands; ++b) {
    c.Slider(QRect(QPoint(L::kFirstBandX + b * L::kBandStep, L::kEqTop) + o, L::kEqSlider), true,
             bands[b] / 100.0, s.hover && b == 5);
  }
  c.p.restore();
}

void RightColumn(Composer& c, QSize size, const Scene& s) {
  const QPoint column(size.width() - L::kRightColumnFromRight, L::kRightColumnTop);
  const int height = s.full ? L::kRightColumn.height() : L::kSmallRightColumnHeight;
  c.Fill(QRect(column, QSize(L::kRightColumn.width(), height)), c.skin.Background());
  c.PictureClipped("controls-background.bmp", column + L::kTransportInColumn,
                   QRect(column + L::kTransportInColumn, L::kTransportShown));
  if (!s.full) return;
  const QFont font = LabelFont(9);
  const QRect info(column + L::kInfoPlate, L::kLabelPlate);
  const QRect list(column + L::kPlaylistPlate, L::kLabelPlate);
  c.Picture(s.hover ? "button-focus.bmp" : "button.bmp", info.topLeft());
  c.Picture("button.bmp", list.topLeft());
  c.Text(info, QStringLiteral("Info"), 4, font, Qt::AlignHCenter);
  c.Text(list, QStringLiteral("Playlist"), 4, font, Qt::AlignHCenter);
  c.Picture("logo.bmp",
            QPoint(size.width() - L::kLogoFromRight, size.height() - L::kLogoFromBottom));
}

void BottomRow(Composer& c, QSize size) {
  const int h = size.height();
  c.Slider(L::kSeekBar.translated(0, h), false, 0.47);
  c.Picture("vol-pic.bmp", L::kSpeaker + QPoint(0, h));
  c.Slider(L::kVolumeBar.translated(0, h), false, 0.8);
  const int g = L::kGripFromCorner;
  c.Text(QRect(size.width() - g, h - g, g, g), QStringLiteral("o"), 3, LabelFont(9));
}

QImage Scaled(const QImage& image, int factor) {
  return image.scaled(image.size() * factor, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

}  // namespace

QImage MainWindow(const SkinFolder& skin, const Scene& s) {
  const QSize size(L::kMainWidth, s.full ? L::kFullHeight : L::kSmallHeight);
  Composer c(skin, size);
  Frame(c, size, L::kRightTopMain, s.hover);
  MainPanel(c, skin, s);
  RightColumn(c, size, s);
  BottomRow(c, size);
  return c.OnDesktop();
}

QImage MiniWindow(const SkinFolder& skin, const Scene& s) {
  const QSize size(L::kMiniWidth, L::kMiniHeight);
  Composer c(skin, size);
  Frame(c, size, L::kSideTop, s.hover);
  c.Picture("main-mini.jpg", L::kMiniPanelOrigin);
  const QFont bold = LabelFont(11, true);
  c.Text(L::kMiniClock, QStringLiteral("02:17"), 2, LabelFont(16, true));
  c.Text(L::kMiniTotalTime, QStringLiteral("04:51"), 2, LabelFont(11));
  c.Text(L::kMiniStatus, QStringLiteral("Playing"), 2, bold);
  c.Text(L::kMiniTitle, QStringLiteral("Nightfall Avenue - Harbour Lights"), 2, bold);
  if (!s.idle) {
    c.Fill(L::kMiniVisual, skin.Background());
    c.Drawing(
        DisplayFrame(skin, s.mode), L::kMiniVisual.topLeft(),
        QRect(L::kMiniVisual.topLeft(), QSize(L::kMiniVisual.width(), L::kSpectrum.height())));
  }
  c.PictureClipped("controls-background.bmp", L::kMiniTransport,
                   QRect(L::kMiniTransport, L::kTransportShown));
  c.Slider(L::kMiniVolumeBar, false, 0.8);
  c.Slider(L::kMiniSeekBar, false, 0.47);
  c.Picture("vol-pic.bmp", L::kMiniSpeaker);
  return c.OnDesktop();
}

QImage PlaylistWindow(const SkinFolder& skin) {
  const QSize size(L::kPlaylistWidth, L::kPlaylistHeight);
  const int w = size.width();
  const int h = size.height();
  Composer c(skin, size);
  Frame(c, size, L::kSideTop, false, L::kPlaylistCloseFromRight);
  const QRect list(6, 24, w - 12, h - 57);
  c.Fill(list, skin.TextColour(5));
  const char* titles[] = {"Nightfall Avenue - Harbour Lights",
                          "Cold Coast - Paper Boats",
                          "Mira Sol - Undertow",
                          "The Lanterns - Slow Train",
                          "Kite Season - Amber",
                          "Hollow Pines - Night Drive",
                          "Juniper - Static",
                          "Low Orbit - Satellites"};
  const QFont font = LabelFont(11);
  for (int i = 0; i < 8; ++i) {
    c.Text(QRect(list.left() + 3, list.top() + 1 + i * 14, list.width() - 30, 14),
           QString::fromLatin1(titles[i]), 6, font);
  }
  const QRect trough(w - 23, 25, 16, h - 44);
  c.Fill(trough, skin.Background());
  c.Slider(QRect(w - 21, 25, 14, h - 48), true, 0.0);
  c.Picture("playlist-thumb.bmp", QPoint(w - 21, 25 + L::kVEnd.height()));
  c.Text(QRect(w - 13, h - 13, 13, 13), QStringLiteral("o"), 3, font);
  return c.OnDesktop();
}

QImage TransportSheet(const SkinFolder& skin) {
  struct Button {
    const char* stem;
    QRect where;
  };
  const Button buttons[] = {{"back", L::kBack},
                            {"pause", L::kPause},
                            {"play", L::kPlay},
                            {"stop", L::kStop},
                            {"next", L::kNext}};
  const int cell = L::kTransport.width() + 8;
  QImage sheet(QSize(cell * 6, (L::kTransport.height() + 8) * 2),
               QImage::Format_ARGB32_Premultiplied);
  sheet.fill(skin.Background());
  QPainter p(&sheet);
  for (int row = 0; row < 2; ++row) {
    const QPoint rest(4, 4 + row * (L::kTransport.height() + 8));
    p.drawImage(
        rest, skin.Image("controls-background.bmp").copy(QRect(QPoint(0, 0), L::kTransportShown)));
    for (int i = 0; i < 5; ++i) {
      const QPoint at = rest + QPoint(cell * (i + 1), 0);
      p.save();
      p.setClipRect(QRect(at, L::kTransportShown));
      p.drawImage(at, skin.Image("controls-background.bmp"));
      const QString name =
          QString::fromLatin1(buttons[i].stem) +
          (row == 0 ? QStringLiteral("-hover.bmp") : QStringLiteral("-mousedown.bmp"));
      p.drawImage(at + buttons[i].where.topLeft(), skin.Image(name));
      p.restore();
    }
  }
  p.end();
  return sheet;
}

QImage Enlarged(const QImage& image) { return Scaled(image, 2); }

}  // namespace skingen
