#pragma once

#include <cstdint>

namespace yarvo {

// True when `window` is a window of the X display named by DISPLAY, so that a
// video output may draw into it. False without a display, for 0, and for an
// id that names no window (a graphics driver given one crashes the process).
// Opens and closes its own short connection; touches no global X state.
bool isLiveX11Window(std::uint64_t window);

}  // namespace yarvo
