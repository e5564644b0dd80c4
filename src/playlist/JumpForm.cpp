#include "playlist/JumpForm.h"

namespace yarvo {

JumpForm::JumpForm() : Form("JumpForm") {
  Caption = "Search";
  Move(3000, 3000, 4800, 4200);
  Cautare.Move(120, 120, 4440, 315);
  Rezultate.Move(120, 540, 4440, 2900);
  for (Control* hidden : {static_cast<Control*>(&RealSearch), static_cast<Control*>(&ClearText),
                          static_cast<Control*>(&Lista), static_cast<Control*>(&lstFoundWords)}) {
    hidden->Visible = false;
  }
  Command1.Caption = "Jump";
  Command1.Move(2040, 3540, 1215, 375);
  Command2.Caption = "Cancel";
  Command2.Move(3345, 3540, 1215, 375);
}

}  // namespace yarvo
