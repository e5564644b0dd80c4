#include "platform/qt/QtDesktop.h"

#include "core/form/RuntimeError.h"
#include "core/form/Twips.h"
#include "platform/qt/QtEvents.h"

#include <QApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QFileDialog>
#include <QImageReader>
#include <QMessageBox>
#include <QScreen>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace yarvo {

namespace {

QString FromUtf8(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// "Media (*.mp3)" with patterns "*.mp3;*.wav" becomes "Media (*.mp3 *.wav)":
// Qt separates patterns by blanks.
QString QtFilter(const OpenFileRequest& request) {
  QString patterns = FromUtf8(request.filterPattern);
  patterns.replace(';', ' ');
  return FromUtf8(request.filterDescription) + " (" + patterns.trimmed() + ")";
}

// Without a display (Qt's offscreen platform) a dialog could never be
// answered: it would block the program for ever.
bool NoOneToAsk() { return QGuiApplication::platformName() == "offscreen"; }

// What a dialog would have asked, for the terminal the program was started from.
void Tell(const std::string& title, const std::string& text) {
  std::fprintf(stderr, "Yarvo Player: %s: %s\n", title.c_str(), text.c_str());
}

}  // namespace

void QtDesktop::MsgBox(const std::string& prompt, const std::string& title) {
  if (NoOneToAsk()) {
    Tell(title, prompt);  // and the box's answer, its only button
    return;
  }
  QMessageBox box(QMessageBox::NoIcon, FromUtf8(title), FromUtf8(prompt), QMessageBox::Ok);
  box.exec();
  QtEvents::EndIfEnded();
}

std::string QtDesktop::GetOpenFileName(const OpenFileRequest& request) {
  if (NoOneToAsk()) {
    Tell(request.title, "no display to choose a file on; cancelled");
    return {};
  }
  QFileDialog dialog(nullptr, FromUtf8(request.title), QString(), QtFilter(request));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::ReadOnly, false);
  dialog.setDefaultSuffix(FromUtf8(request.defaultExtension));
  const bool chosen = dialog.exec() == QDialog::Accepted;
  QtEvents::EndIfEnded();
  if (!chosen || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().first().toStdString();
}

std::string QtDesktop::BrowseForFolder(const std::string& title) {
  if (NoOneToAsk()) {
    Tell(title, "no display to choose a folder on; cancelled");
    return {};
  }
  const QString folder = QFileDialog::getExistingDirectory(nullptr, FromUtf8(title));
  QtEvents::EndIfEnded();
  return folder.toStdString();
}

void QtDesktop::OpenWebPage(const std::string& url) {
  QDesktopServices::openUrl(QUrl(FromUtf8(url)));
}

TwipsSize QtDesktop::ScreenSize() const {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QSize size = screen ? screen->size() : QSize(1920, 1080);
  return {size.width() * kTwipsPerPixel, size.height() * kTwipsPerPixel};
}

// The work area of the screen the program's windows are on; the window
// manager tells it (_NET_WORKAREA) where it keeps panels.
ScreenRect QtDesktop::WorkArea() const {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QRect area = screen ? screen->availableGeometry() : QRect(0, 0, 1920, 1080);
  return {area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
}

ScreenPoint QtDesktop::CursorPos() const {
  const QPoint at = QCursor::pos();
  return {at.x(), at.y()};
}

// Decoded once into 32-bit pixels, in the form the screen draws without a
// conversion; every holder shares them.
Picture QtDesktop::LoadPicture(const std::string& path) {
  QImageReader reader(FromUtf8(path));
  const QImage decoded = reader.read();
  if (decoded.isNull()) throw err::FileNotFound();
  const QImage argb = decoded.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  auto image = std::make_shared<Image>();
  image->width = argb.width();
  image->height = argb.height();
  image->argb.resize(static_cast<std::size_t>(argb.width()) * argb.height());
  for (int y = 0; y < argb.height(); ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(argb.constScanLine(y));
    std::copy(row, row + argb.width(),
              image->argb.begin() + static_cast<std::ptrdiff_t>(y) * argb.width());
  }
  return Picture(std::move(image), path);
}

void QtDesktop::DoEvents() {
  QCoreApplication::processEvents();
  QtEvents::EndIfEnded();
}

}  // namespace yarvo
