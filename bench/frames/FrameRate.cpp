// Counts how often a window's most often drawn area is drawn, as the X server
// sees it: every rectangle the window's contents change in (DAMAGE, raw
// rectangles) is counted by its place and size, and the busiest one is taken
// to be the animation (a visualisation redraws the same rectangle each frame,
// while labels that change now and then each have a rectangle of their own).
//
// Usage: frame_rate <window id> <seconds>
// Prints: <frames a second> <x> <y> <width> <height> of the busiest rectangle,
// "0 - - - -" when nothing was drawn, or a reason on stderr and 1.

#include <X11/Xlib.h>
#include <X11/extensions/Xdamage.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <tuple>

namespace {

using Clock = std::chrono::steady_clock;
using Area = std::tuple<int, int, int, int>;

bool failed = false;
int NoteError(Display* /*display*/, XErrorEvent* /*error*/) {
  failed = true;
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: frame_rate <window id> <seconds>\n");
    return 2;
  }
  const Window window = std::strtoul(argv[1], nullptr, 0);
  const double seconds = std::strtod(argv[2], nullptr);
  Display* display = XOpenDisplay(nullptr);
  if (display == nullptr) {
    std::fprintf(stderr, "frame_rate: no X display\n");
    return 1;
  }
  int damageEvent = 0, damageError = 0;
  if (!XDamageQueryExtension(display, &damageEvent, &damageError)) {
    std::fprintf(stderr, "frame_rate: the X server has no DAMAGE extension\n");
    return 1;
  }
  XSetErrorHandler(NoteError);
  XDamageCreate(display, window, XDamageReportRawRectangles);
  XSync(display, False);
  if (failed) {
    std::fprintf(stderr, "frame_rate: no window %s\n", argv[1]);
    return 1;
  }

  std::map<Area, long> drawn;
  const auto start = Clock::now();
  const auto end = start + std::chrono::duration<double>(seconds);
  const int fd = ConnectionNumber(display);
  while (Clock::now() < end) {
    while (XPending(display) > 0) {
      XEvent event;
      XNextEvent(display, &event);
      if (event.type != damageEvent + XDamageNotify) continue;
      const auto& damage = reinterpret_cast<const XDamageNotifyEvent&>(event);
      ++drawn[{damage.area.x, damage.area.y, damage.area.width, damage.area.height}];
    }
    pollfd wait{fd, POLLIN, 0};
    poll(&wait, 1, 20);
  }
  const double span = std::chrono::duration<double>(Clock::now() - start).count();

  const auto busiest = std::max_element(
      drawn.begin(), drawn.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
  if (busiest == drawn.end()) {
    std::printf("0 - - - -\n");
    return 0;
  }
  const auto [x, y, width, height] = busiest->first;
  std::printf("%.1f %d %d %d %d\n", static_cast<double>(busiest->second) / span, x, y, width, height);
  return 0;
}
