#pragma once
// The two ways the program writes a played time.

#include <string>

namespace yarvo {

// "mm:ss": at least two digits of minutes, as the media clock and the total
// time show it ("00:09", "100:00").
std::string TwoDigitMinutes(long seconds);

// "m:ss": minutes without a leading zero, as the audio engine's clock shows
// it ("0:09", "2:05"); a negative time reads 0:00.
std::string OneDigitMinutes(long seconds);

}  // namespace yarvo
