#include "host/mpris/PlayerState.h"

#include "director/Program.h"
#include "engines/frmBass.h"
#include "windows/Main.h"

namespace yarvo {

const frmBass* LoadedEngine() {
  for (const Form* form : program().LoadedForms()) {
    if (const auto* engine = dynamic_cast<const frmBass*>(form)) return engine;
  }
  return nullptr;
}

bool AudioEngineOwnsTheSong(const frmBass* engine) {
  return engine != nullptr && engine->BassON.get() == "True";
}

std::string PlaybackStatus(const frmBass* engine) {
  auto& main = program().Main();
  if (AudioEngineOwnsTheSong(engine)) {
    // A file the library could not open has no channel: it ends at the
    // engine's next tick, and nothing plays meanwhile.
    if (engine->Chan.get() == "0") return "Stopped";
    const std::string& word = main.StarePlayer.Caption;
    return word == "Playing" ? "Playing" : word == "Paused" ? "Paused" : "Stopped";
  }
  // The media service's words are in lower case; the audio engine's
  // "Playing" left in the label by a song before is no mode of it.
  const std::string& mode = main.LbStatus(0).Caption;
  return mode == "playing" ? "Playing" : mode == "paused" ? "Paused" : "Stopped";
}

}  // namespace yarvo
