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

  virtual ~X11TestWindow() = default;
  virtual NativeWindow id() const = 0;
  // Points of a 10-pixel grid over the window whose colour is not black.
  virtual int litPixels() const = 0;
};

}  // namespace yarvo::test
