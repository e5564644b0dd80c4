#include "X11TestWindow.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace yarvo::test {
namespace {

Display* xlib(void* display) { return static_cast<Display*>(display); }

}  // namespace

std::unique_ptr<X11TestWindow> X11TestWindow::open(int width, int height) {
  Display* display = XOpenDisplay(nullptr);
  return display == nullptr
             ? nullptr
             : std::unique_ptr<X11TestWindow>(new X11TestWindow(display, width, height));
}

X11TestWindow::X11TestWindow(void* display, int width, int height)
    : display_(display), width_(width), height_(height) {
  Display* d = xlib(display_);
  const int screen = DefaultScreen(d);
  window_ = XCreateSimpleWindow(d, RootWindow(d, screen), 0, 0, static_cast<unsigned>(width),
                                static_cast<unsigned>(height), 0, 0, BlackPixel(d, screen));
  XMapWindow(d, window_);
  XSync(d, False);
}

X11TestWindow::~X11TestWindow() {
  XDestroyWindow(xlib(display_), window_);
  XCloseDisplay(xlib(display_));
}

int X11TestWindow::litPixels() const {
  XImage* image = XGetImage(xlib(display_), window_, 0, 0, static_cast<unsigned>(width_),
                            static_cast<unsigned>(height_), AllPlanes, ZPixmap);
  if (image == nullptr) return 0;
  int lit = 0;
  for (int y = 0; y < height_; y += 10) {
    for (int x = 0; x < width_; x += 10) lit += XGetPixel(image, x, y) != 0 ? 1 : 0;
  }
  XDestroyImage(image);
  return lit;
}

}  // namespace yarvo::test
