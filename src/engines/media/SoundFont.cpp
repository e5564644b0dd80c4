#include "engines/media/SoundFont.h"

#include <system_error>

namespace yarvo {

std::optional<std::filesystem::path> findGeneralMidiSoundFont(const std::filesystem::path& folder) {
  for (const char* name : {"FluidR3_GM.sf2", "TimGM6mb.sf2", "default-GM.sf2"}) {
    std::error_code error;
    const auto path = folder / name;
    if (std::filesystem::is_regular_file(path, error)) {
      return path;
    }
  }
  return std::nullopt;
}

}  // namespace yarvo
