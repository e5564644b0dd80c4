#pragma once

#include <filesystem>
#include <optional>

namespace yarvo {

// Where Debian's sound font packages put their fonts.
inline constexpr const char* kSoundFontFolder = "/usr/share/sounds/sf2";

// The General MIDI sound font that MIDI files are played with, from
// `folder`: FluidR3_GM.sf2 (fluid-soundfont-gm, the fuller one) when it is
// there, else TimGM6mb.sf2 (timgm6mb-soundfont), else default-GM.sf2, the
// font that the system's alternatives chose. Nothing when none of them is a
// regular file.
std::optional<std::filesystem::path> findGeneralMidiSoundFont(
    const std::filesystem::path& folder = kSoundFontFolder);

}  // namespace yarvo
