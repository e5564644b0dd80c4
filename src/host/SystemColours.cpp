#include "host/SystemColours.h"

#include <array>

namespace yarvo {

namespace {

// By system colour index: scroll bar, desktop, active caption, inactive
// caption, menu, window, window frame, menu text, window text, caption text,
// active border, inactive border, app workspace, highlight, highlight text,
// button face, button shadow, grey text, button text, inactive caption text,
// button highlight, 3D dark shadow, 3D light, info text, info background.
constexpr std::array<QRgb, 25> kSystem = {
    0xC8C8C8, 0x000000, 0x99B4D1, 0xBFCDDB, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000, 0x000000,
    0x000000, 0xB4B4B4, 0xF4F7FC, 0xABABAB, 0x3399FF, 0xFFFFFF, 0xF0F0F0, 0xA0A0A0, 0x6D6D6D,
    0x000000, 0x434E54, 0xFFFFFF, 0x696969, 0xE3E3E3, 0x000000, 0xFFFFE1};

}  // namespace

QColor ToQColor(Colour colour) {
  if (colour & 0x80000000u) {
    const auto index = colour & 0xFFu;
    return QColor::fromRgb(index < kSystem.size() ? kSystem[index] : kSystem[15]);
  }
  return QColor(int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF));
}

}  // namespace yarvo
