// Qt's key events as the Windows virtual-key codes that keyboard.data holds:
// a wrong code here silently unbinds a user's shortcut. Plain letters, digits
// and arrows are left out; these are the keys where Qt's view and the stored
// code part ways.

#include <gtest/gtest.h>

#include <ostream>

#include "platform/qt/VirtualKey.h"

namespace yarvo {
namespace {

struct KeyCase {
  const char* name;
  int qtKey;
  bool keypad;
  int code;
  friend std::ostream& operator<<(std::ostream& out, const KeyCase& c) { return out << c.name; }
};

class VirtualKeys : public ::testing::TestWithParam<KeyCase> {};

TEST_P(VirtualKeys, MapToTheStoredCode) {
  const auto& c = GetParam();
  EXPECT_EQ(VirtualKeyCode(c.qtKey, c.keypad), c.code);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, VirtualKeys,
    ::testing::Values(
        // Shift turns the digit into a symbol; the stored code is the digit key's.
        KeyCase{"Shift+1 on a US layout", Qt::Key_Exclam, false, 49},
        KeyCase{"Shift+0 on a US layout", Qt::Key_ParenRight, false, 48},
        KeyCase{"Shift+8 on a US layout", Qt::Key_Asterisk, false, 56},
        KeyCase{"Shift+Tab", Qt::Key_Backtab, false, 9}, KeyCase{"F24", Qt::Key_F24, false, 135},
        KeyCase{"Enter", Qt::Key_Enter, false, 13},
        // The same Qt key is another key on the keypad than on the main row.
        KeyCase{"keypad 0", Qt::Key_0, true, 96}, KeyCase{"keypad 9", Qt::Key_9, true, 105},
        KeyCase{"keypad *", Qt::Key_Asterisk, true, 106},
        KeyCase{"keypad +", Qt::Key_Plus, true, 107}, KeyCase{"keypad -", Qt::Key_Minus, true, 109},
        KeyCase{"keypad .", Qt::Key_Period, true, 110},
        KeyCase{"keypad , (decimal key of a comma layout)", Qt::Key_Comma, true, 110},
        KeyCase{"keypad /", Qt::Key_Slash, true, 111},
        KeyCase{"keypad Enter", Qt::Key_Enter, true, 13},
        KeyCase{"main row +", Qt::Key_Plus, false, 187},
        KeyCase{"main row -", Qt::Key_Minus, false, 189},
        KeyCase{"main row .", Qt::Key_Period, false, 190},
        // Without NumLock the keypad sends the navigation keys.
        KeyCase{"keypad 4 without NumLock", Qt::Key_Left, true, 37},
        KeyCase{"keypad 5 without NumLock", Qt::Key_Clear, true, 12},
        KeyCase{"mute", Qt::Key_VolumeMute, false, 173},
        KeyCase{"volume up", Qt::Key_VolumeUp, false, 175},
        KeyCase{"previous track", Qt::Key_MediaPrevious, false, 177},
        KeyCase{"play/pause", Qt::Key_MediaTogglePlayPause, false, 179},
        KeyCase{"unknown", Qt::Key_unknown, false, 0},
        KeyCase{"launch key", Qt::Key_Launch0, false, 0},
        KeyCase{"unknown on the keypad", Qt::Key_unknown, true, 0}));

TEST(ShiftStates, AreTheProgramsBits) {
  EXPECT_EQ(ShiftState(Qt::NoModifier), 0);
  EXPECT_EQ(ShiftState(Qt::ShiftModifier | Qt::AltModifier), 5);
  EXPECT_EQ(ShiftState(Qt::ControlModifier | Qt::KeypadModifier), 2);
}

}  // namespace
}  // namespace yarvo
