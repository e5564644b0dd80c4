#pragma once
// MPEG audio layers 1-3 through libmpg123, with gapless trimming and an exact
// length from a scan of the whole file.

#include "engines/audio/Decoder.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace yarvo::audio {

// The bytes of the ID3v2 tag (header, body and footer) that `head`, the
// first bytes of a file, starts with; 0 when it starts with none.
std::size_t id3v2Size(std::span<const std::uint8_t> head) noexcept;

// The layer (1..3) of the MPEG audio that `head` (the first bytes of a file)
// starts with, after an optional ID3v2 tag, or 0. Three frame headers must
// follow each other at the distances their own fields give, so stray sync
// patterns in other content are not taken for MPEG audio.
int sniffMpegLayer(std::span<const std::uint8_t> head) noexcept;

// nullptr when mpg123 cannot open or scan the file.
std::unique_ptr<Decoder> openMpegDecoder(const std::string& path, int layer);

}  // namespace yarvo::audio
