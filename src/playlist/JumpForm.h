#pragma once
// The "Search" window: type part of a title, see the matches, jump to one.
// Lista is its copy of the playlist titles, refreshed by SetJumpList.

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
};

}  // namespace yarvo
