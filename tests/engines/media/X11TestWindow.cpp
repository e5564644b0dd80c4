#include "X11TestWindow.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace yarvo::test {
namespace {

constexpr int kGrid = 10;

struct CloseDisplay {
  void operator()(Display* display) const { XCloseDisplay(display); }
};

struct DestroyImage {
  void operator()(XImage* image) const { XDestroyImage(image); }
};

class XlibWindow : public X11TestWindow {
 public:
  XlibWindow(std::unique_ptr<Display, CloseDisplay> display, int width, int height)
      : display_(std::move(display)), width_(width), height_(height) {
    Display* d = display_.get();
    const int screen = DefaultScreen(d);
    window_ = XCreateSimpleWindow(d, RootWindow(d, screen), 0, 0, static_cast<unsigned>(width),
                                  static_cast<unsigned>(height), 0, 0, BlackPixel(d, screen));
    XMapWindow(d, window_);
    XSync(d, False);
  }

  XlibWindow(const XlibWindow&) = delete;
  XlibWindow& operator=(const XlibWindow&) = delete;

  ~XlibWindow() override {
    XDestroyWindow(display_.get(), window_);
    XSync(display_.get(), False);
  }

  NativeWindow id() const override { return window_; }

  int litPixels() const override {
    std::unique_ptr<XImage, DestroyImage> image(
        XGetImage(display_.get(), window_, 0, 0, static_cast<unsigned>(width_),
                  static_cast<unsigned>(height_), AllPlanes, ZPixmap));
    if (!image) {
      return 0;
    }
    int lit = 0;
    for (int y = 0; y < height_; y += kGrid) {
      for (int x = 0; x < width_; x += kGrid) {
        lit += XGetPixel(image.get(), x, y) != 0 ? 1 : 0;
      }
    }
    return lit;
  }

 private:
  std::unique_ptr<Display, CloseDisplay> display_;
  int width_;
  int height_;
  Window window_ = 0;
};

}  // namespace

std::unique_ptr<X11TestWindow> X11TestWindow::open(int width, int height) {
  std::unique_ptr<Display, CloseDisplay> display(XOpenDisplay(nullptr));
  if (!display) {
    return nullptr;
  }
  return std::make_unique<XlibWindow>(std::move(display), width, height);
}

}  // namespace yarvo::test
