#pragma once
// WAV, Ogg Vorbis, FLAC, AIFF and the other containers libsndfile reads.

#include "engines/audio/Decoder.h"

#include <memory>
#include <string>

namespace yarvo::audio {

// nullptr when libsndfile cannot open the file, when it holds MPEG audio (that
// is mpg123's), or when it has no frames or too many channels.
std::unique_ptr<Decoder> openSndfileDecoder(const std::string& path);

}  // namespace yarvo::audio
