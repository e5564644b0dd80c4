#pragma once
// The mini window: stands in for Main in mini mode. It keeps no playback
// logic of its own: its timer mirrors Main into it, and its input goes back
// to Main. It exists only while mini mode is on, so each entry reads the
// skin from disk again.

#include "core/form/ControlArray.h"
#include "core/form/Label.h"
#include "core/form/PictureBox.h"
#include "core/form/TextBox.h"
#include "core/form/Timer.h"
#include "windows/Butoane.h"
#include "windows/SkinnedForm.h"
#include "windows/TitleBar.h"
#include "windows/ctlScrollbar.h"

namespace yarvo {

class MiniForm : public SkinnedForm {
 public:
  MiniForm();

  PictureBox Meniu1{this, "Meniu1"}, Meniu2{this, "Meniu2"}, Meniu3{this, "Meniu3"};
  Label Label1{this, "Label1", "File"}, Label3{this, "Label3", "Options"},
      Label4{this, "Label4", "Help"};
  Label LabelVideo{this, "LabelVideo", ""};
  PictureBox MinimizeButton{this, "MinimizeButton"};
  PictureBox CloseButton{this, "CloseButton"};
  PictureBox Image1{this, "Image1"};  // the panel
  Label TSec{this, "TSec", "00:00"};
  Label TotalTime{this, "TotalTime", "00:00"};
  Label StarePlayer{this, "StarePlayer", ""};
  Label Titlu{this, "Titlu", ""};
  PictureBox Visualisation{this, "Visualisation"};
  Butoane Butoane1{this, "Butoane1"};
  ctlScrollbar Volum{this, "Volum", 1, 100.0, 5.0};
  ControlArray<ctlScrollbar> SliderMoveMultimedia{this, "SliderMoveMultimedia", 1, 1, 100.0, 1.0};
  PictureBox ImagineVolum{this, "ImagineVolum"};
  TextBox KeyFocus{this, "KeyFocus"};
  Timer Timer1{this, "Timer1", 500, true};

  // Copies what Main shows into the mini window.
  void MiniForm_Timer1_Timer();
  void MiniForm_Form_Activate();
  void MiniForm_CloseButton_Click();
  void MiniForm_MinimizeButton_Click();

 private:
  void MiniForm_Form_Load();
  void LoadSkin();
  void MiniForm_Form_Resize();
  // MiniFormEvents.cpp: the bars' input handed to Main, the drag, the menu
  // bar, the hover looks, the double clicks and the keys.
  void BindBars();
  void BindFrame();
  void BindHover();
  TitleBar Bar();
  void HoverMenuPlate(int plate);
};

// Hides Main and shows the mini window in its place, with its icon.
void ShowMiniForm();
// Puts Main where the mini window is, unloads the mini window and shows
// Main.
void ShowMainForm();

}  // namespace yarvo
