#include "ScreenPixels.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace yarvo::test {

namespace {

// A PPM image read from a command's output; a short read keeps only the
// rows that came in whole.
Pixels ReadPpm(const std::string& command) {
  Pixels pixels;
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return pixels;
  int maxValue = 0;
  if (std::fscanf(pipe, "P6 %d %d %d", &pixels.width, &pixels.height, &maxValue) == 3 &&
      maxValue == 255 && pixels.width > 0) {
    std::fgetc(pipe);
    pixels.rgb.resize(static_cast<std::size_t>(pixels.width * pixels.height * 3));
    pixels.rgb.resize(std::fread(pixels.rgb.data(), 1, pixels.rgb.size(), pipe));
    pixels.height = static_cast<int>(pixels.rgb.size()) / (pixels.width * 3);
  }
  pclose(pipe);
  return pixels;
}

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

}  // namespace

Rgb Pixels::At(int x, int y) const {
  if (!Contains(x, y)) return {-1, -1, -1};
  const auto* p = reinterpret_cast<const unsigned char*>(
      rgb.data() + (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                    static_cast<std::size_t>(x)) *
                       3);
  return {p[0], p[1], p[2]};
}

Pixels Screenshot(const std::string& display) {
  return ReadPpm("import -display " + display + " -window root -depth 8 ppm:- 2>/dev/null");
}

Pixels ReadPicture(const std::string& path) {
  return ReadPpm("convert " + Quoted(path) + " -depth 8 ppm:- 2>/dev/null");
}

void WritePicture(const Pixels& pixels, const std::string& path) {
  FILE* pipe = popen(("convert ppm:- " + Quoted(path)).c_str(), "w");
  if (!pipe) return;
  std::fprintf(pipe, "P6 %d %d 255\n", pixels.width, pixels.height);
  std::fwrite(pixels.rgb.data(), 1, pixels.rgb.size(), pipe);
  pclose(pipe);
}

int Count(const Pixels& pixels, Rgb colour, int left, int top, int width, int height) {
  int count = 0;
  for (int y = std::max(0, top); y < std::min(top + height, pixels.height); ++y) {
    for (int x = std::max(0, left); x < std::min(left + width, pixels.width); ++x) {
      const Rgb p = pixels.At(x, y);
      if (std::abs(p.r - colour.r) < 40 && std::abs(p.g - colour.g) < 40 &&
          std::abs(p.b - colour.b) < 40)
        ++count;
    }
  }
  return count;
}

}  // namespace yarvo::test
