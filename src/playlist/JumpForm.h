#pragma once
// The "Search" window: type part of a title, see the matches, jump to one.
// Lista is its copy of the playlist titles, refreshed by SetJumpList.
//
// The pattern is the typed text from its second character on (RealSearch);
// the search runs on the second tick of Actualizare after the last change,
// that is after 500 ms without typing. A title identifies the song, so of two
// equal titles in the playlist the upper one plays.

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/form/Form.h"
#include "core/form/ListBox.h"
#include "core/form/PictureBox.h"
#include "core/form/TextBox.h"
#include "core/form/Timer.h"

namespace yarvo {

class JumpForm : public Form {
 public:
  JumpForm();

  TextBox Cautare{this, "Cautare"};
  TextBox RealSearch{this, "RealSearch"};
  TextBox ClearText{this, "ClearText"};
  ListBox Rezultate{this, "Rezultate"};
  ListBox Lista{this, "Lista"};
  ListBox lstFoundWords{this, "lstFoundWords"};
  Timer Actualizare{this, "Actualizare", 250, false};
  PictureBox Command1{this, "Command1"};
  PictureBox Command2{this, "Command2"};

  // The typed text changed: a new pattern, no results, the pause starts.
  void JumpForm_Cautare_Change();
  void JumpForm_Actualizare_Timer();
  // Enter plays, Down and Up move in the results, Esc hides.
  void JumpForm_Cautare_KeyDown(int& keyCode, int shift);
  void JumpForm_Rezultate_KeyDown(int& keyCode, int shift);
  void JumpForm_Rezultate_DblClick();
  void JumpForm_Command1_Click();
  void JumpForm_Command2_Click();
  void JumpForm_Cautare_Click();
  void JumpForm_Form_Activate();

  // Plays the playlist's first row titled as the selected result.
  void PlaySelected();

  // Ticks since the last change; 16-bit as the program's counters are.
  std::int16_t TickCounter() const { return ticks_; }

 private:
  void Search();

  std::int16_t ticks_ = 0;
};

// At most `count` characters of UTF-8 `text` from character `first` (1 for
// the first), cut on character boundaries.
std::string MidCharacters(const std::string& text, std::size_t first, std::size_t count);

}  // namespace yarvo
