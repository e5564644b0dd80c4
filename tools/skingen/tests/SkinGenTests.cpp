// Tests of the skin generator: the contrast arithmetic, skin.ini, and the
// written folders (sizes, formats, seams between pieces, determinism).

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <cstdio>

#include "Contrast.h"
#include "Generator.h"
#include "Layout.h"
#include "Manifest.h"
#include "Paint.h"
#include "PixelFont.h"
#include "Preview.h"
#include "SkinFolder.h"
#include "SkinWriter.h"
#include "Theme.h"

namespace skingen {
namespace {

namespace L = layout;

// Sum of the channel differences; JPEG leaves a few units of noise.
int Distance(const QColor& a, const QColor& b) {
  return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
         std::abs(a.blue() - b.blue());
}

// The box around the pixels where `lit`, put at `at` on `plate`, differs
// from it: the part of the key a hover or pressed picture changes.
QRect Changed(const QImage& plate, const QImage& lit, QPoint at) {
  QRect box;
  for (int y = 0; y < lit.height(); ++y) {
    for (int x = 0; x < lit.width(); ++x) {
      if (lit.pixel(x, y) != plate.pixel(at + QPoint(x, y)))
        box |= QRect(at + QPoint(x, y), QSize(1, 1));
    }
  }
  return box;
}

TEST(Contrast, MatchesTheWcagReferenceValues) {
  EXPECT_NEAR(ContrastRatio(Qt::white, Qt::black), 21.0, 1e-9);
  EXPECT_NEAR(ContrastRatio(Qt::black, Qt::white), 21.0, 1e-9);
  EXPECT_NEAR(ContrastRatio(QColor("#336699"), QColor("#336699")), 1.0, 1e-9);
  // #767676 is the lightest grey that passes 4.5:1 on white; #777777 fails.
  EXPECT_NEAR(ContrastRatio(QColor("#767676"), Qt::white), 4.54, 0.005);
  EXPECT_LT(ContrastRatio(QColor("#777777"), Qt::white), kMinimumContrast);
  // The linear segment of the sRGB curve below 0.04045.
  EXPECT_NEAR(RelativeLuminance(QColor(10, 10, 10)), (10 / 255.0) / 12.92, 1e-9);
}

TEST(Theme, ColourNamesAreExactLowerCase) {
  EXPECT_EQ(NamedColour("gray"), QColor("#f0f0f0"));
  EXPECT_EQ(NamedColour("blue"), QColor("#0000ff"));
  EXPECT_EQ(NamedColour("red"), QColor("#ff0000"));
  EXPECT_FALSE(NamedColour("Gray").isValid());
  EXPECT_FALSE(NamedColour(" white").isValid());
}

TEST(Theme, PaletteEntriesFollowThePlayersRule) {
  const QColor zero(1, 2, 3);
  EXPECT_EQ(PaletteEntry(zero, 2.0, 0.6, 0), zero);
  EXPECT_EQ(PaletteEntry(zero, 2.0, 0.6, 1), QColor(253, 2, 1));
  EXPECT_EQ(PaletteEntry(zero, 2.0, 0.6, 40), QColor(175, 80, 24));
  EXPECT_EQ(PaletteEntry(zero, 2.0, 0.6, 127), QColor(1, 254, 76));
}

TEST(SkinIni, HasSeventeenLinesTheLoaderUnderstands) {
  for (const Theme& theme : {DefaultTheme(), AluminiumTheme()}) {
    SCOPED_TRACE(theme.name.toStdString());
    const QStringList lines = SkinIni(theme).split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 17);
    const auto value = [&](int i) { return lines[i].mid(lines[i].lastIndexOf('=') + 1); };
    for (int line = 1; line <= 6; ++line) EXPECT_TRUE(NamedColour(value(line)).isValid()) << line;
    EXPECT_EQ(QColor(value(7).toInt(), value(8).toInt(), value(9).toInt()), theme.screen);
    EXPECT_EQ(QColor(value(13).toInt(), value(14).toInt(), value(15).toInt()), theme.body);
    bool ok = false;
    const double green = value(11).toDouble(&ok);
    EXPECT_TRUE(ok);
    const double blue = value(12).toDouble(&ok);
    EXPECT_TRUE(ok);
    // The player skips a product that does not fit a byte.
    EXPECT_LE(127 * green, 255.4);
    EXPECT_LE(127 * blue, 255.4);
    EXPECT_EQ(value(16), "false");
  }
}

// Every character the skins print in the tall face, and every digit, has a
// glyph: a missing one would silently draw as a blank.
TEST(PixelFont, TallFaceHasEveryCharacterTheSkinsPrint) {
  const QString texts[] = {"VIS", "EQ", "PRESETS", "LIST", "MEDIA", "SETUP", "REV",
                           "+10", "0",  "-10",     "80",   "150",   "300",   "500",
                           "750", "1K", "3K",      "8K",   "12K",   "15K",   "24679"};
  for (const QString& text : texts) {
    const int width = PixelTextWidth(text, 1, PixelFace::Tall);
    QImage image(width, PixelFaceHeight(PixelFace::Tall), QImage::Format_RGB32);
    image.fill(Qt::black);
    {
      QPainter p(&image);
      DrawPixelText(p, 0, 0, text, Qt::white, 1, PixelFace::Tall);
    }
    int x = 0;
    for (const QChar c : text) {
      const int glyph = PixelTextWidth(QString(c), 1, PixelFace::Tall);
      int ink = 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int i = x; i < x + glyph; ++i) ink += image.pixel(i, y) == QColor(Qt::white).rgb();
      }
      EXPECT_GT(ink, 0) << text.toStdString() << ": '" << QString(c).toStdString() << "'";
      x += glyph + 1;
    }
  }
}

