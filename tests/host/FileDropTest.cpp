// Files dragged from the file manager onto a window: only local files reach
// the model, as UTF-8 paths in the manager's order, and only on a control
// that takes them, with y in twips from the control's top.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include <memory>
#include <string>
#include <vector>

#include "core/form/Form.h"
#include "core/form/ListBox.h"
#include "host/FormHost.h"

namespace yarvo {
namespace {

class FileDrop : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (QApplication::instance()) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "qt_tests";
    static char* argv[] = {name, nullptr};
    app_ = std::make_unique<QApplication>(argc, argv);
  }
  // Qt must be gone before static destruction begins.
  static void TearDownTestSuite() { app_.reset(); }

  FileDrop() {
    form.Move(0, 0, 6000, 6000);
    list.Move(150, 300, 3000, 3000);  // pixels 10..210 across, 20..220 down
    list.AcceptsFiles = true;
    list.FilesDropped = [this](const std::vector<std::string>& paths, double y) {
      dropped = paths;
      droppedY = y;
      ++drops;
    };
  }

  template <class Event>
  bool Send(const QMimeData& data, QPoint at) {
    Event event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&host, &event);
    return event.isAccepted();
  }
  bool Enter(const QMimeData& data, QPoint at) { return Send<QDragEnterEvent>(data, at); }
  bool Move(const QMimeData& data, QPoint at) { return Send<QDragMoveEvent>(data, at); }
  void Drop(const QMimeData& data, QPoint at) { Send<QDropEvent>(data, at); }
  static std::unique_ptr<QMimeData> Urls(const QList<QUrl>& urls) {
    auto data = std::make_unique<QMimeData>();
    data->setUrls(urls);
    return data;
  }

  static inline std::unique_ptr<QApplication> app_;
  Form form{"Drops"};
  ListBox list{&form, "List"};
  FormHost host{form};
  std::vector<std::string> dropped;
  double droppedY = -1;
  int drops = 0;
};

TEST_F(FileDrop, LocalFilesOnTheListReachTheModelInOrder) {
  const auto data = Urls({QUrl::fromLocalFile("/m/b song.mp3"),
                          QUrl::fromLocalFile(QString::fromUtf8("/m/\xC8\x99ir.mp3")),
                          QUrl::fromLocalFile("/m/folder")});
  EXPECT_TRUE(Enter(*data, {50, 50}));
  EXPECT_TRUE(Move(*data, {50, 50}));
  Drop(*data, {50, 50});
  ASSERT_EQ(drops, 1);
  EXPECT_EQ(dropped, (std::vector<std::string>{"/m/b song.mp3", "/m/\xC8\x99ir.mp3", "/m/folder"}));
  EXPECT_DOUBLE_EQ(droppedY, 50 * 15 - 300);
}

TEST_F(FileDrop, AnythingButLocalFilesOnAControlThatTakesThemIsRefused) {
  const auto remote = Urls({QUrl::fromLocalFile("/m/a.mp3"), QUrl("https://example.org/b.mp3")});
  QMimeData text;
  text.setText("/m/a.mp3");
  for (const QMimeData* data : {remote.get(), &text}) {
    EXPECT_FALSE(Enter(*data, {50, 50}));
    EXPECT_FALSE(Move(*data, {50, 50}));
    Drop(*data, {50, 50});
  }
  const auto local = Urls({QUrl::fromLocalFile("/m/a.mp3")});
  EXPECT_TRUE(Enter(*local, {5, 5})) << "the window takes the drag; the place decides";
  EXPECT_FALSE(Move(*local, {5, 5}));
  Drop(*local, {5, 5});
  list.AcceptsFiles = false;
  EXPECT_FALSE(Enter(*local, {50, 50}));
  Drop(*local, {50, 50});
  EXPECT_EQ(drops, 0);
}

}  // namespace
}  // namespace yarvo
