#pragma once
// A picture held by a control or an image slot: decoded pixels shared between
// every holder, and the file they came from.

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace yarvo {

// 0x00BBGGRR, the program's colour value; a set top bit names a system colour.
using Colour = std::uint32_t;

struct Image {
  int width = 0;
  int height = 0;
  // Row-major, top row first, 0xAARRGGBB with the colour already multiplied
  // by the alpha (as the screen blends it; the same for opaque pictures).
  std::vector<std::uint32_t> argb;
};

// A picture of 8-bit palette indices, as the program draws it into a
// surface: rows bottom up, each `width` bytes.
struct IndexedImage {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> pixels;
  std::array<std::uint32_t, 256> palette{};  // 0x00RRGGBB
};

class Picture {
 public:
  Picture() = default;
  Picture(std::shared_ptr<const Image> image, std::string source)
      : image_(std::move(image)), source_(std::move(source)) {}

  bool Empty() const { return !image_; }
  const Image* Pixels() const { return image_.get(); }
  const std::string& Source() const { return source_; }

  // Two pictures are the same when they share their pixels.
  bool operator==(const Picture& other) const { return image_ == other.image_; }

 private:
  std::shared_ptr<const Image> image_;
  std::string source_;
};

}  // namespace yarvo
