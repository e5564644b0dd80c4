#pragma once

// The ID3v1 genre names, in the order of the tag's genre byte. The names keep
// the program's own spellings ("Phychedelic", "Comteporary Christian"): they
// are what users have always seen, not a copy of a reference list.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace yarvo {

inline constexpr std::size_t kId3GenreCount = 148;

// Entry n is the name of genre byte n.
extern const std::array<std::string_view, kId3GenreCount> kId3Genres;

// The name of a genre byte, or an empty view for 148 and above, which name no genre.
std::string_view id3GenreName(std::uint8_t genre) noexcept;

}  // namespace yarvo
