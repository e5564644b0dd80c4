#pragma once
// The equalizer presets dialog. eqpreset.ini, in the program folder, is a
// line file of records of 11 rows: a name, then the values of the ten band
// sliders (0 to 100). ValoriPreset holds the whole file, row for row;
// ListaPreset the names of the first 30 records. Later records stay in the
// file and are never listed.
//
// Made on first reference (its Load reads the file) and closed by Ok and
// Cancel, which destroy it; the next reference reads the file again. The
// three PresetMenu routines open it in one of its modes. Silent on every
// failure: a record cut short shifts the names of all records behind it.

#include "core/form/Form.h"
#include "core/form/ListBox.h"
#include "core/form/PictureBox.h"
#include "core/form/TextBox.h"

namespace yarvo {

class FormPreset : public Form {
 public:
  FormPreset();

  ListBox ListaPreset{this, "ListaPreset"};
  ListBox ValoriPreset{this, "ValoriPreset"};
  TextBox NumePreset{this, "NumePreset", "Preset1"};  // shown in save mode only
  PictureBox DelButton{this, "DelButton"};            // shown in delete mode only
  PictureBox Command1{this, "Command1"};
  PictureBox Command2{this, "Command2"};

  // Loads the clicked record into the band sliders, which sound at once.
  void ListaPreset_Click();
  // Save mode: appends a record of NumePreset and the ten sliders and saves
  // the file. Then closes.
  void Command1_Click();
  void Command2_Click();
  // Removes the selected name and its 11 rows, and saves the file.
  void DelButton_Click();

 private:
  void FormPreset_Form_Load();
};

// The items of PresetMenu: each shows the dialog (made if needed) in its
// mode.
void LoadPreset();
void SavePreset();
void DeletePreset();

}  // namespace yarvo