// One generated data folder shared by the tests that read it.
class Generated : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    dir_ = new QTemporaryDir;
    std::FILE* quiet = std::fopen("/dev/null", "w");
    status_ = GenerateAll(dir_->path(), quiet);
    std::fclose(quiet);
  }
  static void TearDownTestSuite() { delete dir_; }
  static QString Skin(const QString& name) { return dir_->path() + "/Skins/" + name; }
  static QImage Load(const QString& skin, const QString& file) {
    return QImage(Skin(skin) + "/" + file).convertToFormat(QImage::Format_RGB32);
  }

  // The frame of a window of `size` as the player puts it together.
  static QImage Frame(const QString& skin, QSize size) {
    const int w = size.width();
    const int h = size.height();
    QImage frame(size, QImage::Format_RGB32);
    frame.fill(SkinFolder(Skin(skin)).Background());
    QPainter p(&frame);
    p.drawImage(QPoint(0, 0), Load(skin, "top-left.bmp"));
    p.drawImage(QRect(96, 0, w - 187, L::kTitleHeight), Load(skin, "top.bmp"));
    p.drawImage(QPoint(w - 100, 0), Load(skin, "top-right.bmp"));
    p.drawImage(QRect(0, L::kSideTop, 11, h - 20), Load(skin, "left.bmp"));
    p.drawImage(QRect(w - 12, L::kRightTopMain, 11, h - 20), Load(skin, "right.bmp"));
    p.drawImage(QPoint(0, h - 12), Load(skin, "bottom-left.bmp"));
    p.drawImage(QRect(96, h - 12, w - 187, 11), Load(skin, "bottom.bmp"));
    p.drawImage(QPoint(w - 100, h - 12), Load(skin, "bottom-right.bmp"));
    return frame;
  }

  static inline QTemporaryDir* dir_ = nullptr;
  static inline int status_ = -1;
};

TEST_F(Generated, EveryFileExistsAtItsSizeAndFormat) {
  ASSERT_EQ(status_, 0);
  for (const QString skin : {"Default", "Aluminium"}) {
    for (const SkinFile& f : SkinManifest()) {
      SCOPED_TRACE((skin + "/" + f.name).toStdString());
      QFile file(Skin(skin) + "/" + f.name);
      ASSERT_TRUE(file.open(QIODevice::ReadOnly));
      const QByteArray head = file.read(30);
      if (f.name.endsWith(".bmp")) {
        ASSERT_TRUE(head.startsWith("BM"));
        EXPECT_EQ(static_cast<unsigned char>(head[28]), 24) << "bits per pixel";
      } else {
        EXPECT_TRUE(head.startsWith("\xff\xd8")) << "a JPEG file";
      }
      EXPECT_EQ(QImage(file.fileName()).size(), f.size);
    }
    EXPECT_EQ(QDir(Skin(skin)).entryList(QDir::Files).size(),
              static_cast<qsizetype>(SkinManifest().size()) + 1);
  }
}

TEST_F(Generated, StretchedPiecesAreUniformAlongTheirAxis) {
  for (const QString skin : {"Default", "Aluminium"}) {
    for (const SkinFile& f : SkinManifest()) {
      if (f.stretch == SkinFile::Stretch::None) continue;
      SCOPED_TRACE((skin + "/" + f.name).toStdString());
      const QImage image = Load(skin, f.name);
      const bool across = f.stretch == SkinFile::Stretch::Horizontal;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
          const QRgb first = across ? image.pixel(0, y) : image.pixel(x, 0);
          ASSERT_EQ(image.pixel(x, y), first) << x << "," << y;
        }
      }
    }
  }
}

