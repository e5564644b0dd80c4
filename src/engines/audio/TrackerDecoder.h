#pragma once
// Tracker modules (MOD, S3M, XM, IT and the rest libopenmpt knows), rendered
// once through without looping.

#include "engines/audio/Decoder.h"

#include <memory>
#include <string>

namespace yarvo::audio {

// nullptr when the file is no module libopenmpt can load, or is larger than
// 64 MiB.
std::unique_ptr<Decoder> openTrackerDecoder(const std::string& path, int rate, bool ramping);

}  // namespace yarvo::audio
