#pragma once
// The visualisation: a 180 x 40 picture of 8-bit palette indices, drawn 40
// times a second from the playing channel in one of four modes and shown in
// the visualisation box of Main, or of MiniForm in mini mode.
//
// The module's variables live in the program (Program::State), so they outlive
// frmBass: the mode, mode 2's column and its picture carry over to the next
// song. Interface thread only.

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "core/form/Picture.h"
#include "engines/audio/Bass.h"

namespace yarvo {

class BassApi;
class StringList;

inline constexpr int kSpecWidth = 180;
inline constexpr int kSpecHeight = 40;
// One byte a pixel, row y at y * kSpecWidth, row 0 at the bottom. The last
// bytes lie beyond the picture and stay 0.
inline constexpr std::size_t kSpecBufSize = 7381;

struct PaletteEntry {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

struct SpectrumState {
  // 0 solid columns ("Wave"), 1 logarithmic bars ("Spectrum analizer"),
  // 2 scrolling spectrogram ("Wave image"), 3 oscilloscope.
  std::int32_t specMode = 0;
  // The column mode 2 writes next, 0 to 179.
  std::int32_t specPos = 0;
  std::array<std::uint8_t, kSpecBufSize> specBuf{};
  std::array<PaletteEntry, 256> palette{};
  // Samples of mode 3, kept between frames so that a frame allocates nothing
  // but its picture.
  std::vector<float> samples;
  // The timer stopped itself because no one could see the picture.
  bool parked = false;
};

// The module's state in the running program.
SpectrumState& modSpectrum();

// Entry 0 from skin rows 7, 8, 9; entries 1 to 127 a ramp from red whose
// green and blue steps are rows 11 and 12 (real numbers); 128 to 255 the
// spectrogram's scale, black through blue, magenta and yellow to white. A row
// that does not read as a number leaves its entries as they were. Moves the
// cursor of `skinValues`.
void BuildSpectrumPalette(SpectrumState& state, StringList& skinValues);

// Step 12 of a stream's start: column 0; the mode from Options' Option8,
// Option9 or Option10 when one of them is on (Option11 keeps the mode); the
// palette from the current skin.
void SetUpSpectrum();

// Draws one frame of `state.specMode` from `channel` into `state.specBuf`.
// A failed read of the channel draws an empty frame.
void DrawSpectrum(SpectrumState& state, BassApi& bass, DWORD channel);

// The picture of `state` as the surface shows it: 180 x 40 palette indices,
// bottom row first, and the palette.
std::shared_ptr<const IndexedImage> SpectrumFrame(const SpectrumState& state);

// One frame: draws from frmBass's channel and shows the picture in
// Main.Visualisation, or MiniForm.Visualisation while MiniMode is "True".
void UpdateSpectrum();

// Whether the surface the frames go to can be seen: its window shown and not
// minimised, and the surface itself shown.
bool SpectrumSurfaceSeen();

// Starts the frames again that stopped while no one could see them or the
// song stood still, once the surface can be seen and a song sounds through
// the audio engine.
void ResumeParkedSpectrum();

}  // namespace yarvo
