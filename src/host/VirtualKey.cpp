#include "host/VirtualKey.h"

#include <QKeyEvent>

#include <unordered_map>

namespace yarvo {

namespace {

int KeypadCode(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return 96 + (key - Qt::Key_0);
  switch (key) {
    case Qt::Key_Asterisk:
      return 106;
    case Qt::Key_Plus:
      return 107;
    case Qt::Key_Minus:
      return 109;
    case Qt::Key_Period:
      return 110;
    case Qt::Key_Comma:
      return 110;  // the decimal key of layouts that write a comma
    case Qt::Key_Slash:
      return 111;
    case Qt::Key_Enter:
      return 13;
    default:
      return 0;
  }
}

const std::unordered_map<int, int>& NamedKeys() {
  static const std::unordered_map<int, int> keys = {
      {Qt::Key_Backspace, 8},
      {Qt::Key_Tab, 9},
      {Qt::Key_Return, 13},
      {Qt::Key_Enter, 13},
      {Qt::Key_Shift, 16},
      {Qt::Key_Control, 17},
      {Qt::Key_Alt, 18},
      {Qt::Key_Pause, 19},
      {Qt::Key_CapsLock, 20},
      {Qt::Key_Escape, 27},
      {Qt::Key_Space, 32},
      {Qt::Key_PageUp, 33},
      {Qt::Key_PageDown, 34},
      {Qt::Key_End, 35},
      {Qt::Key_Home, 36},
      {Qt::Key_Left, 37},
      {Qt::Key_Up, 38},
      {Qt::Key_Right, 39},
      {Qt::Key_Down, 40},
      {Qt::Key_Print, 44},
      {Qt::Key_Insert, 45},
      {Qt::Key_Delete, 46},
      {Qt::Key_NumLock, 144},
      {Qt::Key_ScrollLock, 145},
      {Qt::Key_VolumeMute, 173},
      {Qt::Key_VolumeDown, 174},
      {Qt::Key_VolumeUp, 175},
      {Qt::Key_MediaNext, 176},
      {Qt::Key_MediaPrevious, 177},
      {Qt::Key_MediaStop, 178},
      {Qt::Key_MediaPlay, 179},
      {Qt::Key_MediaTogglePlayPause, 179},
      {Qt::Key_MediaPause, 179},
      {Qt::Key_Semicolon, 186},
      {Qt::Key_Colon, 186},
      {Qt::Key_Equal, 187},
      {Qt::Key_Plus, 187},
      {Qt::Key_Comma, 188},
      {Qt::Key_Less, 188},
      {Qt::Key_Minus, 189},
      {Qt::Key_Underscore, 189},
      {Qt::Key_Period, 190},
      {Qt::Key_Greater, 190},
      {Qt::Key_Slash, 191},
      {Qt::Key_Question, 191},
      {Qt::Key_QuoteLeft, 192},
      {Qt::Key_AsciiTilde, 192},
      {Qt::Key_BracketLeft, 219},
      {Qt::Key_BraceLeft, 219},
      {Qt::Key_Backslash, 220},
      {Qt::Key_Bar, 220},
      {Qt::Key_BracketRight, 221},
      {Qt::Key_BraceRight, 221},
      {Qt::Key_Apostrophe, 222},
      {Qt::Key_QuoteDbl, 222},
      // The same physical key, whatever Shift made of it (a US layout's symbols).
      {Qt::Key_ParenRight, 48},
      {Qt::Key_Exclam, 49},
      {Qt::Key_At, 50},
      {Qt::Key_NumberSign, 51},
      {Qt::Key_Dollar, 52},
      {Qt::Key_Percent, 53},
      {Qt::Key_AsciiCircum, 54},
      {Qt::Key_Ampersand, 55},
      {Qt::Key_Asterisk, 56},
      {Qt::Key_ParenLeft, 57},
      {Qt::Key_Backtab, 9},
      {Qt::Key_Clear, 12},
      {Qt::Key_Super_L, 91},
      {Qt::Key_Super_R, 92},
      {Qt::Key_Menu, 93},
  };
  return keys;
}

}  // namespace

int VirtualKeyCode(int qtKey, bool keypad) {
  if (keypad) {
    if (const int code = KeypadCode(qtKey)) return code;
  }
  if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return 65 + (qtKey - Qt::Key_A);
  if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return 48 + (qtKey - Qt::Key_0);
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return 112 + (qtKey - Qt::Key_F1);
  const auto& named = NamedKeys();
  const auto found = named.find(qtKey);
  return found == named.end() ? 0 : found->second;
}

int VirtualKeyCode(const QKeyEvent& event) {
  return VirtualKeyCode(event.key(), event.modifiers().testFlag(Qt::KeypadModifier));
}

int ShiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) |
         (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) |
         (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

}  // namespace yarvo
