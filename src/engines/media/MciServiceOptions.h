#pragma once

#include <chrono>
#include <filesystem>
#include <string>

#include "engines/media/SoundFont.h"

namespace yarvo {

// The audio output that never makes a sound.
inline constexpr const char* kSilentAudioOutput = "null";

// How the media service plays. The program keeps the defaults; tests ask for
// silence and no picture, so that they run without sound card or display.
struct MciServiceOptions {
  // mpv audio output: "" lets mpv choose and plays silently when the machine
  // has no sound device; "null" never makes a sound. MIDI knows only "null"
  // and the sound server: any other value sends it to the server, or plays
  // it silently at real-time pace when there is none.
  std::string audioOutput;

  // False never draws a picture, as on a machine without a display. When
  // true, a picture is drawn only if an open names a parent window that
  // exists on the X11 display named by DISPLAY; otherwise the media plays
  // with its picture going nowhere.
  bool drawPictures = true;

  // Longest wait for a file to load, for its first picture and for a seek
  // to settle. A file that takes longer fails to open.
  std::chrono::milliseconds timeout{10000};

  // Where MIDI files find their General MIDI sound font.
  std::filesystem::path soundFontFolder = kSoundFontFolder;
};

}  // namespace yarvo
