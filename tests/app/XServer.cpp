#include "XServer.h"

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <thread>

#include "PlayerProcess.h"
#include "support/SoundServer.h"

// Last: Xlib's macros (None, Bool, Status) would clash with the headers above.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace yarvo::test {

namespace {

using namespace std::chrono_literals;

struct CloseDisplay {
  void operator()(Display* display) const { XCloseDisplay(display); }
};

// The window's _NET_WM_WINDOW_TYPE, which toolkits set on their own windows
// whether or not a window manager runs.
Atom WindowType(Display* display, Window window) {
  Atom type = None, actual = None;
  int format = 0;
  unsigned long count = 0, after = 0;
  unsigned char* data = nullptr;
  if (XGetWindowProperty(display, window, XInternAtom(display, "_NET_WM_WINDOW_TYPE", False), 0, 1,
                         False, XA_ATOM, &actual, &format, &count, &after, &data) == Success &&
      data) {
    if (count > 0 && format == 32) type = *reinterpret_cast<Atom*>(data);
    XFree(data);
  }
  return type;
}

}  // namespace

namespace {

// A window may go while a test looks at it; Xlib's own handler would end
// the test's process for that.
int IgnoreXErrors(Display*, XErrorEvent*) { return 0; }

// Reads what `fd` gives until a newline, end or `patience`.
std::string ReadLine(int fd, std::chrono::milliseconds patience) {
  std::string line;
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (line.find('\n') == std::string::npos && std::chrono::steady_clock::now() < deadline) {
    pollfd wait{fd, POLLIN, 0};
    if (poll(&wait, 1, 50) <= 0) continue;
    char bytes[16];
    const ssize_t got = read(fd, bytes, sizeof bytes);
    if (got <= 0) break;
    line.append(bytes, static_cast<std::size_t>(got));
  }
  return line.substr(0, line.find('\n'));
}

}  // namespace

// Tests of other processes run servers of their own at the same time: the
// server takes the first display that is free, and says which (-displayfd),
// so that two servers never try one display, and a loser never removes the
// winner's socket on its way out.
XServer::XServer() {
  XSetErrorHandler(IgnoreXErrors);
  int told[2];
  if (pipe(told) != 0) return;
  pid_ = Spawn({"Xvfb", "-displayfd", std::to_string(told[1]), "-screen", "0", "1024x768x24",
                "-nolisten", "tcp"});
  close(told[1]);
  const std::string number = pid_ > 0 ? ReadLine(told[0], 20s) : "";
  close(told[0]);
  ready_ = !number.empty();
  display_ = ":" + number;
}

XServer::~XServer() {
  windowManager_.reset();
  if (pid_ > 0) {
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
  }
}

std::optional<XServer::Window> XServer::PlayerMain() const {
  for (const auto& window : Windows())
    if (window.name.rfind("Yarvo Player", 0) == 0 &&
        window.name.find("Playlist") == std::string::npos && window.width >= 400)
      return window;
  return std::nullopt;
}

bool XServer::HasWindowManager() { return std::system("command -v openbox >/dev/null") == 0; }

bool XServer::StartWindowManager() {
  windowManager_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"env", "DISPLAY=" + display_, "openbox"});
  return WaitUntil([&] { return Managed(); }, 10s);
}

bool XServer::Managed() const {
  const std::unique_ptr<Display, CloseDisplay> display(XOpenDisplay(display_.c_str()));
  if (!display) return false;
  Atom type = None;
  int format = 0;
  unsigned long count = 0, after = 0;
  unsigned char* data = nullptr;
  const bool managed =
      XGetWindowProperty(display.get(), DefaultRootWindow(display.get()),
                         XInternAtom(display.get(), "_NET_SUPPORTING_WM_CHECK", False), 0, 1, False,
                         XA_WINDOW, &type, &format, &count, &after, &data) == Success &&
      data && count == 1;
  if (data) XFree(data);
  return managed;
}

bool XServer::DialogShown() const {
  const std::unique_ptr<Display, CloseDisplay> display(XOpenDisplay(display_.c_str()));
  if (!display) return false;
  const Atom dialog = XInternAtom(display.get(), "_NET_WM_WINDOW_TYPE_DIALOG", False);
  ::Window root = 0, parent = 0, *children = nullptr;
  unsigned int count = 0;
  if (!XQueryTree(display.get(), DefaultRootWindow(display.get()), &root, &parent, &children,
                  &count))
    return false;
  bool shown = false;
  for (unsigned int i = 0; i < count && !shown; ++i) {
    XWindowAttributes attributes{};
    shown = XGetWindowAttributes(display.get(), children[i], &attributes) &&
            attributes.map_state == IsViewable && WindowType(display.get(), children[i]) == dialog;
  }
  if (children) XFree(children);
  return shown;
}

namespace {

std::string NameOf(Display* display, ::Window window) {
  char* name = nullptr;
  if (!XFetchName(display, window, &name) || !name) return {};
  std::string text = name;
  XFree(name);
  return text;
}

// The named window inside a window manager's frame, or the frame itself.
::Window ClientOf(Display* display, ::Window frame) {
  if (!NameOf(display, frame).empty()) return frame;
  ::Window root = 0, parent = 0, *children = nullptr;
  unsigned int count = 0;
  ::Window client = frame;
  if (XQueryTree(display, frame, &root, &parent, &children, &count)) {
    for (unsigned int i = 0; i < count && client == frame; ++i)
      if (!NameOf(display, children[i]).empty()) client = children[i];
    if (children) XFree(children);
  }
  return client;
}

}  // namespace

std::vector<XServer::Window> XServer::Windows() const {
  std::vector<Window> windows;
  const std::unique_ptr<Display, CloseDisplay> display(XOpenDisplay(display_.c_str()));
  if (!display) return windows;
  const ::Window rootWindow = DefaultRootWindow(display.get());
  ::Window root = 0, parent = 0, *children = nullptr;
  unsigned int count = 0;
  if (!XQueryTree(display.get(), rootWindow, &root, &parent, &children, &count)) return windows;
  for (unsigned int i = 0; i < count; ++i) {
    XWindowAttributes frame{}, attributes{};
    const ::Window client = ClientOf(display.get(), children[i]);
    if (!XGetWindowAttributes(display.get(), children[i], &frame) ||
        !XGetWindowAttributes(display.get(), client, &attributes))
      continue;
    Window window;
    window.id = client;
    ::Window child = 0;
    XTranslateCoordinates(display.get(), client, rootWindow, 0, 0, &window.x, &window.y, &child);
    window.width = attributes.width;
    window.height = attributes.height;
    window.mapped = frame.map_state == IsViewable && attributes.map_state == IsViewable;
    window.popup = frame.override_redirect;
    window.name = NameOf(display.get(), client);
    windows.push_back(std::move(window));
  }
  if (children) XFree(children);
  return windows;
}

std::optional<XServer::Window> XServer::Find(const std::string& name) const {
  for (const Window& window : Windows())
    if (window.name == name) return window;
  return std::nullopt;
}

std::optional<XServer::Window> XServer::Popup() const {
  const auto windows = Windows();
  for (auto it = windows.rbegin(); it != windows.rend(); ++it)
    if (it->popup && it->mapped && it->width > 20) return *it;
  return std::nullopt;
}

}  // namespace yarvo::test
