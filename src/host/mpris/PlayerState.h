#pragma once
// The player's state as the desktop sees it, from the form models: which
// engine has the song, and whether it plays.
// Interface thread only.

#include <string>

namespace yarvo {

class frmBass;

// The audio engine's form if it is loaded. Reading never makes one: the
// form's making starts the audio library.
const frmBass* LoadedEngine();

// Whether the audio engine has the player's song; else the media service
// has it, or nobody.
bool AudioEngineOwnsTheSong(const frmBass* engine);

// "Playing", "Paused" or "Stopped": the audio engine's state word while it
// has the song, else the media service's mode.
std::string PlaybackStatus(const frmBass* engine);

}  // namespace yarvo
