#pragma once
// Docking. The program's windows stick to the edges of the work area and to
// each other while the user drags them, and Playlist and MediaLibrary follow
// the player window (Main, or MiniForm in mini mode) while Magnet is "1".
// All distances are pixels; an edge sticks within 14 of another.

#include <span>

#include "core/form/ScreenRect.h"

namespace yarvo {

class Form;

// Hooks the drag of `form`: its start takes the rectangles of the program's
// other visible windows, and each step of a move or a size is corrected
// before the window takes it. A form already hooked is left alone.
void SnapForm(Form& form);
// Gives `form` back the drag handlers it had before SnapForm; a form that is
// not hooked is ignored.
void UnSnapForm(Form& form);

// `player` was activated: Playlist and MediaLibrary keep their offsets from
// it as they stand now (Sn1 to Sn4), and follow it (Magnet).
void HoldDockedOffsets(const Form& player);

// One step of a move: `rect`, where the pointer puts the window, sticks to
// the nearest edges of `targets`. targets[0] is the work area, which holds a
// window from the inside only; every other target catches it on all four
// sides, edge to edge, where the two spans across come within reach. The
// size is kept.
void SnapMove(ScreenRect& rect, std::span<const ScreenRect> targets);
// One step of a size by `edge` (1 left, 2 right, 3 top, 4 top left, 5 top
// right, 6 bottom, 7 bottom left, 8 bottom right): the dragged edges stick
// by the rules of SnapMove; the opposite edges stay.
void SnapSize(ScreenRect& rect, int edge, std::span<const ScreenRect> targets);

}  // namespace yarvo
