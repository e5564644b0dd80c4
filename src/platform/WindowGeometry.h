#pragma once

#include <cstdint>

namespace yarvo {

// A native window handle as the window system knows it: an X11 window id on
// Linux, 0 for none.
using NativeWindow = std::uintptr_t;

// Screen rectangle of a window, in pixels; right and bottom are exclusive.
struct WindowRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// Asks the window system where a window is. The Qt host implements it; the
// logic modules only see this interface. Called on the interface thread.
class WindowGeometry {
 public:
  virtual ~WindowGeometry() = default;

  // The outer rectangle of `window`; all zeros for an unknown window.
  virtual WindowRect rectOf(NativeWindow window) const = 0;
};

}  // namespace yarvo
