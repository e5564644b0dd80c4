#pragma once
// A sample frame of the player's visualisation, drawn the way the player
// draws it (180 by 40 palette indices, row 0 at the bottom) from a made-up
// but music-like spectrum and wave, then coloured with a skin's palette.

#include <QImage>

namespace skingen {

class SkinFolder;

enum class DisplayMode { Columns = 0, Bars = 1, Spectrogram = 2, Scope = 3 };

QImage DisplayFrame(const SkinFolder& skin, DisplayMode mode);

}  // namespace skingen
