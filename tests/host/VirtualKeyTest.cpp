// Qt's key events as the Windows virtual-key codes that keyboard.data holds:
// a wrong code here silently unbinds a user's shortcut. Plain letters, digits
// and arrows are left out; these are the keys where Qt's view and the stored
// code part ways.

#include <gtest/gtest.h>

#include <tuple>

#include "host/VirtualKey.h"

namespace yarvo {
namespace {

TEST(VirtualKeys, MapToTheStoredCode) {
  for (auto [name, qtKey, keypad, code] :
       {// Shift turns the digit into a symbol; the stored code is the digit key's.
        std::tuple{"Shift+1 on a US layout", Qt::Key_Exclam, false, 49},
        {"Shift+8 on a US layout", Qt::Key_Asterisk, false, 56},
        {"F24", Qt::Key_F24, false, 135},
        // The same Qt key is another key on the keypad than on the main row.
        {"keypad 0", Qt::Key_0, true, 96},
        {"keypad 9", Qt::Key_9, true, 105},
        {"keypad *", Qt::Key_Asterisk, true, 106},
        {"keypad +", Qt::Key_Plus, true, 107},
        {"main row +", Qt::Key_Plus, false, 187},
        {"keypad , (decimal key of a comma layout)", Qt::Key_Comma, true, 110},
        {"keypad Enter", Qt::Key_Enter, true, 13},
        // Without NumLock the keypad sends the navigation keys.
        {"keypad 4 without NumLock", Qt::Key_Left, true, 37},
        {"keypad 5 without NumLock", Qt::Key_Clear, true, 12},
        // The media keys: the shortcut table binds them by these codes.
        {"play/pause", Qt::Key_MediaTogglePlayPause, false, 0xB3},
        {"play", Qt::Key_MediaPlay, false, 0xB3},
        {"pause", Qt::Key_MediaPause, false, 0xB3},
        {"stop", Qt::Key_MediaStop, false, 0xB2},
        {"next", Qt::Key_MediaNext, false, 0xB0},
        {"previous", Qt::Key_MediaPrevious, false, 0xB1},
        {"launch key", Qt::Key_Launch0, false, 0},
        {"unknown on the keypad", Qt::Key_unknown, true, 0}}) {
    EXPECT_EQ(VirtualKeyCode(qtKey, keypad), code) << name;
  }
}

TEST(ShiftStates, AreTheProgramsBits) {
  EXPECT_EQ(ShiftState(Qt::NoModifier), 0);
  EXPECT_EQ(ShiftState(Qt::ShiftModifier | Qt::AltModifier), 5);
  EXPECT_EQ(ShiftState(Qt::ControlModifier | Qt::KeypadModifier), 2);
}

}  // namespace
}  // namespace yarvo
