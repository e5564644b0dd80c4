#pragma once
// Moving and sizing the borderless windows by hand: the window system's drag
// is started by the program, from its frame pictures and its resize grips.

namespace yarvo {

class Form;

// Starts a drag of `frm` by the pointer, unless the window is minimised or
// maximised or the video fills the screen; returns when the button is let
// go.
void FormMove(Form& frm);

// Sizes `frm` by its bottom right corner with the pointer; returns when the
// button is let go.
void SizeFromCorner(Form& frm);

}  // namespace yarvo
