#pragma once
// The program's unit of length on screen: a twip, 15 to a pixel.

namespace yarvo {

inline constexpr int kTwipsPerPixel = 15;

}  // namespace yarvo