// Frame pieces overlap where the windows put them; the overlapping pixels
// must agree, whichever piece the window draws last.
TEST_F(Generated, FramePiecesAgreeWhereTheyOverlap) {
  for (const QString skin : {"Default", "Aluminium"}) {
    SCOPED_TRACE(skin.toStdString());
    const QImage topLeft = Load(skin, "top-left.bmp");
    const QImage top = Load(skin, "top.bmp");
    const QImage topRight = Load(skin, "top-right.bmp");
    const QImage right = Load(skin, "right.bmp");
    const QImage logo = Load(skin, "logo.bmp");
    for (int y = 0; y < L::kTitleHeight; ++y) {
      for (int x = 96; x < 100; ++x)
        EXPECT_EQ(topLeft.pixel(x, y), top.pixel(0, y)) << x << "," << y;
      for (int x = 0; x < 9; ++x) EXPECT_EQ(topRight.pixel(x, y), top.pixel(0, y)) << x << "," << y;
    }
    // The main window's right edge starts at y 8, over the corner's lower
    // part; below the corner's curve the two are the same.
    for (int y = L::kCornerRadius; y < L::kTitleHeight; ++y) {
      for (int x = 0; x < right.width(); ++x) {
        EXPECT_EQ(topRight.pixel(88 + x, y), right.pixel(x, 0)) << x << "," << y;
      }
    }
    // The logo reaches the window's right edge and covers the rim and the
    // corner there.
    const QImage frame = Frame(skin, QSize(L::kMainWidth, L::kFullHeight));
    const QPoint at(L::kMainWidth - L::kLogoFromRight, L::kFullHeight - L::kLogoFromBottom);
    for (int y = 0; y < logo.height(); ++y) {
      for (int x = logo.width() - 12; x < logo.width(); ++x) {
        EXPECT_EQ(logo.pixel(x, y), frame.pixel(at + QPoint(x, y))) << x << "," << y;
      }
    }
  }
}

TEST_F(Generated, SmallButtonsAndThumbsBlendIntoWhatLiesUnder) {
  for (const QString skin : {"Default", "Aluminium"}) {
    SCOPED_TRACE(skin.toStdString());
    const QImage panel = Load(skin, "main.jpg");
    const QImage button = Load(skin, "button2.bmp");
    // Row 0 of a small button is the panel under it; JPEG leaves a little noise.
    for (int x = 0; x < button.width(); ++x) {
      EXPECT_LE(
          Distance(button.pixelColor(x, 0), panel.pixelColor(L::kButton2.x() + x, L::kButton2.y())),
          9)
          << x;
    }
    // A thumb's first row is the track's first row.
    EXPECT_EQ(Load(skin, "h-scrollbar-thumb.bmp").pixel(0, 0),
              Load(skin, "h-scrollbar-background.bmp").pixel(0, 0));
    EXPECT_EQ(Load(skin, "v-scrollbar-thumb.bmp").pixel(0, 0),
              Load(skin, "v-scrollbar-background.bmp").pixel(0, 0));
  }
}

TEST_F(Generated, TransportKeysStandEvenlyAroundPlay) {
  for (const QString skin : {"Default", "Aluminium"}) {
    SCOPED_TRACE(skin.toStdString());
    const QImage plate = Load(skin, "controls-background.bmp");
    const auto key = [&](const char* stem, const QRect& where) {
      const QRect lit = Changed(plate, Load(skin, QString(stem) + "-hover.bmp"), where.topLeft());
      EXPECT_TRUE(QRect(QPoint(0, 0), L::kTransportShown).contains(lit))
          << stem << " lights up outside the part of the plate the player shows";
      return lit;
    };
    const QRect pause = key("pause", L::kPause), back = key("back", L::kBack),
                play = key("play", L::kPlay), next = key("next", L::kNext),
                stop = key("stop", L::kStop);
    const auto middle = [](const QRect& r) { return r.top() + r.height() / 2.0; };
    EXPECT_NEAR(middle(back), middle(play), 0.5);
    EXPECT_NEAR(middle(next), middle(play), 0.5);
    EXPECT_LE(std::abs((play.top() - pause.bottom()) - (stop.top() - play.bottom())), 1);
    EXPECT_EQ(play.left() - back.right(), next.left() - play.right()) << "previous and next mirror";
    // The pressed look is darker: its key's face averages lower than the hover's.
    const QImage pressed = Load(skin, "back-mousedown.bmp");
    const QImage hover = Load(skin, "back-hover.bmp");
    EXPECT_LT(RelativeLuminance(AverageColour(pressed, pressed.rect())),
              RelativeLuminance(AverageColour(hover, hover.rect())));
  }
}

