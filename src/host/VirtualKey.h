#pragma once
// Qt key events as the stable key integers the shortcuts store: the Windows
// virtual-key codes (13 Enter, 27 Esc, 32 Space, 37-40 arrows, 46 Delete,
// 48-57 digits, 65-90 letters, 96-111 keypad, 112-135 F1-F24, 173-179 media).

#include <Qt>

class QKeyEvent;

namespace yarvo {

// 0 for a key that has no code.
int VirtualKeyCode(const QKeyEvent& event);
int VirtualKeyCode(int qtKey, bool keypad);

// 1 Shift, 2 Ctrl, 4 Alt, as the program's key and mouse events carry them.
int ShiftState(Qt::KeyboardModifiers modifiers);

}  // namespace yarvo
