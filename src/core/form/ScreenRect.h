#pragma once

namespace yarvo {

// A point of the screen, in pixels.
struct ScreenPoint {
  int x = 0;
  int y = 0;
};

// A rectangle of the screen, in pixels, right and bottom exclusive.
struct ScreenRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const ScreenRect&) const = default;
};

}  // namespace yarvo
