#include "platform/qt/QtDesktop.h"

#include "platform/qt/FormHost.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMessageBox>
#include <QScreen>
#include <QUrl>

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

}  // namespace

void QtDesktop::MsgBox(const std::string& prompt, const std::string& title) {
  QMessageBox box(QMessageBox::NoIcon, FromUtf8(title), FromUtf8(prompt), QMessageBox::Ok);
  box.exec();
}

std::string QtDesktop::GetOpenFileName(const OpenFileRequest& request) {
  QFileDialog dialog(nullptr, FromUtf8(request.title), QString(), QtFilter(request));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::ReadOnly, false);
  dialog.setDefaultSuffix(FromUtf8(request.defaultExtension));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().first().toStdString();
}

std::string QtDesktop::BrowseForFolder(const std::string& title) {
  return QFileDialog::getExistingDirectory(nullptr, FromUtf8(title)).toStdString();
}

void QtDesktop::OpenWebPage(const std::string& url) {
  QDesktopServices::openUrl(QUrl(FromUtf8(url)));
}

TwipsSize QtDesktop::ScreenSize() const {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QSize size = screen ? screen->size() : QSize(1920, 1080);
  return {size.width() * kTwipsPerPixel, size.height() * kTwipsPerPixel};
}

void QtDesktop::DoEvents() { QCoreApplication::processEvents(); }

}  // namespace yarvo
