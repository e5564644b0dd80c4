#pragma once
// Pictures as RGB pixels for the tests that look at the screen: a screenshot
// of an X display, or a picture file, both read through ImageMagick.

#include <string>

namespace yarvo::test {

struct Rgb {
  int r = 0, g = 0, b = 0;
  bool operator==(const Rgb&) const = default;
};

struct Pixels {
  int width = 0;
  int height = 0;
  std::string rgb;  // 8-bit triples, row by row
  Rgb At(int x, int y) const;
  bool Contains(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
};

// The whole screen of `display`.
Pixels Screenshot(const std::string& display);
// The pixels of a BMP, JPEG or PNG file.
Pixels ReadPicture(const std::string& path);
// Writes `pixels` as a PNG file.
void WritePicture(const Pixels& pixels, const std::string& path);

// How many pixels within 40 of `colour` on each channel lie in the rectangle.
int Count(const Pixels& pixels, Rgb colour, int left, int top, int width, int height);

}  // namespace yarvo::test
