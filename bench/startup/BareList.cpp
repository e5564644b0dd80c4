// The floor of the start-up benchmark: the least a Qt 6 program does to
// show a playlist file's rows as titles. It reads the file (one path a CR LF
// line), makes each row its file name without the extension, and shows them
// in a QListView on a QStringListModel.

#include <QApplication>
#include <QFile>
#include <QListView>
#include <QStringListModel>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QStringList titles;
  if (argc > 1) {
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (file.open(QIODevice::ReadOnly)) {
      for (const QByteArray& line : file.readAll().split('\n')) {
        const QByteArray path = line.trimmed();
        if (path.isEmpty()) continue;
        const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
        const qsizetype dot = name.lastIndexOf('.');
        titles << QString::fromLocal8Bit(dot > 0 ? name.left(dot) : name);
      }
    }
  }
  QStringListModel model(titles);
  QListView view;
  view.setModel(&model);
  // Rows of one height, as the player draws them: the floor does not
  // measure 30,000 rows it never shows.
  view.setUniformItemSizes(true);
  view.resize(300, 400);
  view.show();
  return QApplication::exec();
}