// Where two pieces stand side by side, the art keeps a strip of the
// window's body between them.
TEST_F(Generated, NeighbouringPiecesKeepAGapOfBody) {
  for (const QString skin : {"Default", "Aluminium"}) {
    SCOPED_TRACE(skin.toStdString());
    const QColor body = SkinFolder(Skin(skin)).Background();
    const QImage plate = Load(skin, "button.bmp");
    const QImage speaker = Load(skin, "vol-pic.bmp");
    for (int x = 0; x < plate.width(); ++x) {
      EXPECT_EQ(plate.pixelColor(x, 0), body) << "the Info plate's top row, " << x;
      EXPECT_EQ(plate.pixelColor(x, plate.height() - 1), body) << "its bottom row, " << x;
    }
    for (int y = 0; y < speaker.height(); ++y) {
      for (int x = 0; x < 2; ++x) EXPECT_EQ(speaker.pixelColor(x, y), body) << x << "," << y;
    }
    // Below the display, above the equalizer's tray.
    const QImage panel = Load(skin, "main.jpg");
    for (int x = L::kReverbX; x < L::kPanel.width() - 4; x += 2) {
      EXPECT_LE(Distance(panel.pixelColor(x, L::kVisual.bottom() + 3), body), 9) << x;
    }
  }
}

// The player puts a flat picture of entry 0 on the display: the display
// around it is entry 0 too, so no seam shows at its top.
TEST_F(Generated, TheDisplayIsFlatWhereTheVisualisationStands) {
  for (const QString skin : {"Default", "Aluminium"}) {
    SCOPED_TRACE(skin.toStdString());
    const QColor zero = SkinFolder(Skin(skin)).Palette(0);
    const QImage panel = Load(skin, "main.jpg");
    const QImage idle = Load(skin, "yarvoplayer.bmp");
    const QRect v = L::kVisual;
    for (int x = v.left(); x <= v.right(); x += 4) {
      EXPECT_LE(Distance(panel.pixelColor(x, v.top() - 1), zero), 9) << "above, " << x;
      EXPECT_LE(Distance(panel.pixelColor(x, v.top()), zero), 9) << "on the top row, " << x;
    }
    for (int y = v.top(); y < v.bottom(); y += 4) {
      EXPECT_LE(Distance(panel.pixelColor(v.right() + 2, y), zero), 9) << "right of it, " << y;
    }
    for (const QPoint corner : {QPoint(0, 0), QPoint(idle.width() - 1, idle.height() - 1)})
      EXPECT_EQ(idle.pixelColor(corner), zero) << "the idle picture's ground";
  }
}

// The box around the pixels of `area` that stand out from `ground` (a
// contrast of 2:1 or more: JPEG noise stays well below), and the strongest
// contrast among them.
struct Ink {
  QRect box;
  double contrast = 1;
};

Ink InkIn(const QImage& image, const QRect& area, const QColor& ground) {
  Ink ink;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      const double c = ContrastRatio(image.pixelColor(x, y), ground);
      if (c < 2) continue;
      ink.box |= QRect(x, y, 1, 1);
      ink.contrast = std::max(ink.contrast, c);
    }
  }
  return ink;
}

