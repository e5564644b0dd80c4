// The media libraries, opened at their first use. Their names are the ones
// the build linked against.

#include <optional>

#include "engines/media/FluidSynthApi.h"
#include "engines/media/MpvApi.h"
#include "platform/SharedLibrary.h"

namespace yarvo {

#define YARVO_BIND(name) all = library.Bind(bound.name, #name) && all;

const MpvApi* Mpv() {
  static const SharedLibrary library(YARVO_MPV_SONAME);
  static const std::optional<MpvApi> api = []() -> std::optional<MpvApi> {
    MpvApi bound;
    bool all = library.loaded();
    YARVO_MPV_FUNCTIONS(YARVO_BIND)
    return all ? std::optional(bound) : std::nullopt;
  }();
  return api ? &*api : nullptr;
}

const FluidSynthApi* FluidSynthLibrary() {
  static const SharedLibrary library(YARVO_FLUIDSYNTH_SONAME);
  static const std::optional<FluidSynthApi> api = []() -> std::optional<FluidSynthApi> {
    FluidSynthApi bound;
    bool all = library.loaded();
    YARVO_FLUIDSYNTH_FUNCTIONS(YARVO_BIND)
    return all ? std::optional(bound) : std::nullopt;
  }();
  return api ? &*api : nullptr;
}

#undef YARVO_BIND

}  // namespace yarvo
