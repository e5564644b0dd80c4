// Yarvo Player: starts the program with its Qt windows.

#include <QApplication>
#include <QIcon>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "core/RandomSource.h"
#include "core/form/Events.h"
#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "engines/BassApi.h"
#include "engines/media/MCore.h"
#include "host/HostDesktop.h"
#include "host/WindowHosts.h"
#include "host/mpris/MprisService.h"
#include "platform/Files.h"
#include "platform/PosixProcess.h"
#include "platform/ProfileIni.h"
#include "platform/qt/QtEvents.h"
#include "platform/qt/QtTimerScheduler.h"
#include "platform/qt/QtWindowGeometry.h"
#include "windows/Main.h"

namespace {

// The windows move, size and shape themselves and draw video into X11
// windows of their own, which Wayland does not allow a client: under Wayland
// they run through its X11 server (XWayland), unless the user chose a
// platform. With no display at all the player still runs, offscreen.
void ChoosePlatform() {
  const bool display = std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY");
  setenv("QT_QPA_PLATFORM", display ? "xcb" : "offscreen", 0);
  // With X's shared-memory images every repaint brings back an event from
  // the server once it has read the image: an idle player woke twice as
  // often with them.
  setenv("QT_XCB_NO_MITSHM", "1", 0);
}

// The media service asks our windows for their size while the program runs.
class GeometryInUse {
 public:
  explicit GeometryInUse(const yarvo::WindowGeometry& geometry) {
    yarvo::setMciWindowGeometry(&geometry);
  }
  ~GeometryInUse() { yarvo::setMciWindowGeometry(nullptr); }
  GeometryInUse(const GeometryInUse&) = delete;
  GeometryInUse& operator=(const GeometryInUse&) = delete;
};

// Saves cut short by a crash or a kill leave their temporary files in the
// folders the program writes to: the program folder, its folders of data,
// and the media service's driver table.
void RemoveLeftoverSavesOf(const std::string& programFolder) {
  namespace fs = std::filesystem;
  yarvo::RemoveLeftoverSaves(programFolder);
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(programFolder, error)) {
    if (entry.is_directory(error)) yarvo::RemoveLeftoverSaves(entry.path());
  }
  yarvo::RemoveLeftoverSaves(yarvo::systemIniPath().parent_path());
}

// The desktop names the windows after the player's desktop entry, and shows
// the player's icon, as drawn for every size it ships in.
void IntroduceToTheDesktop(const std::string& programFolder) {
  QGuiApplication::setDesktopFileName(QStringLiteral(YARVO_APP_ID));
  QIcon icon;
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
    icon.addFile(QString::fromStdString(programFolder + "/Icons/yarvo-player-" +
                                        std::to_string(size) + ".png"));
  QApplication::setWindowIcon(icon);
}

}  // namespace

int main(int argc, char** argv) {
  yarvo::WindowHosts::CatchTermination();
  ChoosePlatform();
  // The whole command line is one path: Qt must not take options from it.
  std::vector<std::string> arguments(argv + 1, argv + argc);
  int qtArgc = 1;
  QApplication app(qtArgc, argv);
  QApplication::setApplicationName("Yarvo Player");
  QApplication::setQuitOnLastWindowClosed(false);

  yarvo::PosixProcess process(std::move(arguments));
  RemoveLeftoverSavesOf(process.ProgramFolder());
  IntroduceToTheDesktop(process.ProgramFolder());
  yarvo::QtTimerScheduler scheduler;
  yarvo::WindowHosts* windows = nullptr;
  yarvo::HostDesktop desktop(
      [&windows](const yarvo::Form& form) { return windows ? windows->HostOf(form) : nullptr; });
  yarvo::ClockRandom random;
  yarvo::Program program({scheduler, desktop, process, yarvo::LibraryBass(), random});
  yarvo::QtWindowGeometry geometry;
  const GeometryInUse geometryInUse(geometry);
  yarvo::WindowHosts hosts(program);
  windows = &hosts;
  try {
    yarvo::RunEvent([&] { program.Main(); });
  } catch (const yarvo::ProcessEnd& end) {
    return end.exitCode;
  }
  // The program may have ended inside a dialog of its start; the loop must
  // not run after that.
  if (yarvo::QtEvents::Ending()) return yarvo::QtEvents::ExitCode();
  hosts.Sync();
  const yarvo::MprisService mpris(program, hosts);
  return QApplication::exec();
}