// The equalizer's legends are printed in the tall face where the sliders
// leave the tray's floor bare: under each slider, within its width, and
// the scale's numbers between the reverb and the first band, each centred
// on its mark; each reads at 4.5:1 or more.
TEST_F(Generated, EqualizerLegendsAreTallAndFitWhereTheSlidersLeaveRoom) {
  const int tall = PixelFaceHeight(PixelFace::Tall);
  const int sliderBottom = L::kEqTop + L::kEqSlider.height() - 1;
  const int trayFloorBottom = L::kPanel.height() - 7;  // the tray's lip is the row below
  for (const QString skin : {"Default", "Aluminium"}) {
    SCOPED_TRACE(skin.toStdString());
    const QImage panel = Load(skin, "main.jpg");
    const QColor floor = AverageColour(panel, QRect(L::kReverbX + 14, L::kEqTop + 2, 10, 4));
    const auto check = [&](const Ink& ink, const QString& what) {
      SCOPED_TRACE(what.toStdString());
      EXPECT_EQ(ink.box.height(), tall);
      EXPECT_GE(ink.contrast, kMinimumContrast);
    };
    struct Column {
      int left;
      const char* text;
    };
    std::vector<Column> columns = {{L::kReverbX, "REV"}};
    const char* bands[] = {"80", "150", "300", "500", "750", "1K", "3K", "8K", "12K", "15K"};
    for (int b = 0; b < L::kBands; ++b)
      columns.push_back({L::kFirstBandX + b * L::kBandStep, bands[b]});
    for (const Column& c : columns) {
      // Two rows of floor part the legend from the slider's groove.
      const QRect below(c.left - 1, sliderBottom + 1, L::kEqSlider.width() + 2,
                        trayFloorBottom - sliderBottom);
      const Ink ink = InkIn(panel, below, floor);
      check(ink, c.text);
      EXPECT_GE(ink.box.top(), sliderBottom + 2) << c.text;
      EXPECT_GE(ink.box.left(), c.left) << c.text << " reaches under the slider to its left";
      EXPECT_LE(ink.box.right(), c.left + L::kEqSlider.width() - 1) << c.text;
      EXPECT_GE(ink.box.width(), PixelTextWidth(c.text, 1, PixelFace::Tall)) << c.text;
    }
    // Between the reverb's picture and the first band's, left of the marks.
    const int gapLeft = L::kReverbX + L::kEqSlider.width();
    const int marks = L::kFirstBandX - 4;
    const int top = L::kEqTop + 12;
    const std::pair<int, const char*> scale[] = {{0, "+10"}, {28, "0"}, {56, "-10"}};
    for (const auto& [offset, text] : scale) {
      const QRect beside(gapLeft, top + offset - tall, marks - 1 - gapLeft, 2 * tall);
      const Ink ink = InkIn(panel, beside, floor);
      check(ink, text);
      EXPECT_NEAR(ink.box.top() + ink.box.height() / 2.0, top + offset + 0.5, 0.5) << text;
      EXPECT_GE(ink.box.width(), PixelTextWidth(text, 1, PixelFace::Tall)) << text;
    }
  }
}

TEST_F(Generated, ContrastOfEveryTextReachesTheMinimum) {
  for (const QString skin : {"Default", "Aluminium"}) {
    const auto pairs = MeasureContrast(SkinFolder(Skin(skin)));
    EXPECT_GE(pairs.size(), 20u);
    for (const ContrastPair& pair : pairs) {
      EXPECT_GE(pair.ratio, kMinimumContrast)
          << skin.toStdString() << " " << pair.where.toStdString();
    }
  }
}

TEST_F(Generated, IconsAreWrittenAtTheirSizesOnTransparentGround) {
  for (const int n : L::kMenuIconNumbers) {
    const QImage icon(dir_->path() + QString("/Icons/menu-%1.png").arg(n));
    ASSERT_EQ(icon.size(), QSize(16, 16)) << n;
    EXPECT_TRUE(icon.hasAlphaChannel()) << n;
    EXPECT_EQ(qAlpha(icon.pixel(0, 15)), 0) << n;
  }
  for (const int size : L::kAppIconSizes) {
    const QImage icon(dir_->path() + QString("/Icons/yarvo-player-%1.png").arg(size));
    ASSERT_EQ(icon.size(), QSize(size, size)) << size;
    EXPECT_GT(qAlpha(icon.pixel(size / 2, size / 2)), 250) << size;
  }
}

TEST_F(Generated, ASecondRunWritesTheSameBytes) {
  QTemporaryDir again;
  std::FILE* quiet = std::fopen("/dev/null", "w");
  ASSERT_EQ(GenerateAll(again.path(), quiet), 0);
  std::fclose(quiet);
  int files = 0;
  for (QDirIterator it(dir_->path(), QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
    const QString path = it.next();
    QFile a(path);
    QFile b(again.path() + path.mid(dir_->path().size()));
    ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly)) << path.toStdString();
    EXPECT_EQ(a.readAll(), b.readAll()) << path.toStdString();
    ++files;
  }
  EXPECT_GT(files, 100);
}

TEST_F(Generated, PreviewsComeFromAFolderAndNeedASkinIni) {
  QTemporaryDir out;
  const QStringList written = WritePreviews(Skin("Default"), out.path());
  EXPECT_GE(written.size(), 10);
  for (const QString& path : written) EXPECT_FALSE(QImage(path).isNull()) << path.toStdString();
  EXPECT_TRUE(WritePreviews(out.path(), out.path()).isEmpty());
}

}  // namespace
}  // namespace skingen

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
