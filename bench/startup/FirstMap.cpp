// Starts a program on the X display of DISPLAY and prints the milliseconds
// from its start to the first top-level window it maps, then its memory a
// fixed time after the start (resident and proportional set, in kB), and
// ends it.
//
// Usage: first_map <seconds until the memory is read> <program> [arguments]
// Prints: <ms to first map> <rss kB> <pss kB>, or a reason on stderr and 1.
//
// The map is seen as the X server reports it (MapNotify on the root window,
// with no window manager in between), not by polling, so the figure has no
// polling step in it.

#include <X11/Xlib.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

long SmapsField(pid_t pid, const std::string& field) {
  std::ifstream rollup("/proc/" + std::to_string(pid) + "/smaps_rollup");
  for (std::string line; std::getline(rollup, line);)
    if (line.rfind(field + ":", 0) == 0) return std::stol(line.substr(field.size() + 1));
  return -1;
}

// Waits for the first map of a window that is not an override-redirect
// popup; -1 when `pid` ends or 20 s pass first.
double MillisecondsToFirstMap(Display* display, pid_t pid, Clock::time_point start) {
  const int fd = ConnectionNumber(display);
  while (Clock::now() - start < std::chrono::seconds(20)) {
    while (XPending(display) > 0) {
      XEvent event;
      XNextEvent(display, &event);
      if (event.type == MapNotify && !event.xmap.override_redirect)
        return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    }
    if (waitpid(pid, nullptr, WNOHANG) == pid) return -1;
    pollfd wait{fd, POLLIN, 0};
    poll(&wait, 1, 50);
  }
  return -1;
}

void End(pid_t pid) {
  kill(pid, SIGTERM);
  for (int i = 0; i < 100; ++i) {
    if (waitpid(pid, nullptr, WNOHANG) == pid) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  kill(pid, SIGKILL);
  waitpid(pid, nullptr, 0);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: first_map <seconds> <program> [arguments]\n");
    return 2;
  }
  const double memoryAt = std::stod(argv[1]);
  Display* display = XOpenDisplay(nullptr);
  if (display == nullptr) {
    std::fprintf(stderr, "first_map: no X display\n");
    return 1;
  }
  XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
  XSync(display, False);
  const auto start = Clock::now();
  const pid_t pid = fork();
  if (pid == 0) {
    execvp(argv[2], argv + 2);
    _exit(127);
  }
  const double ms = MillisecondsToFirstMap(display, pid, start);
  if (ms < 0) {
    End(pid);
    std::fprintf(stderr, "first_map: %s mapped no window\n", argv[2]);
    return 1;
  }
  std::this_thread::sleep_until(start + std::chrono::duration<double>(memoryAt));
  const long rss = SmapsField(pid, "Rss"), pss = SmapsField(pid, "Pss");
  End(pid);
  std::printf("%.1f %ld %ld\n", ms, rss, pss);
  return 0;
}
