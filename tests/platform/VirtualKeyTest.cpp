// Qt's key events as the Windows virtual-key codes that keyboard.data holds:
// a wrong code here silently unbinds a user's shortcut.

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
    LettersDigitsAndFunctionKeys, VirtualKeys,
    ::testing::Values(KeyCase{"A", Qt::Key_A, false, 65}, KeyCase{"J", Qt::Key_J, false, 74},
                      KeyCase{"Z", Qt::Key_Z, false, 90}, KeyCase{"0", Qt::Key_0, false, 48},
                      KeyCase{"9", Qt::Key_9, false, 57},
                      KeyCase{"Shift+1 on a US layout", Qt::Key_Exclam, false, 49},
                      KeyCase{"Shift+0 on a US layout", Qt::Key_ParenRight, false, 48},
                      KeyCase{"Shift+8 on a US layout", Qt::Key_Asterisk, false, 56},
                      KeyCase{"F1", Qt::Key_F1, false, 112},
                      KeyCase{"F12", Qt::Key_F12, false, 123},
                      KeyCase{"F24", Qt::Key_F24, false, 135}));

INSTANTIATE_TEST_SUITE_P(
    NavigationAndEditing, VirtualKeys,
    ::testing::Values(
        KeyCase{"Left", Qt::Key_Left, false, 37}, KeyCase{"Up", Qt::Key_Up, false, 38},
        KeyCase{"Right", Qt::Key_Right, false, 39}, KeyCase{"Down", Qt::Key_Down, false, 40},
        KeyCase{"Space", Qt::Key_Space, false, 32}, KeyCase{"Return", Qt::Key_Return, false, 13},
        KeyCase{"Enter", Qt::Key_Enter, false, 13}, KeyCase{"Escape", Qt::Key_Escape, false, 27},
        KeyCase{"Delete", Qt::Key_Delete, false, 46}, KeyCase{"Insert", Qt::Key_Insert, false, 45},
        KeyCase{"Home", Qt::Key_Home, false, 36}, KeyCase{"End", Qt::Key_End, false, 35},
        KeyCase{"PageUp", Qt::Key_PageUp, false, 33},
        KeyCase{"PageDown", Qt::Key_PageDown, false, 34},
        KeyCase{"Backspace", Qt::Key_Backspace, false, 8}, KeyCase{"Tab", Qt::Key_Tab, false, 9},
        KeyCase{"Shift+Tab", Qt::Key_Backtab, false, 9}));

INSTANTIATE_TEST_SUITE_P(
    Keypad, VirtualKeys,
    ::testing::Values(
        KeyCase{"keypad 0", Qt::Key_0, true, 96}, KeyCase{"keypad 5", Qt::Key_5, true, 101},
        KeyCase{"keypad 9", Qt::Key_9, true, 105}, KeyCase{"keypad *", Qt::Key_Asterisk, true, 106},
        KeyCase{"keypad +", Qt::Key_Plus, true, 107}, KeyCase{"keypad -", Qt::Key_Minus, true, 109},
        KeyCase{"keypad .", Qt::Key_Period, true, 110},
        KeyCase{"keypad , (decimal key of a comma layout)", Qt::Key_Comma, true, 110},
        KeyCase{"keypad /", Qt::Key_Slash, true, 111},
        KeyCase{"keypad Enter", Qt::Key_Enter, true, 13},
        KeyCase{"keypad 4 without NumLock", Qt::Key_Left, true, 37},
        KeyCase{"keypad 7 without NumLock", Qt::Key_Home, true, 36},
        KeyCase{"keypad 5 without NumLock", Qt::Key_Clear, true, 12},
        KeyCase{"main row +", Qt::Key_Plus, false, 187},
        KeyCase{"main row -", Qt::Key_Minus, false, 189},
        KeyCase{"main row .", Qt::Key_Period, false, 190}));

INSTANTIATE_TEST_SUITE_P(
    MediaKeysAndKeysWithoutCode, VirtualKeys,
    ::testing::Values(KeyCase{"mute", Qt::Key_VolumeMute, false, 173},
                      KeyCase{"volume down", Qt::Key_VolumeDown, false, 174},
                      KeyCase{"volume up", Qt::Key_VolumeUp, false, 175},
                      KeyCase{"next track", Qt::Key_MediaNext, false, 176},
                      KeyCase{"previous track", Qt::Key_MediaPrevious, false, 177},
                      KeyCase{"stop", Qt::Key_MediaStop, false, 178},
                      KeyCase{"play", Qt::Key_MediaPlay, false, 179},
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
