// A file manager's part in a test: a small window that, pressed with the
// mouse, drags the files named on its command line as a file manager does
// (text/uri-list, every name's bytes escaped, whatever their encoding),
// until the button is let go over a drop target.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QWidget>

#include "platform/FileUri.h"

namespace {

class Source final : public QWidget {
 public:
  explicit Source(QByteArray uriList) : uriList_(std::move(uriList)) {
    setWindowTitle("Drag source");
    setGeometry(20, 600, 120, 60);
  }

 protected:
  void mousePressEvent(QMouseEvent*) override {
    auto* drag = new QDrag(this);
    auto* uris = new QMimeData;
    uris->setData("text/uri-list", uriList_);
    drag->setMimeData(uris);
    drag->exec(Qt::CopyAction);
  }

 private:
  QByteArray uriList_;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QByteArray uriList;
  for (int i = 1; i < argc; ++i) uriList += (yarvo::UriOfLocalPath(argv[i]) + "\r\n").c_str();
  Source source(uriList);
  source.show();
  return QApplication::exec();
}
