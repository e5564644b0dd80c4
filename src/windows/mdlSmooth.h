#pragma once
// Rounded outlines for the borderless windows.

namespace yarvo {

class Form;

// Gives `form` a rounded outline of its present size: corners of `radius`
// pixels. The outline stays as it is when the window is sized later, until
// the next call.
void SmoothForm(Form& form, int radius);

}  // namespace yarvo
