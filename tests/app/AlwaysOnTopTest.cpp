// Full screen keeps the player above every other window, through the window
// manager's above state, on an X server with openbox: the state comes with
// full screen and goes with it, and the video goes on showing in the same
// window all along.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Hand.h"
#include "PlayerProcess.h"
#include "ScreenPixels.h"
#include "XServer.h"
#include "support/SoundServer.h"

// Last: Xlib's macros (None, Bool, Status) would clash with the headers above.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace yarvo {
namespace {

using namespace std::chrono_literals;
using namespace test;

// Whether the window manager keeps `window` above the others.
bool KeptAbove(const std::string& displayName, unsigned long window) {
  Display* display = XOpenDisplay(displayName.c_str());
  if (!display) return false;
  const Atom above = XInternAtom(display, "_NET_WM_STATE_ABOVE", False);
  Atom type = 0;
  int format = 0;
  unsigned long count = 0, after = 0;
  unsigned char* data = nullptr;
  bool found = false;
  if (XGetWindowProperty(display, window, XInternAtom(display, "_NET_WM_STATE", False), 0, 32,
                         False, XA_ATOM, &type, &format, &count, &after, &data) == Success &&
      data) {
    const auto* states = reinterpret_cast<const Atom*>(data);
    for (unsigned long i = 0; i < count && !found; ++i) found = states[i] == above;
    XFree(data);
  }
  XCloseDisplay(display);
  return found;
}

TEST(AlwaysOnTop, FullScreenIsAboveTheOtherWindowsAndTheVideoStaysInItsWindow) {
  XServer x;
  if (!x.ready()) GTEST_SKIP() << "no Xvfb on this machine";
  if (!Hand::Available() || !XServer::HasWindowManager()) GTEST_SKIP() << "no xdotool or openbox";
  ASSERT_TRUE(x.StartWindowManager());
  ProgramFolder folder;
  TempDir home;
  const std::string video = folder / "bars.avi";
  const std::string make =
      "ffmpeg -loglevel error -y -f lavfi -i smptebars=size=320x240:rate=25 -t 30 -c:v mpeg4 '" +
      video + "'";
  ASSERT_EQ(std::system(make.c_str()), 0);
  Player player(folder, home, {video}, x.display());
  const auto mainWindow = [&]() -> std::optional<XServer::Window> {
    for (const auto& window : x.Windows())
      if (window.mapped && window.name.rfind("Yarvo Player", 0) == 0 &&
          window.name.find("Playlist") == std::string::npos && window.width >= 400)
        return window;
    return std::nullopt;
  };
  const Rgb yellow{191, 191, 0};
  const auto patternShows = [&] {
    return WaitUntil([&] { return Count(Screenshot(x.display()), yellow, 0, 0, 1024, 768) > 500; },
                     10s);
  };
  ASSERT_TRUE(WaitUntil([&] { return mainWindow().has_value(); }));
  ASSERT_TRUE(patternShows()) << "the video plays in the window";
  const auto window = *mainWindow();
  EXPECT_FALSE(KeptAbove(x.display(), window.id));

  const Hand hand(x.display());
  hand.DoubleClick(window.x + 250, window.y + 8);  // the video's title: full screen
  EXPECT_TRUE(WaitUntil([&] { return KeptAbove(x.display(), window.id); }, 5s));
  EXPECT_TRUE(WaitUntil([&] { return mainWindow() && mainWindow()->width >= 1024; }, 5s))
      << "the window covers the screen";
  EXPECT_TRUE(patternShows()) << "the video goes on in full screen";

  hand.DoubleClick(250, 8);
  EXPECT_TRUE(WaitUntil([&] { return !KeptAbove(x.display(), window.id); }, 5s));
  EXPECT_TRUE(WaitUntil([&] { return mainWindow() && mainWindow()->width == window.width; }, 5s));
  EXPECT_TRUE(patternShows()) << "and after it";
  EXPECT_EQ(mainWindow()->id, window.id) << "the same window all along";

  player.Close();
  EXPECT_EQ(player.Wait(), 0);
}

}  // namespace
}  // namespace yarvo
