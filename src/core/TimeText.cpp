#include "core/TimeText.h"

namespace yarvo {

namespace {

std::string TwoDigits(long value) { return (value < 10 ? "0" : "") + std::to_string(value); }

}  // namespace

std::string TwoDigitMinutes(long seconds) {
  return TwoDigits(seconds / 60) + ":" + TwoDigits(seconds % 60);
}

std::string OneDigitMinutes(long seconds) {
  if (seconds < 0) seconds = 0;
  return std::to_string(seconds / 60) + ":" + TwoDigits(seconds % 60);
}

}  // namespace yarvo
