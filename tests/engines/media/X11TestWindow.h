#pragma once

#include <memory>

#include "platform/WindowGeometry.h"

namespace yarvo::test {

// A plain, black, mapped X11 window for pictures to be drawn into. Keeps Xlib
// (and its macros) out of the test files.
class X11TestWindow {
 public:
  // nullptr when there is no X display.
  static std::unique_ptr<X11TestWindow> open(int width, int height);

  X11TestWindow(const X11TestWindow&) = delete;
  X11TestWindow& operator=(const X11TestWindow&) = delete;
  ~X11TestWindow();

  NativeWindow id() const { return window_; }
  // Points of a 10-pixel grid over the window whose colour is not black.
  int litPixels() const;

 private:
  X11TestWindow(void* display, int width, int height);

  void* display_;  // an Xlib Display
  int width_;
  int height_;
  NativeWindow window_ = 0;
};

}  // namespace yarvo::test
